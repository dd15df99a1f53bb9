#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/motioncontrol.h"
#include "simulator/motormodel.h"

namespace simulator {

/**
 * A motor under its control loops, in time. Works in fixed steps while the shaft or the currents change and
 * takes long strides while they do not, so that a servo nobody asks costs nothing and the same requests at
 * the same times always give the same motion.
 */
class ServoDrive
{
public:
    explicit ServoDrive(const MotorConstants &constants);

    /** What to do from now on, while it is on. */
    void setMotion(const MotionSettings &settings);
    /** Switches the motor on; does nothing when it is on already. */
    void switchOn();
    /** Switches the motor off; the shaft coasts to a halt. */
    void switchOff();
    /** Temperature (°C) at which the drive protects itself: no current until it is a few degrees cooler. */
    void setTemperatureLimit(double limit);

    void advance(SimulationTime now);

    bool isOn() const { return m_isOn; }
    bool isOverheated() const { return m_isOverheated; }
    /** Whether nothing moves and no current changes; temperatures may. */
    bool isResting() const { return m_isResting; }
    /** Planned velocity, rad/s; 0 while it is off. */
    double plannedVelocity() const;
    const MotorModel &motor() const { return m_motor; }
    /** The same place of the shaft counted from @p angle (rad) further down; targets do not follow. */
    void rebase(double angle);

private:
    bool isDriven() const { return m_isOn && !m_isOverheated; }
    void step();
    void rest(SimulationTime time);
    void watchTemperature();

    MotorModel m_motor;
    MotionControl m_control;
    MotionSettings m_settings;
    double m_temperatureLimit;
    bool m_isOn = false;
    bool m_isOverheated = false;
    bool m_isResting = true;
    SimulationTime m_time{0};
};

} // namespace simulator
