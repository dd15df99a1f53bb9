#pragma once

#include "serialport/packet.h"
#include "simulator/baudcode.h"
#include "simulator/registertable.h"

/** The registers of the own family by the address of their first byte. */
namespace simulator::zelvar {

enum Register : quint8 {
    ModelNumber = 0,
    FirmwareVersion = 2,
    Id = 3,
    BaudRate = 4,
    AcknowledgeTime = 5,
    Mode = 6,
    ClockwiseLimit = 7,
    CounterClockwiseLimit = 9,
    TemperatureLimit = 11,
    LowerVoltageLimit = 12,
    UpperVoltageLimit = 13,
    TorqueLimit = 14,
    VelocityLimit = 16,
    AccelerationLimit = 18,
    HomeOffset = 20,
    MovingThreshold = 24,
    InputMode = 26,
    DefaultPositionGain = 27,
    DefaultVelocityFeedforward = 29,
    DefaultCurrentFeedforward = 31,
    DefaultVelocityIntegralGain = 33,
    DefaultVelocityGain = 35,
    DefaultVelocityProfile = 37,
    DefaultAccelerationProfile = 39,
    ControlEnable = 48,
    PendingShadowInstruction = 49,
    PositionGain = 54,
    VelocityFeedforward = 56,
    CurrentFeedforward = 58,
    VelocityIntegralGain = 60,
    VelocityGain = 62,
    VelocityProfile = 68,
    AccelerationProfile = 70,
    TargetPosition = 78,
    TargetVelocity = 82,
    TargetTorque = 84,
    ActualPosition = 86,
    ActualVelocity = 90,
    ActualTorque = 92,
    ActualVoltage = 94,
    ActualCurrent = 95,
    ActualTemperature = 97,
    Moving = 99,
    PlannedVelocity = 101,
    HardwareError = 107,
    Debug1 = 112,
    Debug2 = 113,
    Debug3 = 114,
    Debug4 = 116,
};

/** Bits of the hardware error register. */
enum HardwareErrorBit : quint8 {
    InputVoltageError = 1 << 0,
    HallSensorError = 1 << 1,
    OverheatingError = 1 << 2,
    EncoderError = 1 << 3,
    AngleLimitError = 1 << 4,
};

constexpr int TableSize = 118;
constexpr qint32 ModelNumberValue = 0x0102;
constexpr qint32 FirmwareVersionValue = 21;
constexpr qint32 MaximumPosition = 1044479; ///< counts either way
constexpr qint32 MaximumAngleLimit = 2047;  ///< half a turn
constexpr qint32 FactoryId = 1;

using Access = RegisterAccess;
using Kind = RegisterKind;

// clang-format off
inline constexpr RegisterRow Rows[] = {
    // address                  size  access               kind             minimum             maximum            default
    {ModelNumber,                 2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            ModelNumberValue},
    {FirmwareVersion,             1,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFF,              FirmwareVersionValue},
    {Id,                          1,  Access::NonVolatile, Kind::Unsigned,  0,                  wire::MaximumId,   FactoryId},
    {BaudRate,                    1,  Access::NonVolatile, Kind::Unsigned,  0,                  baudcode::MaximumCode, baudcode::DefaultCode},
    {AcknowledgeTime,             1,  Access::NonVolatile, Kind::Unsigned,  0,                  254,               250},
    {Mode,                        1,  Access::NonVolatile, Kind::Unsigned,  0,                  4,                 2},
    {ClockwiseLimit,              2,  Access::NonVolatile, Kind::Signed,    -MaximumAngleLimit, MaximumAngleLimit, -MaximumAngleLimit},
    {CounterClockwiseLimit,       2,  Access::NonVolatile, Kind::Signed,    -MaximumAngleLimit, MaximumAngleLimit, MaximumAngleLimit},
    {TemperatureLimit,            1,  Access::NonVolatile, Kind::Unsigned,  0,                  255,               70},
    {LowerVoltageLimit,           1,  Access::NonVolatile, Kind::Unsigned,  0,                  255,               95},
    {UpperVoltageLimit,           1,  Access::NonVolatile, Kind::Unsigned,  0,                  255,               160},
    {TorqueLimit,                 2,  Access::NonVolatile, Kind::Unsigned,  0,                  5000,              3000},
    {VelocityLimit,               2,  Access::NonVolatile, Kind::Unsigned,  0,                  2400,              2000},
    {AccelerationLimit,           2,  Access::NonVolatile, Kind::Unsigned,  0,                  48000,             24000},
    {HomeOffset,                  4,  Access::NonVolatile, Kind::Signed,    -MaximumPosition,   MaximumPosition,   0},
    {MovingThreshold,             2,  Access::NonVolatile, Kind::Unsigned,  0,                  2000,              20},
    {InputMode,                   1,  Access::NonVolatile, Kind::Unsigned,  0,                  1,                 0},
    {DefaultPositionGain,         2,  Access::NonVolatile, Kind::Unsigned,  0,                  2000,              200},
    {DefaultVelocityFeedforward,  2,  Access::NonVolatile, Kind::Unsigned,  0,                  16383,             1000},
    {DefaultCurrentFeedforward,   2,  Access::NonVolatile, Kind::Unsigned,  0,                  1000,              900},
    {DefaultVelocityIntegralGain, 2,  Access::NonVolatile, Kind::Unsigned,  0,                  4000,              500},
    {DefaultVelocityGain,         2,  Access::NonVolatile, Kind::Unsigned,  0,                  4000,              1000},
    {DefaultVelocityProfile,      2,  Access::NonVolatile, Kind::Unsigned,  0,                  2000,              1000},
    {DefaultAccelerationProfile,  2,  Access::NonVolatile, Kind::Unsigned,  0,                  48000,             4000},
    {ControlEnable,               1,  Access::Volatile,    Kind::Unsigned,  0,                  1,                 0},
    {PendingShadowInstruction,    1,  Access::Volatile,    Kind::Unsigned,  0,                  1,                 0},
    {PositionGain,                2,  Access::Volatile,    Kind::Unsigned,  0,                  2000,              0},
    {VelocityFeedforward,         2,  Access::Volatile,    Kind::Unsigned,  0,                  16383,             0},
    {CurrentFeedforward,          2,  Access::Volatile,    Kind::Unsigned,  0,                  1000,              0},
    {VelocityIntegralGain,        2,  Access::Volatile,    Kind::Unsigned,  0,                  4000,              0},
    {VelocityGain,                2,  Access::Volatile,    Kind::Unsigned,  0,                  4000,              0},
    {VelocityProfile,             2,  Access::Volatile,    Kind::Unsigned,  0,                  2000,              0},
    {AccelerationProfile,         2,  Access::Volatile,    Kind::Unsigned,  0,                  48000,             0},
    {TargetPosition,              4,  Access::Volatile,    Kind::Signed,    -MaximumPosition,   MaximumPosition,   0},
    {TargetVelocity,              2,  Access::Volatile,    Kind::Direction, 0,                  2000,              0},
    {TargetTorque,                2,  Access::Volatile,    Kind::Direction, 0,                  18000,             0},
    {ActualPosition,              4,  Access::ReadOnly,    Kind::Signed,    -MaximumPosition,   MaximumPosition,   0},
    {ActualVelocity,              2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
    {ActualTorque,                2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
    {ActualVoltage,               1,  Access::ReadOnly,    Kind::Unsigned,  0,                  255,               0},
    {ActualCurrent,               2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
    {ActualTemperature,           1,  Access::ReadOnly,    Kind::Unsigned,  0,                  255,               0},
    {Moving,                      1,  Access::ReadOnly,    Kind::Unsigned,  0,                  1,                 0},
    {PlannedVelocity,             2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
    {HardwareError,               1,  Access::ReadOnly,    Kind::Unsigned,  0,                  255,               0},
    {Debug1,                      1,  Access::ReadOnly,    Kind::Unsigned,  0,                  255,               0},
    {Debug2,                      1,  Access::ReadOnly,    Kind::Unsigned,  0,                  255,               0},
    {Debug3,                      2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
    {Debug4,                      2,  Access::ReadOnly,    Kind::Unsigned,  0,                  0xFFFF,            0},
};
// clang-format on

} // namespace simulator::zelvar
