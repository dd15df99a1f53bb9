#pragma once

#include "simulator/isimulatedservo.h"

namespace simulator {

/** When replies arrive: one after the other on the line, and all equally late behind it. */
class LineSchedule
{
public:
    /** @param delay what is between the line's end and the client. */
    explicit LineSchedule(SimulationTime delay) : m_delay(delay) {}

    /**
     * When bytes arrive that a request of the time @p asked brings. They occupy the line for @p duration, as soon as
     * the bytes before them have left it.
     */
    SimulationTime arrival(SimulationTime asked, SimulationTime duration);
    /** Forgets what is on the line. */
    void clear() { m_freeFrom = {}; }

private:
    SimulationTime m_delay;
    SimulationTime m_freeFrom{0};
};

} // namespace simulator
