#include "simulator/ax12servo.h"

#include "serialport/protocol1.h"
#include "simulator/baudcode.h"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

enum Register : quint8 {
    ModelNumber = 0,
    FirmwareVersion = 2,
    Id = 3,
    BaudRate = 4,
    ReturnDelay = 5,
    ClockwiseLimit = 6,
    CounterClockwiseLimit = 8,
    TemperatureLimit = 11,
    LowerVoltageLimit = 12,
    UpperVoltageLimit = 13,
    MaximumTorque = 14,
    StatusReturnLevel = 16,
    AlarmLed = 17,
    AlarmShutdown = 18,
    TorqueEnable = 24,
    Led = 25,
    ClockwiseMargin = 26,
    CounterClockwiseMargin = 27,
    ClockwiseSlope = 28,
    CounterClockwiseSlope = 29,
    GoalPosition = 30,
    MovingSpeed = 32,
    TorqueLimit = 34,
    PresentPosition = 36,
    PresentSpeed = 38,
    PresentLoad = 40,
    PresentVoltage = 42,
    PresentTemperature = 43,
    Registered = 44,
    Moving = 46,
    Lock = 47,
    Punch = 48,
};

constexpr int TableSize = 50;
constexpr qint32 FactoryId = 1;
constexpr qint32 FullScale = 1023;    ///< of positions, speeds, torques and loads
constexpr qint32 DirectionBit = 1024; ///< clockwise, in speeds and loads
constexpr qint32 Centre = 512;

constexpr auto ReadOnly = RegisterAccess::ReadOnly;
constexpr auto NonVolatile = RegisterAccess::NonVolatile;
constexpr auto Volatile = RegisterAccess::Volatile;
constexpr auto Unsigned = RegisterKind::Unsigned;

// clang-format off
constexpr RegisterRow Rows[] = {
    // address               size  access       kind      minimum  maximum                 default
    {ModelNumber,              2,  ReadOnly,    Unsigned, 0,       0xFFFF,                 12},
    {FirmwareVersion,          1,  ReadOnly,    Unsigned, 0,       0xFF,                   0x18},
    {Id,                       1,  NonVolatile, Unsigned, 0,       wire::MaximumId,        FactoryId},
    {BaudRate,                 1,  NonVolatile, Unsigned, 0,       baudcode::MaximumCode,  baudcode::DefaultCode},
    {ReturnDelay,              1,  NonVolatile, Unsigned, 0,       254,                    250},
    {ClockwiseLimit,           2,  NonVolatile, Unsigned, 0,       FullScale,              0},
    {CounterClockwiseLimit,    2,  NonVolatile, Unsigned, 0,       FullScale,              FullScale},
    {TemperatureLimit,         1,  NonVolatile, Unsigned, 0,       150,                    70},
    {LowerVoltageLimit,        1,  NonVolatile, Unsigned, 50,      250,                    60},
    {UpperVoltageLimit,        1,  NonVolatile, Unsigned, 50,      250,                    140},
    {MaximumTorque,            2,  NonVolatile, Unsigned, 0,       FullScale,              FullScale},
    {StatusReturnLevel,        1,  NonVolatile, Unsigned, 0,       2,                      2},
    {AlarmLed,                 1,  NonVolatile, Unsigned, 0,       127,                    36},
    {AlarmShutdown,            1,  NonVolatile, Unsigned, 0,       127,                    36},
    {TorqueEnable,             1,  Volatile,    Unsigned, 0,       1,                      0},
    {Led,                      1,  Volatile,    Unsigned, 0,       1,                      0},
    {ClockwiseMargin,          1,  Volatile,    Unsigned, 0,       254,                    1},
    {CounterClockwiseMargin,   1,  Volatile,    Unsigned, 0,       254,                    1},
    {ClockwiseSlope,           1,  Volatile,    Unsigned, 1,       254,                    32},
    {CounterClockwiseSlope,    1,  Volatile,    Unsigned, 1,       254,                    32},
    {GoalPosition,             2,  Volatile,    Unsigned, 0,       FullScale,              Centre},
    {MovingSpeed,              2,  Volatile,    Unsigned, 0,       2 * DirectionBit - 1,   0},
    {TorqueLimit,              2,  Volatile,    Unsigned, 0,       FullScale,              FullScale},
    {PresentPosition,          2,  ReadOnly,    Unsigned, 0,       FullScale,              Centre},
    {PresentSpeed,             2,  ReadOnly,    Unsigned, 0,       2 * DirectionBit - 1,   0},
    {PresentLoad,              2,  ReadOnly,    Unsigned, 0,       2 * DirectionBit - 1,   0},
    {PresentVoltage,           1,  ReadOnly,    Unsigned, 0,       255,                    0},
    {PresentTemperature,       1,  ReadOnly,    Unsigned, 0,       255,                    0},
    {Registered,               1,  ReadOnly,    Unsigned, 0,       1,                      0},
    {Moving,                   1,  ReadOnly,    Unsigned, 0,       1,                      0},
    {Lock,                     1,  Volatile,    Unsigned, 0,       1,                      0},
    {Punch,                    2,  Volatile,    Unsigned, 0,       FullScale,              32},
};

