#include "simulator/motioncontrol.h"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

/** A per rad/s with which torque mode gives way at the velocity limit. */
constexpr double SpeedGuardGain = 10;
/** Part of the current limit that stepper mode lets flow all the time. */
constexpr double HoldingShare = 0.5;

/** Stepper mode knows no loop gains: its stiffness is the motor's own. */
MotionSettings stepperSettings(MotionSettings settings)
{
    settings.positionGain = 20;
    settings.velocityGain = 1;
    settings.velocityIntegralGain = 0;
    settings.currentFeedforward = 0;
    return settings;
}

double sign(double value)
{
    return value > 0 ? 1.0 : value < 0 ? -1.0 : 0.0;
}

} // namespace

void MotionControl::engage(const MotorModel &motor)
{
    m_plan.begin(motor.position(), motor.velocity());
    m_heldPosition = motor.position();
    m_integral = 0;
}

void MotionControl::rebase(double angle)
{
    m_plan.rebase(angle);
    m_heldPosition += angle;
}

double MotionControl::holdingCurrent(const MotionSettings &settings)
{
    return settings.mode == OperatingMode::Stepper ? HoldingShare * settings.currentLimit : 0;
}

double MotionControl::current(const MotionSettings &settings, const MotorModel &motor, double seconds)
{
    switch (settings.mode) {
    case OperatingMode::Torque:
        m_plan.begin(motor.position(), 0);
        return torqueModeCurrent(settings, motor.velocity());
    case OperatingMode::Wheel: {
        const double target = std::clamp(settings.targetVelocity, -settings.velocityLimit, settings.velocityLimit);
        m_plan.accelerate(target, settings.acceleration, seconds);
        return velocityLoop(settings, motor, m_plan.velocity(), seconds);
    }
    case OperatingMode::Joint:
    case OperatingMode::MultiTurn:
        return velocityLoop(settings, motor, positionModeVelocity(settings, motor, seconds), seconds);
    case OperatingMode::Stepper:
        break;
    }
    const MotionSettings stepper = stepperSettings(settings);
    m_plan.begin(m_heldPosition, 0);
    const double error = m_heldPosition - motor.position();
    const double wanted = std::clamp(stepper.positionGain * error, -stepper.velocityLimit, stepper.velocityLimit);
    return velocityLoop(stepper, motor, wanted, seconds);
}

double MotionControl::torqueModeCurrent(const MotionSettings &settings, double velocity) const
{
    const double guarded = std::clamp(settings.targetCurrent, -SpeedGuardGain * (settings.velocityLimit + velocity),
                                      SpeedGuardGain * (settings.velocityLimit - velocity));
    return std::clamp(guarded, -settings.currentLimit, settings.currentLimit);
}

double MotionControl::positionModeVelocity(const MotionSettings &settings, const MotorModel &motor, double seconds)
{
    if (settings.followsTrajectory) {
        const double fastest = std::min(settings.velocity, settings.velocityLimit);
        m_plan.approach(settings.targetPosition, fastest, settings.acceleration, seconds);
    } else {
        m_plan.begin(settings.targetPosition, 0);
    }

    const double error = m_plan.position() - motor.position();
    if (m_plan.velocity() == 0 && std::abs(error) <= settings.deadBand)
        return 0;
    double wanted = settings.positionGain * error + settings.velocityFeedforward * m_plan.velocity();
    double fastest = settings.velocityLimit;
    if (!settings.followsTrajectory)
        fastest = std::min(
            {fastest, settings.velocity, Trajectory::stoppingVelocity(std::abs(error), settings.acceleration)});
    return std::clamp(wanted, -fastest, fastest);
}

double MotionControl::plannedCurrent(const MotionSettings &settings, const MotorConstants &constants) const
{
    const double torque = constants.inertia * m_plan.acceleration() + constants.viscousFriction * m_plan.velocity() +
                          constants.dryFriction * sign(m_plan.velocity());
    return settings.currentFeedforward * torque / constants.torquePerAmpere;
}

double MotionControl::velocityLoop(const MotionSettings &settings, const MotorModel &motor, double wanted,
                                   double seconds)
{
    const double error = wanted - motor.velocity();
    const double limit = settings.currentLimit;
    m_integral = std::clamp(m_integral + settings.velocityIntegralGain * error * seconds, -limit, limit);
    const double current = settings.velocityGain * error + m_integral + plannedCurrent(settings, motor.constants());
    return std::clamp(current, -limit, limit);
}

} // namespace simulator
