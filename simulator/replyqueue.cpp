#include "simulator/replyqueue.h"

#include <algorithm>

namespace simulator {

ReplyQueue::ReplyQueue(Clock clock, QObject *parent) : QObject(parent), m_clock(std::move(clock))
{
    connect(&m_timer, &PreciseTimer::timeout, this, &ReplyQueue::sendDue);
}

SimulationTime ReplyQueue::endAfter(SimulationTime now) const
{
    return m_entries.empty() ? now : std::max(now, m_entries.back().due);
}

void ReplyQueue::push(const QByteArray &bytes, SimulationTime due)
{
    m_entries.push_back({bytes, due});
    sendDue();
}

void ReplyQueue::clear()
{
    m_entries.clear();
    m_timer.stop();
}

void ReplyQueue::sendDue()
{
    while (!m_entries.empty()) {
        const SimulationTime wait = m_entries.front().due - m_clock();
        if (wait > SimulationTime::zero()) {
            m_timer.start(wait);
            return;
        }
        const QByteArray bytes = m_entries.front().bytes;
        m_entries.pop_front();
        Q_EMIT send(bytes);
    }
}

} // namespace simulator
