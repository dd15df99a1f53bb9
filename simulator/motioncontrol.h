#pragma once

#include "simulator/motormodel.h"
#include "simulator/trajectory.h"

#include <QtGlobal>

namespace simulator {

/** Operating modes, numbered as in the servo's register. */
enum class OperatingMode : quint8 {
    Torque,
    Wheel,
    Joint,
    MultiTurn,
    Stepper,
};

/** What a servo has been told to do, in physical units. */
struct MotionSettings
{
    OperatingMode mode = OperatingMode::Joint;
    bool followsTrajectory = true; ///< whether the way to the target position is planned, or the target taken as it is

    double targetPosition = 0; ///< rad
    double targetVelocity = 0; ///< rad/s, its sign the direction
    double targetCurrent = 0;  ///< A, its sign the direction

    double currentLimit = 0;  ///< A
    double velocityLimit = 0; ///< rad/s
    double velocity = 0;      ///< rad/s, on the way to a position
    double acceleration = 0;  ///< rad/s², greater than 0

    double positionGain = 0;         ///< rad/s per rad
    double velocityFeedforward = 0;  ///< part of the planned velocity that is asked for at once
    double currentFeedforward = 0;   ///< part of the current needed for the planned motion that flows at once
    double velocityGain = 0;         ///< A per rad/s
    double velocityIntegralGain = 0; ///< A per rad
    double deadBand = 0;             ///< rad, position error that is let be
};

/** The control loops of a servo: position over velocity over current. */
class MotionControl
{
public:
    /** Takes over a shaft that may be turning. */
    void engage(const MotorModel &motor);
    /** Counts positions from @p angle (rad) further down. */
    void rebase(double angle);

    /** The current (A) to drive @p motor with for the next @p seconds. */
    double current(const MotionSettings &settings, const MotorModel &motor, double seconds);
    /** Current (A, ≥ 0) that holds the shaft like a stepper's, without torque while it stays where it is. */
    static double holdingCurrent(const MotionSettings &settings);

    /** Planned velocity, rad/s. */
    double plannedVelocity() const { return m_plan.velocity(); }

private:
    double torqueModeCurrent(const MotionSettings &settings, double velocity) const;
    double positionModeVelocity(const MotionSettings &settings, const MotorModel &motor, double seconds);
    double plannedCurrent(const MotionSettings &settings, const MotorConstants &constants) const;
    double velocityLoop(const MotionSettings &settings, const MotorModel &motor, double wanted, double seconds);

    Trajectory m_plan;
    double m_heldPosition = 0;
    double m_integral = 0; ///< A
};

} // namespace simulator