/** The error bit of each refusal. */
struct Refusal { Outcome outcome; wire::Protocol1Error bit; };
constexpr Refusal Refusals[] = {
    {Outcome::UnknownInstruction, wire::InstructionErrorBit},
    {Outcome::NothingKept,        wire::InstructionErrorBit},
    {Outcome::WrongSize,          wire::InstructionErrorBit},
    {Outcome::OutsideTable,       wire::RangeErrorBit},
    {Outcome::NothingWritable,    wire::RangeErrorBit},
    {Outcome::NonVolatileLocked,  wire::RangeErrorBit},
    {Outcome::OutOfRange,         wire::RangeErrorBit},
    {Outcome::BeyondAngleLimits,  wire::AngleLimitErrorBit},
    // There is no bit for it; this one says at least that the instruction was not carried out.
    {Outcome::MemoryFailed,       wire::InstructionErrorBit},
};

/** A small servo on a 12 V supply: 114 rpm without load, 1.5 N·m at its greatest current. */
constexpr MotorConstants Motor = {
    /* supplyVoltage     */ 12.0,
    /* supplyResistance  */ 0.3,
    /* windingResistance */ 6.0,
    /* torquePerAmpere   */ 1.0,
    /* backEmf           */ 0.9,
    /* inertia           */ 0.002,
    /* dryFriction       */ 0.08,
    /* viscousFriction   */ 0.003,
    /* speedLoss         */ 0.01,
    /* ambient           */ 25.0,
    /* thermalResistance */ 9.0,
    /* thermalTime       */ 60.0,
};
// clang-format on

constexpr double Pi = 3.14159265358979323846;
constexpr double RadiansPerStep = 300.0 / 180 * Pi / FullScale;
constexpr double SpeedStep = 0.111 * 2 * Pi / 60; ///< rad/s
constexpr double GreatestCurrent = 1.5;           ///< A at the torque limit 1023
constexpr double VoltageStep = 0.1;               ///< V
constexpr double NearlyAll = 0.99;                ///< of the torque limit
constexpr SimulationTime OverloadTime = std::chrono::milliseconds(500);
/** Position gain (1/s) at the slope 1; a slope is how far (in steps) from the goal the torque is at its
 * limit. */
constexpr double StiffnessOfUnitSlope = 640;

/** Gains inside the servo, which has no registers for them. */
constexpr double InternalAcceleration = 60;   ///< rad/s²
constexpr double InternalVelocityGain = 0.25; ///< A per rad/s
constexpr double InternalIntegralGain = 2;    ///< A per rad

qint32 rounded(double value, qint32 greatest)
{
    return static_cast<qint32>(std::lround(std::clamp(value, 0.0, double(greatest))));
}

