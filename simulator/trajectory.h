#pragma once

namespace simulator {

/** A way to a target with a limited velocity and acceleration; the target may change at any time. */
class Trajectory
{
public:
    /** Starts anew from a shaft that is at @p position (rad) with @p velocity (rad/s). */
    void begin(double position, double velocity);
    /** Goes on for @p seconds towards @p target (rad) with at most @p velocity (rad/s) and @p acceleration
     * (rad/s²). */
    void approach(double target, double velocity, double acceleration, double seconds);
    /** Goes on for @p seconds towards a steady velocity of @p target (rad/s). */
    void accelerate(double target, double acceleration, double seconds);

    /** Counts positions from @p angle (rad) further down. */
    void rebase(double angle) { m_position += angle; }

    double position() const { return m_position; }         ///< rad
    double velocity() const { return m_velocity; }         ///< rad/s
    double acceleration() const { return m_acceleration; } ///< rad/s²

    /** The greatest velocity (rad/s) from which one can stop within @p distance (rad, ≥ 0) at @p
     * acceleration. */
    static double stoppingVelocity(double distance, double acceleration);

private:
    void slew(double velocity, double acceleration, double seconds);

    double m_position = 0;
    double m_velocity = 0;
    double m_acceleration = 0;
};

} // namespace simulator
