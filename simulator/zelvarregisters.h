#pragma once

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

} // namespace simulator::zelvar
