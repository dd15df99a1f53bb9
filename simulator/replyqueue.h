#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/precisetimer.h"

#include <QObject>

#include <deque>
#include <functional>

namespace simulator {

/** Holds bytes back until they are due; what was queued first goes out first. */
class ReplyQueue : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<SimulationTime()>;

    explicit ReplyQueue(Clock clock, QObject *parent = nullptr);

    /** When the last of the queued bytes goes out, or @p now when there are none. */
    SimulationTime endAfter(SimulationTime now) const;
    /** Sends @p bytes at @p due, or at once when that is over and nothing is queued. */
    void push(const QByteArray &bytes, SimulationTime due);
    void clear();

Q_SIGNALS:
    void send(const QByteArray &bytes);

private:
    struct Entry
    {
        QByteArray bytes;
        SimulationTime due;
    };

    void sendDue();

    Clock m_clock;
    PreciseTimer m_timer;
    std::deque<Entry> m_entries;
};

} // namespace simulator
