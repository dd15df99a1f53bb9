#include "simulator/lineschedule.h"

#include <algorithm>

namespace simulator {

SimulationTime LineSchedule::arrival(SimulationTime asked, SimulationTime duration)
{
    m_freeFrom = std::max(asked, m_freeFrom) + duration;
    return m_freeFrom + m_delay;
}

} // namespace simulator