/** Magnitude and direction as the servo's speeds and loads have them. */
qint32 directed(double value, double step)
{
    const qint32 magnitude = rounded(std::abs(value) / step, FullScale);
    return value < 0 && magnitude ? magnitude | DirectionBit : magnitude;
}

bool reaches(int address, const QByteArray &data, int registerAddress)
{
    return address <= registerAddress + 1 && address + data.size() > registerAddress;
}

} // namespace

Ax12Servo::Ax12Servo(quint8 id, quint8 baudCode)
    : RegisterServo(
          {wire::Framing::Protocol1, Id, BaudRate, ReturnDelay, Registered, TorqueEnable, GoalPosition, TorqueLimit},
          RegisterTable(Rows, TableSize), Motor)
{
    m_registers.setValue(Id, id);
    m_registers.setValue(BaudRate, baudCode);
    restart();
}

QByteArray Ax12Servo::status(quint8 id, Outcome outcome, const QByteArray &parameters) const
{
    quint8 errors = standingErrors();
    for (const Refusal &row : Refusals) {
        if (row.outcome == outcome)
            errors |= row.bit;
    }
    return wire::protocol1::encode(id, errors, parameters);
}

bool Ax12Servo::answers(quint8 instruction) const
{
    enum Level {
        PingOnly,
        PingAndRead,
    };
    const qint32 level = m_registers.value(StatusReturnLevel);
    return instruction == wire::Ping || (level == PingAndRead && instruction == wire::Read) || level > PingAndRead;
}

void Ax12Servo::aimAt(double angle)
{
    m_registers.setValue(TorqueEnable, 1);
    m_registers.setValue(GoalPosition, rounded(Centre + angle / RadiansPerStep, FullScale));
}

void Ax12Servo::followDrive(SimulationTime now)
{
    watchLoad(now);
    refreshRegisters();
    shutDownOnAlarm();
}

Outcome Ax12Servo::judgeWrite(int address, const QByteArray &data) const
{
    if (goesBeyondAngleLimits(address, data))
        return Outcome::BeyondAngleLimits;
    const auto lock =
        m_registers.value(Lock) ? RegisterTable::NonVolatile::Locked : RegisterTable::NonVolatile::Writable;
    return m_registers.judge(address, data, lock);
}

void Ax12Servo::putWrite(int address, const QByteArray &data)
{
    const bool wasLocked = m_registers.value(Lock) != 0;
    m_registers.write(address, data);
    if (wasLocked)
        m_registers.setValue(Lock, 1); // only taking its power away unlocks it
    if (reaches(address, data, GoalPosition) && !reaches(address, data, TorqueEnable))
        m_registers.setValue(TorqueEnable, 1); // as the real one: a goal switches the torque on
}

Outcome Ax12Servo::resetNonVolatile(const QByteArray &)
{
    m_registers.resetToDefaults(RegisterAccess::NonVolatile);
    return Outcome::Done;
}

bool Ax12Servo::goesBeyondAngleLimits(int address, const QByteArray &data) const
{
    const int low = GoalPosition - address;
    if (isWheel() || low < 0 || low + 2 > data.size())
        return false;
    const int goal = wire::fromLittleEndian16(data, low);
    return goal <= FullScale &&
           (goal < m_registers.value(ClockwiseLimit) || goal > m_registers.value(CounterClockwiseLimit));
}

void Ax12Servo::restart()
{
    m_registers.resetToDefaults(RegisterAccess::Volatile);
    m_registers.setValue(TorqueLimit, m_registers.value(MaximumTorque));
    refreshRegisters();
    m_registers.setValue(GoalPosition, m_registers.value(PresentPosition));
    applyRegisters();
}

bool Ax12Servo::isWheel() const
{
    return m_registers.value(ClockwiseLimit) == 0 && m_registers.value(CounterClockwiseLimit) == 0;
}

double Ax12Servo::speedSetting() const
{
    return (m_registers.value(MovingSpeed) & (DirectionBit - 1)) * SpeedStep;
}

