#include "simulator/servodrive.h"

#include <algorithm>
#include <limits>

namespace simulator {

namespace {

constexpr SimulationTime Step = std::chrono::milliseconds(1);
/** Stride at rest: short against the thermal time, so that the protection acts at the right temperature. */
constexpr SimulationTime RestingStride = std::chrono::seconds(1);
/** Degrees below the limit at which an overheated drive goes on. */
constexpr double CoolingMargin = 5;

double seconds(SimulationTime time)
{
    return std::chrono::duration<double>(time).count();
}

} // namespace

ServoDrive::ServoDrive(const MotorConstants &constants)
    : m_motor(constants), m_temperatureLimit(std::numeric_limits<double>::infinity())
{
}

void ServoDrive::setMotion(const MotionSettings &settings)
{
    if (m_isOn && settings.mode != m_settings.mode)
        m_control.engage(m_motor);
    m_settings = settings;
    m_isResting = false;
}

void ServoDrive::switchOn()
{
    if (m_isOn)
        return;
    m_isOn = true;
    m_isResting = false;
    m_control.engage(m_motor);
}

void ServoDrive::switchOff()
{
    m_isOn = false;
    m_isResting = false;
}

void ServoDrive::setTemperatureLimit(double limit)
{
    if (limit == m_temperatureLimit)
        return;
    m_temperatureLimit = limit;
    m_isOverheated = m_motor.temperature() >= limit;
    m_isResting = false;
}

double ServoDrive::plannedVelocity() const
{
    return isDriven() ? m_control.plannedVelocity() : 0;
}

void ServoDrive::rebase(double angle)
{
    m_motor.rebase(angle);
    m_control.rebase(angle);
}

void ServoDrive::advance(SimulationTime now)
{
    while (m_time < now) {
        if (m_isResting)
            rest(std::min(now - m_time, RestingStride));
        else if (m_time + Step <= now)
            step();
        else
            return; // the rest of a step waits for its end
    }
}

void ServoDrive::step()
{
    const double before = m_motor.current();
    const double length = seconds(Step);
    if (isDriven())
        m_motor.step(length, m_control.current(m_settings, m_motor, length), MotionControl::holdingCurrent(m_settings));
    else
        m_motor.step(length, 0, 0);
    m_time += Step;
    m_isResting = m_motor.velocity() == 0 && m_motor.current() == before && plannedVelocity() == 0;
    watchTemperature();
}

void ServoDrive::rest(SimulationTime time)
{
    m_motor.rest(seconds(time));
    m_time += time;
    watchTemperature();
}

void ServoDrive::watchTemperature()
{
    const double threshold = m_isOverheated ? m_temperatureLimit - CoolingMargin : m_temperatureLimit;
    const bool isTooHot = m_motor.temperature() >= threshold;
    if (isTooHot == m_isOverheated)
        return;
    m_isOverheated = isTooHot;
    m_isResting = false;
    if (!isTooHot)
        m_control.engage(m_motor);
}

} // namespace simulator
