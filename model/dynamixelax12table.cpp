#include "model/families.h"

namespace model {

namespace {

using Kind = FieldKind;

constexpr Encoding Unsigned{Encoding::Form::Unsigned};
constexpr Encoding Directed{Encoding::Form::Directed, 10};
constexpr Encoding Flags{Encoding::Form::Flags};

constexpr Access ReadOnly = Access::ReadOnly;
constexpr Access NonVolatile = Access::NonVolatile;
constexpr Access Volatile = Access::Volatile;

constexpr qint32 FullScale = 1023; ///< of positions, speeds, loads and torques
constexpr double Pi = 3.141592653589;

/** 300° in all; 0 is 150° clockwise of the middle. */
constexpr Range Positions{0, FullScale, -150.0 / 180.0 * Pi, 150.0 / 180.0 * Pi};
/** 0.111 revolutions a minute a step. As a target, 0 is "as fast as it can". */
constexpr Range Speeds{0, FullScale, 0.0, FullScale * 0.111 * 2.0 * Pi / 60.0};
/** 0.1 % a step. */
constexpr Range Shares{0, FullScale, 0.0, FullScale / 10.0};
constexpr Range VoltageLimits{50, 250, 5.0, 25.0};
constexpr Range Volts{0, 255, 0.0, 25.5};
constexpr Range Bytes{0, 255, 0.0, 255.0};
constexpr Range Words{0, 65535, 0.0, 65535.0};
constexpr Range Switch{0, 1, 0.0, 1.0};

/** Values that count one by one. */
constexpr Range counts(qint32 rawMin, qint32 rawMax)
{
    return {rawMin, rawMax, double(rawMin), double(rawMax)};
}

// clang-format off
/** The same bits as in the error byte of the servo's answers. */
constexpr Flag Alarms[] = {
    {0, "input_voltage_error", "Input voltage error"},
    {1, "angle_limit_error",   "Angle limit error"  },
    {2, "overheating_error",   "Overheating error"  },
    {3, "range_error",         "Data range error"   },
    {4, "checksum_error",      "Checksum error"     },
    {5, "overload_error",      "Overload error"     },
    {6, "instruction_error",   "Instruction error"  },
};

// Registers that the window does not show: their labels are not translated.
constexpr Field Fields[] = {
    // key, address, bytes, encoding, kind, access, range, label
    {"model_number",                0,  2, Unsigned, Kind::ModelNumber,     ReadOnly,    Words,            "Model number"},
    {"firmware_version",            2,  1, Unsigned, Kind::PlainValue,      ReadOnly,    Bytes,            "Firmware version"},
    {"id",                          3,  1, Unsigned, Kind::ServoId,         NonVolatile, counts(0, 253),   "ID"},
    {"baud_rate",                   4,  1, Unsigned, Kind::BaudRate,        NonVolatile, counts(0, 254),   "Baud rate"},
    {"return_delay_time",           5,  1, Unsigned, Kind::ReturnDelay,     NonVolatile, {0, 254, 0, 508}, "Return delay time"},
    {"clockwise_angle_limit",       6,  2, Unsigned, Kind::Angle,           NonVolatile, Positions,        "CW angle limit"},
    {"counter_clockwise_angle_limit", 8, 2, Unsigned, Kind::Angle,          NonVolatile, Positions,        "CCW angle limit"},
    {"upper_temperature_limit",     11, 1, Unsigned, Kind::Temperature,     NonVolatile, counts(0, 150),   "Upper temperature limit"},
    {"lower_input_voltage_limit",   12, 1, Unsigned, Kind::Voltage,         NonVolatile, VoltageLimits,    "Lower input voltage limit"},
    {"upper_input_voltage_limit",   13, 1, Unsigned, Kind::Voltage,         NonVolatile, VoltageLimits,    "Upper input voltage limit"},
    {"max_torque",                  14, 2, Unsigned, Kind::Share,           NonVolatile, Shares,           "Maximum torque"},
    {"status_return_level",         16, 1, Unsigned, Kind::PlainValue,      NonVolatile, counts(0, 2),     "Status return level"},
    {"alarm_led",                   17, 1, Flags,    Kind::PlainValue,      NonVolatile, counts(0, 127),   "Alarm LED", {}, Alarms},
    {"alarm_shutdown",              18, 1, Flags,    Kind::PlainValue,      NonVolatile, counts(0, 127),   "Alarm shutdown", {}, Alarms},
    {"torque_enable",               24, 1, Unsigned, Kind::PlainValue,      Volatile,    Switch,           "Torque enable"},
    {"led",                         25, 1, Unsigned, Kind::PlainValue,      Volatile,    Switch,           "LED"},
    {"clockwise_margin",            26, 1, Unsigned, Kind::PlainValue,      Volatile,    counts(0, 254),   "CW compliance margin"},
    {"counter_clockwise_margin",    27, 1, Unsigned, Kind::PlainValue,      Volatile,    counts(0, 254),   "CCW compliance margin"},
    {"clockwise_slope",             28, 1, Unsigned, Kind::PlainValue,      Volatile,    counts(1, 254),   "CW compliance slope"},
    {"counter_clockwise_slope",     29, 1, Unsigned, Kind::PlainValue,      Volatile,    counts(1, 254),   "CCW compliance slope"},
    {"goal_position",               30, 2, Unsigned, Kind::Angle,           Volatile,    Positions,        "Goal position"},
    {"moving_speed",                32, 2, Directed, Kind::AngularVelocity, Volatile,    Speeds,           "Moving speed"},
    {"torque_limit",                34, 2, Unsigned, Kind::Share,           Volatile,    Shares,           "Torque limit"},
    {"present_position",            36, 2, Unsigned, Kind::Angle,           ReadOnly,    Positions,        "Present position"},
    {"present_speed",               38, 2, Directed, Kind::AngularVelocity, ReadOnly,    Speeds,           "Present speed"},
    {"present_load",                40, 2, Directed, Kind::Share,           ReadOnly,    Shares,           "Present load"},
    {"present_voltage",             42, 1, Unsigned, Kind::Voltage,         ReadOnly,    Volts,            "Present voltage"},
    {"present_temperature",         43, 1, Unsigned, Kind::Temperature,     ReadOnly,    Bytes,            "Present temperature"},
    {"registered",                  44, 1, Unsigned, Kind::PlainValue,      ReadOnly,    Switch,           "Registered instruction"},
    {"moving",                      46, 1, Unsigned, Kind::PlainValue,      ReadOnly,    Switch,           "Moving"},
    {"lock",                        47, 1, Unsigned, Kind::PlainValue,      Volatile,    Switch,           "Lock"},
    {"punch",                       48, 2, Unsigned, Kind::PlainValue,      Volatile,    counts(0, 1023),  "Punch"},
};
// clang-format on

constexpr int TableSize = 50;
static_assert(isTable(Fields, TableSize));

} // namespace

const Family DynamixelAx12Family{"DynamixelAx12", TableSize, Fields, {}, "torque_enable"};

} // namespace model
