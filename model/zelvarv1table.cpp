#include "model/families.h"

namespace model {

namespace {

using Kind = FieldKind;

constexpr Encoding Unsigned{Encoding::Form::Unsigned};
constexpr Encoding Signed{Encoding::Form::Signed};
constexpr Encoding Directed{Encoding::Form::Directed, 15};
constexpr Encoding Flags{Encoding::Form::Flags};

constexpr Access ReadOnly = Access::ReadOnly;
constexpr Access NonVolatile = Access::NonVolatile;
constexpr Access Volatile = Access::Volatile;

// π and 2π have twelve decimals here, as the servo has them.
constexpr double Pi = 3.141592653589;

/** 4096 counts a turn; the physical ends are 1044479 × 6.283185307178 / 4096. */
constexpr Range Positions{-1044479, 1044479, -1602.2107193496022, 1602.2107193496022};
/** Half a turn is 2047 steps: a scale of their own, which is the servo's. */
constexpr Range AngleLimits{-2047, 2047, -Pi, Pi};
constexpr Range Volts{0, 255, 0.0, 25.5};
constexpr Range Bytes{0, 255, 0.0, 255.0};
constexpr Range Words{0, 65535, 0.0, 65535.0};
constexpr Range Switch{0, 1, 0.0, 1.0};

/** Values from 0 on that count one by one. */
constexpr Range counts(qint32 rawMax)
{
    return {0, rawMax, 0.0, double(rawMax)};
}

constexpr Range thousandths(qint32 rawMax)
{
    return {0, rawMax, 0.0, rawMax / 1000.0};
}

// clang-format off
constexpr Flag HardwareErrors[] = {
    {0, "input_voltage_error", QT_TRANSLATE_NOOP("EditView", "Input voltage error"), "inputVoltageStatusCheckBox"},
    {1, "hall_sensor_error",   QT_TRANSLATE_NOOP("EditView", "Hall sensor error"),   "hallStatusCheckBox"        },
    {2, "overheating_error",   QT_TRANSLATE_NOOP("EditView", "Overheating error"),   "overheatingStatusCheckBox" },
    {3, "encoder_error",       QT_TRANSLATE_NOOP("EditView", "Encoder error"),       "encoderStatusCheckBox"     },
    {4, "angle_limit_error",   QT_TRANSLATE_NOOP("EditView", "Angle limit error"),   "angleLimitStatusCheckBox"  },
};

// The label of 101 repeats that of 68: it is what the profile asks for now.
constexpr Field Fields[] = {
    // key, address, bytes, encoding, kind, access, range, label, {control, caption with the unit, direction}
    {"model_number",                       0,   2, Unsigned, Kind::ModelNumber,            ReadOnly,    Words,              QT_TRANSLATE_NOOP("ZelvarV1", "Model number"),                       {"modelNumberLineEdit"}},
    {"firmware_version",                   2,   1, Unsigned, Kind::PlainValue,             ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Firmware version"),                   {"firmwareVersionLineEdit"}},
    {"id",                                 3,   1, Unsigned, Kind::ServoId,                NonVolatile, counts(253),        QT_TRANSLATE_NOOP("ZelvarV1", "ID"),                                 {"idSpinBox"}},
    {"baud_rate",                          4,   1, Unsigned, Kind::BaudRate,               NonVolatile, counts(254),        QT_TRANSLATE_NOOP("ZelvarV1", "Baud rate"),                          {"baudRateComboBox"}},
    {"acknowledge_response_time",          5,   1, Unsigned, Kind::ReturnDelay,            NonVolatile, {0, 254, 0, 508},   QT_TRANSLATE_NOOP("ZelvarV1", "Acknowledge response time"),          {"ackResponseTimeSpinBox", "ackResponseTimeLabel"}},
    {"operating_mode",                     6,   1, Unsigned, Kind::OperatingMode,          NonVolatile, counts(4),          QT_TRANSLATE_NOOP("ZelvarV1", "Operating mode"),                     {"operatingModeComboBox"}},
    {"clockwise_angle_limit",              7,   2, Signed,   Kind::Angle,                  NonVolatile, AngleLimits,        QT_TRANSLATE_NOOP("ZelvarV1", "CW angle limit"),                     {"clockwiseLimitDoubleSpinBox", "clockwiseAngleLimitLabel"}},
    {"counter_clockwise_angle_limit",      9,   2, Signed,   Kind::Angle,                  NonVolatile, AngleLimits,        QT_TRANSLATE_NOOP("ZelvarV1", "CCW angle limit"),                    {"counterClockwiseLimitDoubleSpinBox", "counterClockwiseAngleLimitLabel"}},
    {"upper_temperature_limit",            11,  1, Unsigned, Kind::Temperature,            NonVolatile, Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Upper temperature limit"),            {"temperatureLimitDoubleSpinBox", "upperTemperatureLimitLabel"}},
    {"lower_input_voltage_limit",          12,  1, Unsigned, Kind::Voltage,                NonVolatile, Volts,              QT_TRANSLATE_NOOP("ZelvarV1", "Lower input voltage limit"),          {"minVoltageLimitDoubleSpinBox", "minVoltageLimitLabel"}},
    {"upper_input_voltage_limit",          13,  1, Unsigned, Kind::Voltage,                NonVolatile, Volts,              QT_TRANSLATE_NOOP("ZelvarV1", "Upper input voltage limit"),          {"maxVoltageLimitDoubleSpinBox", "maxVoltageLimitLabel"}},
    {"torque_limit",                       14,  2, Unsigned, Kind::Torque,                 NonVolatile, thousandths(5000),  QT_TRANSLATE_NOOP("ZelvarV1", "Torque limit"),                       {"quadratureCurrentLimitDoubleSpinBox"}},
    {"angular_velocity_limit",             16,  2, Unsigned, Kind::AngularVelocity,        NonVolatile, thousandths(2400),  QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity limit"),             {"angularVelocityLimitDoubleSpinBox", "angularVelocityLimitLabel"}},
    {"acceleration_limit",                 18,  2, Unsigned, Kind::AngularAcceleration,    NonVolatile, thousandths(48000), QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration limit"),                 {"accelerationLimitDoubleSpinBox", "accelerationLimitLabel"}},
    {"home_position_offset",               20,  4, Signed,   Kind::Angle,                  NonVolatile, Positions,          QT_TRANSLATE_NOOP("ZelvarV1", "Home position offset"),               {"hornPositionOffsetDoubleSpinBox", "hornPositionOffsetLabel"}},
    {"moving_threshold",                   24,  2, Unsigned, Kind::AngularVelocity,        NonVolatile, thousandths(2000),  QT_TRANSLATE_NOOP("ZelvarV1", "Moving threshold"),                   {"movingThresholdDoubleSpinBox", "movingThresholdLabel"}},
    {"input_mode",                         26,  1, Unsigned, Kind::InputMode,              NonVolatile, counts(1),          QT_TRANSLATE_NOOP("ZelvarV1", "Input mode"),                         {"inputModeComboBox", "inputModeLabel"}},
    {"default_position_proportional_gain", 27,  2, Unsigned, Kind::PositionGain,           NonVolatile, {0, 2000, 0, 200},  QT_TRANSLATE_NOOP("ZelvarV1", "Default position proportional gain"), {"defPositionProportionalTermDoubleSpinBox"}},
    {"default_velocity_feedforward_gain",  29,  2, Unsigned, Kind::VelocityFeedforward,    NonVolatile, thousandths(16383), QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity feedforward gain"),  {"defVelocityFeedforwardTermDoubleSpinBox"}},
    {"default_current_feedforward_gain",   31,  2, Unsigned, Kind::CurrentFeedforward,     NonVolatile, thousandths(1000),  QT_TRANSLATE_NOOP("ZelvarV1", "Default current feedforward gain"),   {"defCurrentFeedforwardTermDoubleSpinBox"}},
    {"default_velocity_integral_gain",     33,  2, Unsigned, Kind::VelocityIntegralGain,   NonVolatile, thousandths(4000),  QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity integral gain"),     {"defVelocityIntegralTermDoubleSpinBox"}},
    {"default_velocity_proportional_gain", 35,  2, Unsigned, Kind::VelocityGain,           NonVolatile, thousandths(4000),  QT_TRANSLATE_NOOP("ZelvarV1", "Default velocity proportional gain"), {"defVelocityProportionalTermDoubleSpinBox"}},
    {"default_angular_velocity_profile",   37,  2, Unsigned, Kind::AngularVelocityProfile, NonVolatile, thousandths(2000),  QT_TRANSLATE_NOOP("ZelvarV1", "Default angular velocity profile"),   {"defAngularVelocityProfileDoubleSpinBox"}},
    {"default_acceleration_profile",       39,  2, Unsigned, Kind::AccelerationProfile,    NonVolatile, thousandths(48000), QT_TRANSLATE_NOOP("ZelvarV1", "Default acceleration profile"),       {"defAccelerationProfileDoubleSpinBox"}},
    {"control_enable",                     48,  1, Unsigned, Kind::PlainValue,             Volatile,    Switch,             QT_TRANSLATE_NOOP("ZelvarV1", "Control enable"),                     {"enableMotorCheckBox"}},
    {"pending_shadow_instruction",         49,  1, Unsigned, Kind::PlainValue,             Volatile,    Switch,             QT_TRANSLATE_NOOP("ZelvarV1", "Pending shadow instruction"),         {"pendingShadowInstructionCheckBox"}, {}, true},
    {"position_proportional_gain",         54,  2, Unsigned, Kind::PositionGain,           Volatile,    {0, 2000, 0, 200},  QT_TRANSLATE_NOOP("ZelvarV1", "Position proportional gain"),         {"positionProportionalTermDoubleSpinBox"}},
    {"velocity_feedforward_gain",          56,  2, Unsigned, Kind::VelocityFeedforward,    Volatile,    thousandths(16383), QT_TRANSLATE_NOOP("ZelvarV1", "Velocity feedforward gain"),          {"velocityFeedforwardTermDoubleSpinBox"}},
    {"current_feedforward_gain",           58,  2, Unsigned, Kind::CurrentFeedforward,     Volatile,    thousandths(1000),  QT_TRANSLATE_NOOP("ZelvarV1", "Current feedforward gain"),           {"currentFeedforwardTermDoubleSpinBox"}},
    {"velocity_integral_gain",             60,  2, Unsigned, Kind::VelocityIntegralGain,   Volatile,    thousandths(4000),  QT_TRANSLATE_NOOP("ZelvarV1", "Velocity integral gain"),             {"velocityIntegralTermDoubleSpinBox"}},
    {"velocity_proportional_gain",         62,  2, Unsigned, Kind::VelocityGain,           Volatile,    thousandths(4000),  QT_TRANSLATE_NOOP("ZelvarV1", "Velocity proportional gain"),         {"velocityProportionalTermDoubleSpinBox"}},
    {"angular_velocity_profile",           68,  2, Unsigned, Kind::AngularVelocityProfile, Volatile,    thousandths(2000),  QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile"),           {"angularVelocityProfileDoubleSpinBox"}},
    {"acceleration_profile",               70,  2, Unsigned, Kind::AccelerationProfile,    Volatile,    thousandths(48000), QT_TRANSLATE_NOOP("ZelvarV1", "Acceleration profile"),               {"accelerationProfileDoubleSpinBox"}},
    {"target_position",                    78,  4, Signed,   Kind::Angle,                  Volatile,    Positions,          QT_TRANSLATE_NOOP("ZelvarV1", "Target position"),                    {"targetPositionDoubleSpinBox", "targetPositionLabel"}},
    {"target_angular_velocity",            82,  2, Directed, Kind::AngularVelocity,        Volatile,    thousandths(2000),  QT_TRANSLATE_NOOP("ZelvarV1", "Target angular velocity"),            {"targetAngularVelocityDoubleSpinBox", "targetAngularVelocityLabel", "targetAngularVelocityDirectionComboBox"}},
    {"target_torque",                      84,  2, Directed, Kind::Torque,                 Volatile,    thousandths(18000), QT_TRANSLATE_NOOP("ZelvarV1", "Target torque"),                      {"targetTorqueDoubleSpinBox", "targetTorqueLabel", "targetTorqueDirectionComboBox"}},
    {"actual_position",                    86,  4, Signed,   Kind::Angle,                  ReadOnly,    Positions,          QT_TRANSLATE_NOOP("ZelvarV1", "Actual position"),                    {"actualPositionLineEdit", "positionLabel"}},
    {"actual_angular_velocity",            90,  2, Unsigned, Kind::AngularVelocity,        ReadOnly,    thousandths(2300),  QT_TRANSLATE_NOOP("ZelvarV1", "Actual angular velocity"),            {"actualAngularVelocityLineEdit", "angularVelocityLabel"}},
    {"actual_torque",                      92,  2, Unsigned, Kind::Torque,                 ReadOnly,    thousandths(18000), QT_TRANSLATE_NOOP("ZelvarV1", "Actual torque"),                      {"actualTorqueLineEdit", "torqueLabel"}},
    {"actual_voltage",                     94,  1, Unsigned, Kind::Voltage,                ReadOnly,    Volts,              QT_TRANSLATE_NOOP("ZelvarV1", "Actual voltage"),                     {"actualVoltageLineEdit", "voltageLabel"}},
    {"actual_phase_current",               95,  2, Unsigned, Kind::Current,                ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Actual phase current"),               {"actualQuadratureCurrentLineEdit", "quadratureCurrentLabel"}},
    {"actual_temperature",                 97,  1, Unsigned, Kind::Temperature,            ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Actual temperature"),                 {"actualTemperatureLineEdit", "temperatureLabel"}},
    {"moving",                             99,  1, Unsigned, Kind::PlainValue,             ReadOnly,    Switch,             QT_TRANSLATE_NOOP("ZelvarV1", "Moving"),                             {"isMovingCheckBox"}},
    {"actual_angular_velocity_profile",    101, 2, Unsigned, Kind::AngularVelocityProfile, ReadOnly,    thousandths(65535), QT_TRANSLATE_NOOP("ZelvarV1", "Angular velocity profile")},
    {"hardware_error_status",              107, 1, Flags,    Kind::PlainValue,             ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Hardware error status"),              {}, HardwareErrors},
    {"debug_1",                            112, 1, Unsigned, Kind::PlainValue,             ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Debug 1 (u8)")},
    {"debug_2",                            113, 1, Unsigned, Kind::PlainValue,             ReadOnly,    Bytes,              QT_TRANSLATE_NOOP("ZelvarV1", "Debug 2 (u8)")},
    {"debug_3",                            114, 2, Unsigned, Kind::PlainValue,             ReadOnly,    Words,              QT_TRANSLATE_NOOP("ZelvarV1", "Debug 3")},
    {"debug_4",                            116, 2, Unsigned, Kind::PlainValue,             ReadOnly,    Words,              QT_TRANSLATE_NOOP("ZelvarV1", "Debug 4")},
};
// clang-format on

/** Stepping from address 0 by the size of each field and gap always meets another one, up to two past the table. */
constexpr Gap Gaps[] = {
    {41, 1}, {42, 2}, {44, 2},  {46, 2},  {50, 2},  {52, 2},  {64, 2},  {66, 2},  {72, 2},  {74, 2},
    {76, 2}, {98, 1}, {100, 1}, {103, 4}, {108, 1}, {109, 1}, {110, 1}, {111, 1}, {118, 1}, {119, 1},
};

constexpr int TableSize = 118;
static_assert(isTable(Fields, TableSize));

} // namespace

const Family ZelvarV1Family{"ZelvarV1", TableSize, Fields, Gaps, "control_enable"};

} // namespace model
