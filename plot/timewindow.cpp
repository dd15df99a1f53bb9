#include "plot/timewindow.h"

#include <algorithm>

namespace plot {

void TimeWindow::holdAt(double end)
{
    m_end = end;
    m_isLive = false;
}

void TimeWindow::setSpan(double seconds)
{
    m_span = std::clamp(seconds, LeastSpan, GreatestSpan);
}

void TimeWindow::zoom(double factor, double anchor)
{
    const double before = m_span;
    setSpan(m_span * factor);
    if (!m_isLive)
        m_end = anchor + (m_end - anchor) * m_span / before;
}

void TimeWindow::pan(double seconds)
{
    holdAt(end() + seconds);
    if (seconds > 0 && m_end >= m_newest)
        goLive();
}

} // namespace plot
