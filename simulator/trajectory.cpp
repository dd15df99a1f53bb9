#include "simulator/trajectory.h"

#include <algorithm>
#include <cmath>

namespace simulator {

void Trajectory::begin(double position, double velocity)
{
    m_position = position;
    m_velocity = velocity;
    m_acceleration = 0;
}

double Trajectory::stoppingVelocity(double distance, double acceleration)
{
    return std::sqrt(2 * acceleration * distance);
}

void Trajectory::slew(double velocity, double acceleration, double seconds)
{
    const double most = acceleration * seconds;
    const double change = std::clamp(velocity - m_velocity, -most, most);
    m_velocity += change;
    m_acceleration = change / seconds;
}

void Trajectory::approach(double target, double velocity, double acceleration, double seconds)
{
    const double distance = target - m_position;
    // The last step, shorter than what one step at the least speed covers.
    const double slowest = 2 * acceleration * seconds;
    if (std::abs(m_velocity) <= slowest && std::abs(distance) <= slowest * seconds) {
        begin(target, 0);
        return;
    }
    const double wanted = std::min(velocity, stoppingVelocity(std::abs(distance), acceleration));
    slew(std::copysign(wanted, distance), acceleration, seconds);
    m_position += m_velocity * seconds;
}

void Trajectory::accelerate(double target, double acceleration, double seconds)
{
    slew(target, acceleration, seconds);
    m_position += m_velocity * seconds;
}

} // namespace simulator