MotionSettings Ax12Servo::motionSettings() const
{
    MotionSettings settings;
    settings.mode = isWheel() ? OperatingMode::Wheel : OperatingMode::Joint;
    settings.targetPosition = (m_registers.value(GoalPosition) - Centre) * RadiansPerStep;
    const bool isClockwise = m_registers.value(MovingSpeed) & DirectionBit;
    settings.targetVelocity = isClockwise ? -speedSetting() : speedSetting();
    settings.currentLimit = m_registers.value(TorqueLimit) * GreatestCurrent / FullScale;
    settings.velocityLimit = FullScale * SpeedStep;
    settings.velocity = m_registers.value(MovingSpeed) ? speedSetting() : settings.velocityLimit;
    settings.acceleration = InternalAcceleration;
    const qint32 slope = std::max(m_registers.value(ClockwiseSlope), m_registers.value(CounterClockwiseSlope));
    settings.positionGain = StiffnessOfUnitSlope / slope;
    settings.velocityFeedforward = 1;
    settings.currentFeedforward = 1;
    settings.velocityGain = InternalVelocityGain;
    settings.velocityIntegralGain = InternalIntegralGain;
    const qint32 margin = std::max(m_registers.value(ClockwiseMargin), m_registers.value(CounterClockwiseMargin));
    settings.deadBand = (margin + 0.5) * RadiansPerStep;
    return settings;
}

void Ax12Servo::applyRegisters()
{
    m_drive.setTemperatureLimit(m_registers.value(TemperatureLimit));
    m_drive.setMotion(motionSettings());
    if (m_registers.value(TorqueEnable)) {
        m_isOverloaded = false;
        m_drive.switchOn();
    } else {
        m_drive.switchOff();
    }
    refreshRegisters();
}

void Ax12Servo::refreshRegisters()
{
    const MotorModel &motor = m_drive.motor();
    const double turn = 2 * Pi;
    const double angle = motor.position() - turn * std::round(motor.position() / turn);
    const qint32 speed = directed(motor.velocity(), SpeedStep);
    m_registers.setValue(PresentPosition, rounded(Centre + angle / RadiansPerStep, FullScale));
    m_registers.setValue(PresentSpeed, speed);
    m_registers.setValue(PresentLoad, directed(motor.current(), GreatestCurrent / FullScale));
    m_registers.setValue(PresentVoltage, rounded(motor.voltage() / VoltageStep, 0xFF));
    m_registers.setValue(PresentTemperature, rounded(motor.temperature(), 0xFF));
    m_registers.setValue(Moving, speed != 0);
}

quint8 Ax12Servo::standingErrors() const
{
    quint8 errors = 0;
    const qint32 voltage = m_registers.value(PresentVoltage);
    if (voltage < m_registers.value(LowerVoltageLimit) || voltage > m_registers.value(UpperVoltageLimit))
        errors |= wire::VoltageErrorBit;
    if (m_drive.isOverheated())
        errors |= wire::OverheatingErrorBit;
    if (m_isOverloaded)
        errors |= wire::OverloadErrorBit;
    return errors;
}

/** With all the torque that it may use, the shaft does not turn: more load than it can move, if that goes on. */
void Ax12Servo::watchLoad(SimulationTime now)
{
    const double limit = motionSettings().currentLimit;
    const MotorModel &motor = m_drive.motor();
    if (!m_drive.isOn() || limit <= 0 || motor.velocity() != 0 || std::abs(motor.current()) < NearlyAll * limit) {
        m_stalledSince.reset();
        return;
    }
    if (!m_stalledSince)
        m_stalledSince = now;
    m_isOverloaded |= now - *m_stalledSince >= OverloadTime;
}

void Ax12Servo::shutDownOnAlarm()
{
    if (!m_drive.isOn() || !(standingErrors() & m_registers.value(AlarmShutdown)))
        return;
    m_registers.setValue(TorqueEnable, 0);
    m_drive.switchOff();
}

} // namespace simulator
