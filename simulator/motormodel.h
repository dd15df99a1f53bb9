#pragma once

namespace simulator {

/** What kind of motor, gear and load a servo has; seen from the output shaft. */
struct MotorConstants
{
    double supplyVoltage;     ///< V, without load
    double supplyResistance;  ///< Ω, what makes the voltage sag
    double windingResistance; ///< Ω
    double torquePerAmpere;   ///< N·m/A
    double backEmf;           ///< V per rad/s
    double inertia;           ///< kg·m², load included
    double dryFriction;       ///< N·m
    double viscousFriction;   ///< N·m per rad/s
    double speedLoss;         ///< W per (rad/s)², heat of turning beside that of the current
    double ambient;           ///< °C
    double thermalResistance; ///< K/W
    double thermalTime;       ///< s, to 63 % of the way to the final temperature
};

/** Motor, gear, load and winding temperature of a servo. Angles grow counter-clockwise. */
class MotorModel
{
public:
    explicit MotorModel(const MotorConstants &constants);

    /**
     * Lives on for @p seconds, at most a few milliseconds, with @p current (A, its sign the direction) asked
     * for and
     * @p holdingCurrent (A, ≥ 0) flowing across it, which heats but does not turn the shaft. What the supply
     * voltage cannot drive against the back EMF does not flow.
     */
    void step(double seconds, double current, double holdingCurrent);
    /** Lives on for @p seconds in which speed and currents stay what they are: the shaft must be at rest. */
    void rest(double seconds);
    /** Turns the shaft by @p angle (rad) without moving it: the same place in other words. */
    void rebase(double angle) { m_position += angle; }

    const MotorConstants &constants() const { return m_constants; }
    double position() const { return m_position; }       ///< rad
    double velocity() const { return m_velocity; }       ///< rad/s
    double current() const { return m_current; }         ///< A, the part that makes torque
    double phaseCurrent() const;                         ///< A, ≥ 0, holding current included
    double torque() const;                               ///< N·m
    double voltage() const;                              ///< V at the terminals of the servo
    double temperature() const { return m_temperature; } ///< °C

private:
    double drivable(double current) const;
    void turn(double seconds);
    void warm(double seconds);

    MotorConstants m_constants;
    double m_position = 0;
    double m_velocity = 0;
    double m_current = 0;
    double m_holdingCurrent = 0;
    double m_temperature;
};

} // namespace simulator
