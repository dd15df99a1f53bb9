#include "simulator/zelvarservo.h"

#include "serialport/protocol2.h"
#include "simulator/baudcode.h"
#include "simulator/zelvarregisters.h"

#include <algorithm>
#include <cmath>

namespace simulator {

using namespace zelvar;

namespace {

// clang-format off
/** The error number of each refusal. */
struct Refusal { Outcome outcome; wire::ErrorNumber number; };
constexpr Refusal Refusals[] = {
    {Outcome::UnknownInstruction, wire::InstructionError},
    {Outcome::NothingKept,        wire::InstructionError},
    {Outcome::WrongSize,          wire::DataLengthError},
    {Outcome::OutsideTable,       wire::DataLengthError},
    {Outcome::NothingWritable,    wire::AccessError},
    {Outcome::NonVolatileLocked,  wire::AccessError},
    {Outcome::OutOfRange,         wire::DataRangeError},
    {Outcome::MemoryFailed,       wire::ProcessFailure},
};

/** Registers that a restart fills from their stored defaults. */
struct StoredDefault { Register stored; Register working; };
constexpr StoredDefault StoredDefaults[] = {
    {DefaultPositionGain,         PositionGain},
    {DefaultVelocityFeedforward,  VelocityFeedforward},
    {DefaultCurrentFeedforward,   CurrentFeedforward},
    {DefaultVelocityIntegralGain, VelocityIntegralGain},
    {DefaultVelocityGain,         VelocityGain},
    {DefaultVelocityProfile,      VelocityProfile},
    {DefaultAccelerationProfile,  AccelerationProfile},
};

/** A geared servo on a 12 V supply that turns a small arm: 2.3 rad/s without load, 18 N·m at 5 A. */
constexpr MotorConstants Motor = {
    /* supplyVoltage     */ 12.0,
    /* supplyResistance  */ 0.25,
    /* windingResistance */ 2.0,
    /* torquePerAmpere   */ 3.6,
    /* backEmf           */ 5.2,
    /* inertia           */ 0.05,
    /* dryFriction       */ 1.0,
    /* viscousFriction   */ 0.2,
    /* speedLoss         */ 0.8,
    /* ambient           */ 25.0,
    /* thermalResistance */ 10.0,
    /* thermalTime       */ 60.0,
};
// clang-format on

constexpr double Pi = 3.14159265358979323846;
constexpr double CountsPerTurn = 4096;
constexpr double RadiansPerCount = 2 * Pi / CountsPerTurn;
/** Positions run over from one end of their range to the other. */
constexpr double PositionSpan = 2.0 * MaximumPosition + 1;
/** The angle limits have a scale of their own: half a turn is 2047 of theirs and 2048 counts. */
constexpr double CountsPerAngleLimit = CountsPerTurn / 2 / MaximumAngleLimit;
/** Counts that the shaft may be beyond an angle limit, so that settling at the limit is no error. */
constexpr double AngleLimitMargin = 8;

constexpr double Thousandth = 0.001;      ///< rad/s, rad/s², N·m, A and most gains per step of their registers
constexpr double PositionGainStep = 0.1;  ///< 1/s
constexpr double IntegralGainStep = 0.01; ///< A/rad
constexpr double VoltageStep = 0.1;       ///< V
constexpr double PositionDeadBand = 0.75 * RadiansPerCount;
constexpr int DirectionBit = 0x8000;

qint32 rounded(double value, double greatest)
{
    return static_cast<qint32>(std::lround(std::clamp(value, 0.0, greatest)));
}

} // namespace

ZelvarServo::ZelvarServo(quint8 id, quint8 baudCode)
    : RegisterServo({wire::Framing::Protocol2, Id, BaudRate, AcknowledgeTime, PendingShadowInstruction, ControlEnable,
                     TargetPosition, ActualPosition},
                    RegisterTable(Rows, TableSize), Motor)
{
    m_registers.setValue(Id, id);
    m_registers.setValue(BaudRate, baudCode);
    restart();
}

QByteArray ZelvarServo::status(quint8 id, Outcome outcome, const QByteArray &parameters) const
{
    quint8 error = m_registers.value(HardwareError) ? wire::AlertBit : 0;
    for (const Refusal &row : Refusals) {
        if (row.outcome == outcome)
            error |= row.number;
    }
    return wire::protocol2::encodeStatus(id, error, parameters);
}

QByteArray ZelvarServo::identity() const
{
    return m_registers.read(ModelNumber, FirmwareVersion + 1);
}

void ZelvarServo::aimAt(double angle)
{
    m_registers.setValue(ControlEnable, 1);
    m_registers.setValue(TargetPosition, static_cast<qint32>(std::lround(angle / RadiansPerCount)));
}

void ZelvarServo::followDrive(SimulationTime)
{
    wrapPosition();
    refreshRegisters();
}

Outcome ZelvarServo::judgeWrite(int address, const QByteArray &data) const
{
    const auto lock = isControlEnabled() ? RegisterTable::NonVolatile::Locked : RegisterTable::NonVolatile::Writable;
    return m_registers.judge(address, data, lock);
}

Outcome ZelvarServo::resetNonVolatile(const QByteArray &parameters)
{
    if (parameters.size() != 1)
        return Outcome::WrongSize;
    const auto scope = static_cast<quint8>(parameters[0]);
    if (scope != wire::ResetEverything && scope != wire::ResetAllButId && scope != wire::ResetAllButIdAndBaudRate)
        return Outcome::OutOfRange;

    const qint32 idBefore = m_registers.value(Id);
    const qint32 baudRateBefore = m_registers.value(BaudRate);
    m_registers.resetToDefaults(RegisterAccess::NonVolatile);
    if (scope != wire::ResetEverything)
        m_registers.setValue(Id, idBefore);
    if (scope == wire::ResetAllButIdAndBaudRate)
        m_registers.setValue(BaudRate, baudRateBefore);
    return Outcome::Done;
}

void ZelvarServo::restart()
{
    m_registers.resetToDefaults(RegisterAccess::Volatile);
    for (const StoredDefault &row : StoredDefaults)
        m_registers.setValue(row.working, m_registers.value(row.stored));
    refreshRegisters();
    // Switching on again must not make the shaft jump to where it once was told to go.
    m_registers.setValue(TargetPosition, m_registers.value(ActualPosition));
    applyRegisters();
}

bool ZelvarServo::isControlEnabled() const
{
    return m_registers.value(ControlEnable) != 0;
}

double ZelvarServo::directedValue(int address) const
{
    const qint32 value = m_registers.value(address);
    const double magnitude = value & ~DirectionBit;
    return value & DirectionBit ? -magnitude : magnitude;
}

double ZelvarServo::targetAngle(OperatingMode mode) const
{
    double counts = m_registers.value(TargetPosition);
    if (mode == OperatingMode::Joint) {
        const auto [lower, upper] =
            std::minmax({m_registers.value(ClockwiseLimit), m_registers.value(CounterClockwiseLimit)});
        counts = std::clamp(counts, lower * CountsPerAngleLimit, upper * CountsPerAngleLimit);
    }
    return (counts - m_registers.value(HomeOffset)) * RadiansPerCount;
}

double ZelvarServo::acceleration() const
{
    constexpr qint32 Greatest = 48000;
    const qint32 limit = m_registers.value(AccelerationLimit);
    const qint32 profile = m_registers.value(AccelerationProfile);
    // 0 stands for "no limit of this kind" in both of them: a servo that can't accelerate is of no use.
    const qint32 least = std::min(limit ? limit : Greatest, profile ? profile : Greatest);
    return least * Thousandth;
}

MotionSettings ZelvarServo::motionSettings() const
{
    MotionSettings settings;
    settings.mode = static_cast<OperatingMode>(m_registers.value(Mode));
    settings.followsTrajectory = m_registers.value(InputMode) == 0;
    settings.targetPosition = targetAngle(settings.mode);
    settings.targetVelocity = directedValue(TargetVelocity) * Thousandth;
    settings.targetCurrent = directedValue(TargetTorque) * Thousandth / Motor.torquePerAmpere;
    settings.currentLimit = m_registers.value(TorqueLimit) * Thousandth;
    settings.velocityLimit = m_registers.value(VelocityLimit) * Thousandth;
    const qint32 profile = m_registers.value(VelocityProfile);
    settings.velocity = profile ? profile * Thousandth : settings.velocityLimit;
    settings.acceleration = acceleration();
    settings.positionGain = m_registers.value(PositionGain) * PositionGainStep;
    settings.velocityFeedforward = m_registers.value(VelocityFeedforward) * Thousandth;
    settings.currentFeedforward = m_registers.value(CurrentFeedforward) * Thousandth;
    settings.velocityGain = m_registers.value(VelocityGain) * Thousandth;
    settings.velocityIntegralGain = m_registers.value(VelocityIntegralGain) * IntegralGainStep;
    settings.deadBand = PositionDeadBand;
    return settings;
}

void ZelvarServo::applyRegisters()
{
    m_drive.setTemperatureLimit(m_registers.value(TemperatureLimit));
    m_drive.setMotion(motionSettings());
    if (isControlEnabled())
        m_drive.switchOn();
    else
        m_drive.switchOff();
    refreshRegisters();
}

void ZelvarServo::wrapPosition()
{
    const double counts = m_drive.motor().position() / RadiansPerCount + m_registers.value(HomeOffset);
    const double turns = std::round(counts / PositionSpan);
    if (turns != 0)
        m_drive.rebase(-turns * PositionSpan * RadiansPerCount);
}

void ZelvarServo::refreshRegisters()
{
    const MotorModel &motor = m_drive.motor();
    const double position = motor.position() / RadiansPerCount + m_registers.value(HomeOffset);
    const auto counts = static_cast<qint32>(std::lround(std::remainder(position, PositionSpan)));
    const qint32 velocity = rounded(std::abs(motor.velocity()) / Thousandth, 0xFFFF);
    const double error = std::abs(targetAngle(OperatingMode(m_registers.value(Mode))) - motor.position());

    m_registers.setValue(ActualPosition, std::clamp(counts, -MaximumPosition, MaximumPosition));
    m_registers.setValue(ActualVelocity, velocity);
    m_registers.setValue(ActualTorque, rounded(std::abs(motor.torque()) / Thousandth, 0xFFFF));
    m_registers.setValue(ActualVoltage, rounded(motor.voltage() / VoltageStep, 0xFF));
    m_registers.setValue(ActualCurrent, rounded(motor.phaseCurrent() / Thousandth, 0xFFFF));
    m_registers.setValue(ActualTemperature, rounded(motor.temperature(), 0xFF));
    m_registers.setValue(Moving, velocity > m_registers.value(MovingThreshold));
    m_registers.setValue(PlannedVelocity, rounded(std::abs(m_drive.plannedVelocity()) / Thousandth, 0xFFFF));
    m_registers.setValue(HardwareError, hardwareErrors());
    m_registers.setValue(Debug1, m_drive.isOn());
    m_registers.setValue(Debug2, m_drive.isResting());
    m_registers.setValue(Debug3, rounded(error / RadiansPerCount, 0xFFFF));
    m_registers.setValue(Debug4, rounded(std::abs(motor.current()) / Thousandth, 0xFFFF));
}

bool ZelvarServo::isBeyondAngleLimits(double counts) const
{
    const auto [lower, upper] =
        std::minmax({m_registers.value(ClockwiseLimit), m_registers.value(CounterClockwiseLimit)});
    return counts < lower * CountsPerAngleLimit - AngleLimitMargin ||
           counts > upper * CountsPerAngleLimit + AngleLimitMargin;
}

quint8 ZelvarServo::hardwareErrors() const
{
    quint8 errors = 0;
    const qint32 voltage = m_registers.value(ActualVoltage);
    if (voltage < m_registers.value(LowerVoltageLimit) || voltage > m_registers.value(UpperVoltageLimit))
        errors |= InputVoltageError;
    if (m_drive.isOverheated())
        errors |= OverheatingError;
    const bool isJoint = static_cast<OperatingMode>(m_registers.value(Mode)) == OperatingMode::Joint;
    if (isJoint && isControlEnabled() &&
        (isBeyondAngleLimits(m_registers.value(TargetPosition)) ||
         isBeyondAngleLimits(m_registers.value(ActualPosition))))
        errors |= AngleLimitError;
    return errors;
}

} // namespace simulator
