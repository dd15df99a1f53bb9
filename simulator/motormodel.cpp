#include "simulator/motormodel.h"

#include <algorithm>
#include <cmath>

namespace simulator {

MotorModel::MotorModel(const MotorConstants &constants) : m_constants(constants), m_temperature(constants.ambient) {}

double MotorModel::phaseCurrent() const
{
    return std::hypot(m_current, m_holdingCurrent);
}

double MotorModel::torque() const
{
    return m_current * m_constants.torquePerAmpere;
}

double MotorModel::voltage() const
{
    return m_constants.supplyVoltage - phaseCurrent() * m_constants.supplyResistance;
}

double MotorModel::drivable(double current) const
{
    const double resistance = m_constants.windingResistance + m_constants.supplyResistance;
    const double emf = m_constants.backEmf * m_velocity;
    const double greatest = (m_constants.supplyVoltage - emf) / resistance;
    const double least = (-m_constants.supplyVoltage - emf) / resistance;
    return std::clamp(current, std::min(least, 0.0), std::max(greatest, 0.0));
}

void MotorModel::step(double seconds, double current, double holdingCurrent)
{
    m_current = drivable(current);
    m_holdingCurrent = holdingCurrent;
    turn(seconds);
    warm(seconds);
}

void MotorModel::turn(double seconds)
{
    // Friction is taken implicitly: it slows down and stops the shaft, but can never turn it round.
    const double gain = seconds / m_constants.inertia;
    const double pushed = (m_velocity + gain * torque()) / (1 + gain * m_constants.viscousFriction);
    const double slowed = std::max(std::abs(pushed) - gain * m_constants.dryFriction, 0.0);
    m_velocity = std::copysign(slowed, pushed);
    m_position += m_velocity * seconds;
}

void MotorModel::rest(double seconds)
{
    warm(seconds);
}

void MotorModel::warm(double seconds)
{
    const double power = m_constants.windingResistance * phaseCurrent() * phaseCurrent() +
                         m_constants.speedLoss * m_velocity * m_velocity;
    const double final = m_constants.ambient + power * m_constants.thermalResistance;
    m_temperature = final + (m_temperature - final) * std::exp(-seconds / m_constants.thermalTime);
}

} // namespace simulator
