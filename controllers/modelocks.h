#pragma once

#include <array>
#include <iterator>

/** What a mode does with a control. */
enum class ModeLock {
    /** Out of use. */
    Locked,
    /** In use. */
    Unlocked,
    /** In use while the input mode is "Trajectory", out of use in any other. */
    InputModeZero,
    /** Keeps what the mode before made of it. */
    Untouched,
};

/** One control and its lock in each mode, in the order of OperatingMode. */
struct ModeLockRow
{
    const char *control;
    std::array<ModeLock, 5> byMode;
};

namespace modelocks {

constexpr ModeLock L = ModeLock::Locked;
constexpr ModeLock u = ModeLock::Unlocked;
constexpr ModeLock t = ModeLock::InputModeZero;
constexpr ModeLock x = ModeLock::Untouched;

/**
 * The locks of all modes, in the order in which they are set.
 *
 * The velocity-proportional label stands twice, and the later row wins. The position-proportional label and
 * the acceleration limit keep, in some modes, the state that the mode before gave them.
 */
// clang-format off
inline constexpr ModeLockRow Rows[] = {
    // control                                  Torque  Wheel  Joint  Multi-turn  Stepper
    {"inputModeLabel",                          {{L,    L,     u,     u,          L}}},
    {"clockwiseAngleLimitLabel",                {{L,    L,     u,     L,          L}}},
    {"counterClockwiseAngleLimitLabel",         {{L,    L,     u,     L,          L}}},
    {"velocityProportionalTermLabel",           {{L,    L,     u,     u,          L}}},
    {"velocityFeedforwardTermLabel",            {{L,    L,     u,     u,          L}}},
    {"currentFeedforwardTermLabel",             {{L,    u,     u,     u,          L}}},
    {"targetAngularVelocityLabel",              {{L,    u,     L,     L,          L}}},
    {"velocityProportionalTermLabel",           {{L,    u,     u,     u,          L}}},
    {"velocityIntegralTermLabel",               {{L,    u,     u,     u,          L}}},
    {"angularVelocityProfileLabel",             {{L,    L,     u,     u,          L}}},
    {"accelerationProfileLabel",                {{L,    u,     t,     t,          L}}},
    {"targetAngularVelocityDirectionLabel",     {{L,    u,     L,     L,          L}}},
    {"targetPositionLabel",                     {{L,    L,     u,     u,          L}}},
    {"targetTorqueLabel",                       {{u,    L,     L,     L,          L}}},
    {"targetTorqueDirectionLabel",              {{u,    L,     L,     L,          L}}},
    {"quadratureCurrentLimitLabel",             {{u,    u,     u,     u,          u}}},
    {"positionProportionalTermLabel",           {{x,    L,     u,     x,          L}}},
    {"angularVelocityLimitLabel",               {{u,    u,     u,     u,          u}}},
    {"accelerationLimitLabel",                  {{x,    u,     u,     u,          u}}},
    {"hornPositionOffsetLabel",                 {{u,    u,     u,     u,          u}}},
    {"defPositionProportionalTermLabel",        {{L,    L,     u,     u,          u}}},
    {"defVelocityFeedforwardTermLabel",         {{L,    L,     u,     u,          u}}},
    {"defVelocityProportionalTermLabel",        {{L,    u,     u,     u,          u}}},
    {"defVelocityIntegralTermLabel",            {{L,    u,     u,     u,          u}}},
    {"defCurrentFeedforwardTermLabel",          {{L,    u,     u,     u,          u}}},
    {"defAngularVelocityProfileLabel",          {{L,    L,     u,     u,          u}}},
    {"defAccelerationProfileLabel",             {{L,    u,     u,     u,          u}}},
    {"inputModeComboBox",                       {{L,    L,     u,     u,          L}}},
    {"clockwiseLimitDoubleSpinBox",             {{L,    L,     u,     L,          L}}},
    {"counterClockwiseLimitDoubleSpinBox",      {{L,    L,     u,     L,          L}}},
    {"positionProportionalTermDoubleSpinBox",   {{L,    L,     u,     u,          L}}},
    {"velocityFeedforwardTermDoubleSpinBox",    {{L,    L,     u,     u,          L}}},
    {"currentFeedforwardTermDoubleSpinBox",     {{L,    u,     u,     u,          L}}},
    {"targetAngularVelocityDoubleSpinBox",      {{L,    u,     L,     L,          L}}},
    {"velocityProportionalTermDoubleSpinBox",   {{L,    u,     u,     u,          L}}},
    {"velocityIntegralTermDoubleSpinBox",       {{L,    u,     u,     u,          L}}},
    {"angularVelocityProfileDoubleSpinBox",     {{L,    L,     u,     u,          L}}},
    {"accelerationProfileDoubleSpinBox",        {{L,    u,     t,     t,          L}}},
    {"targetPositionDoubleSpinBox",             {{L,    L,     u,     u,          L}}},
    {"targetAngularVelocityDirectionComboBox",  {{L,    u,     L,     L,          L}}},
    {"targetTorqueDoubleSpinBox",               {{u,    L,     L,     L,          L}}},
    {"targetTorqueDirectionComboBox",           {{u,    L,     L,     L,          L}}},
    {"quadratureCurrentLimitDoubleSpinBox",     {{u,    u,     u,     u,          u}}},
    {"angularVelocityLimitDoubleSpinBox",       {{u,    u,     u,     u,          u}}},
    {"accelerationLimitDoubleSpinBox",          {{x,    u,     u,     u,          u}}},
    {"hornPositionOffsetDoubleSpinBox",         {{u,    u,     u,     u,          u}}},
    {"enableMotorCheckBox",                     {{u,    u,     u,     u,          u}}},
    {"pendingShadowInstructionCheckBox",        {{u,    u,     u,     u,          L}}},
    {"defPositionProportionalTermDoubleSpinBox",{{L,    L,     u,     u,          u}}},
    {"defVelocityFeedforwardTermDoubleSpinBox", {{L,    L,     u,     u,          u}}},
    {"defVelocityProportionalTermDoubleSpinBox",{{L,    u,     u,     u,          u}}},
    {"defVelocityIntegralTermDoubleSpinBox",    {{L,    u,     u,     u,          u}}},
    {"defCurrentFeedforwardTermDoubleSpinBox",  {{L,    u,     u,     u,          u}}},
    {"defAngularVelocityProfileDoubleSpinBox",  {{L,    L,     u,     u,          u}}},
    {"defAccelerationProfileDoubleSpinBox",     {{L,    u,     u,     u,          u}}},
};
// clang-format on

constexpr std::size_t Count = std::size(Rows);

} // namespace modelocks
