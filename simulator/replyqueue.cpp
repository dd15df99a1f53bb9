#include "simulator/replyqueue.h"

namespace simulator {

namespace {

/** Replies to some hundred polls: more than a client leaves open that minds what comes back. */
constexpr int MostBytes = 65536;

} // namespace

ReplyQueue::ReplyQueue(Clock clock, QObject *parent) : QObject(parent), m_clock(std::move(clock))
{
    connect(&m_timer, &PreciseTimer::timeout, this, &ReplyQueue::sendDue);
}

bool ReplyQueue::isFull() const
{
    return m_size >= MostBytes;
}

void ReplyQueue::push(const QByteArray &bytes, SimulationTime due)
{
    if (isFull())
        return;
    m_entries.push_back({bytes, due});
    m_size += bytes.size();
    sendDue();
}

void ReplyQueue::clear()
{
    m_entries.clear();
    m_size = 0;
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
        m_size -= bytes.size();
        Q_EMIT send(bytes);
    }
}

} // namespace simulator
