#include "device/zelvarv1.h"

#include "device/zelvarv1registers.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr unsigned ControlTableSize = 118;

// Positions are scaled by 6.283185307178 / 4096 rad a count, the angle limits by 3.141592653589 / 2047: two
// scales, and both are the servo's.
// clang-format off
constexpr LimitsRow Limits[] = {
    // object name, rawMin, rawMax, physicalMin, physicalMax
    {"actualPositionLineEdit",                   -1044479, 1044479, -1602.2107193496022, 1602.2107193496022},
    {"actualAngularVelocityLineEdit",            0,        2300,    0.0,                 2.3},
    {"actualTemperatureLineEdit",                0,        255,     0.0,                 255.0},
    {"actualTorqueLineEdit",                     0,        18000,   0.0,                 18.0},
    {"actualVoltageLineEdit",                    0,        255,     0.0,                 25.5},
    {"actualQuadratureCurrentLineEdit",          0,        255,     0.0,                 255.0},
    {"firmwareVersionLineEdit",                  0,        255,     0.0,                 255.0},
    {"modelNumberLineEdit",                      0,        255,     0.0,                 255.0},
    {"idSpinBox",                                0,        253,     0.0,                 253.0},
    {"ackResponseTimeSpinBox",                   0,        254,     0.0,                 508.0},
    {"operatingModeComboBox",                    0,        0,       0.0,                 0.0},
    {"inputModeComboBox",                        0,        0,       0.0,                 0.0},
    {"clockwiseLimitDoubleSpinBox",              -2047,    2047,    -3.141592653589,     3.141592653589},
    {"counterClockwiseLimitDoubleSpinBox",       -2047,    2047,    -3.141592653589,     3.141592653589},
    {"temperatureLimitDoubleSpinBox",            0,        255,     0.0,                 255.0},
    {"minVoltageLimitDoubleSpinBox",             0,        255,     0.0,                 25.5},
    {"maxVoltageLimitDoubleSpinBox",             0,        255,     0.0,                 25.5},
    {"quadratureCurrentLimitDoubleSpinBox",      0,        5000,    0.0,                 5.0},
    {"angularVelocityLimitDoubleSpinBox",        0,        2400,    0.0,                 2.4},
    {"accelerationLimitDoubleSpinBox",           0,        48000,   0.0,                 48.0},
    {"defPositionProportionalTermDoubleSpinBox", 0,        2000,    0.0,                 200.0},
    {"defVelocityFeedforwardTermDoubleSpinBox",  0,        16383,   0.0,                 16.383},
    {"defCurrentFeedforwardTermDoubleSpinBox",   0,        1000,    0.0,                 1.0},
    {"defVelocityProportionalTermDoubleSpinBox", 0,        4000,    0.0,                 4.0},
    {"defVelocityIntegralTermDoubleSpinBox",     0,        4000,    0.0,                 4.0},
    {"defAngularVelocityProfileDoubleSpinBox",   0,        2000,    0.0,                 2.0},
    {"defAccelerationProfileDoubleSpinBox",      0,        48000,   0.0,                 48.0},
    {"hornPositionOffsetDoubleSpinBox",          -1044479, 1044479, -1602.2107193496022, 1602.2107193496022},
    {"movingThresholdDoubleSpinBox",             0,        2000,    0.0,                 2.0},
    {"targetPositionDoubleSpinBox",              -1044479, 1044479, -1602.2107193496022, 1602.2107193496022},
    {"positionProportionalTermDoubleSpinBox",    0,        2000,    0.0,                 200.0},
    {"velocityFeedforwardTermDoubleSpinBox",     0,        16383,   0.0,                 16.383},
    {"currentFeedforwardTermDoubleSpinBox",      0,        1000,    0.0,                 1.0},
    {"deadZoneDoubleSpinBox",                    0,        1024,    0.0,                 1.5707963267945},
    {"targetAngularVelocityDoubleSpinBox",       0,        2000,    0.0,                 2.0},
    {"targetAngularVelocityDirectionComboBox",   0,        0,       0.0,                 0.0},
    {"velocityProportionalTermDoubleSpinBox",    0,        4000,    0.0,                 4.0},
    {"velocityIntegralTermDoubleSpinBox",        0,        4000,    0.0,                 4.0},
    {"targetTorqueDoubleSpinBox",                0,        18000,   0.0,                 18.0},
    {"targetTorqueDirectionComboBox",            0,        0,       0.0,                 0.0},
    {"angularVelocityProfileDoubleSpinBox",      0,        2000,    0.0,                 2.0},
    {"accelerationProfileDoubleSpinBox",         0,        48000,   0.0,                 48.0},
    {"pendingShadowInstructionCheckBox",         0,        1,       0.0,                 1.0},
    {"enableMotorCheckBox",                      0,        1,       0.0,                 1.0},
    {"isMovingCheckBox",                         0,        1,       0.0,                 1.0},
    {"inputVoltageStatusCheckBox",               0,        1,       0.0,                 1.0},
    {"overheatingStatusCheckBox",                0,        1,       0.0,                 1.0},
    {"encoderStatusCheckBox",                    0,        1,       0.0,                 1.0},
    {"hallStatusCheckBox",                       0,        1,       0.0,                 1.0},
    {"angleLimitStatusCheckBox",                 0,        1,       0.0,                 1.0},
};
// clang-format on

} // namespace

ZelvarV1::ZelvarV1(const ModeDependencies &dependencies) : DeviceBase(Limits)
{
    setController(QStringLiteral("operatingModeComboBox"), dependencies.operatingMode);
    setController(QStringLiteral("inputModeComboBox"), dependencies.inputMode);
    for (const RegisterRow &row : ZelvarV1Registers) {
        m_registers.emplace(row.address, RegisterDescription{row.bank, row.row, row.writable,
                                                             QCoreApplication::translate("ZelvarV1", row.description)});
    }
}

unsigned ZelvarV1::controlTableSize() const
{
    return ControlTableSize;
}

std::optional<RegisterDescription> ZelvarV1::registerDescription(quint16 address) const
{
    const auto found = m_registers.find(address);
    if (found == m_registers.end())
        return std::nullopt;
    return found->second;
}

unsigned ZelvarV1::registerCount(quint32 bank) const
{
    return unsigned(std::count_if(m_registers.begin(), m_registers.end(),
                                  [bank](const auto &entry) { return entry.second.bank == bank; }));
}

bool ZelvarV1::hasRegisterMap() const
{
    return true;
}
