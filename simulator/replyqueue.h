#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/precisetimer.h"

#include <QObject>

#include <deque>
#include <functional>

namespace simulator {

/** Holds bytes, up to a limit, back until they are due; what was queued first goes out first. */
class ReplyQueue : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<SimulationTime()>;

    explicit ReplyQueue(Clock clock, QObject *parent = nullptr);

    /** Whether what is pushed now is lost, since so much waits already. */
    bool isFull() const;
    /** Sends @p bytes at @p due, or at once when that is over and nothing is queued; drops them when it is full. */
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
    int m_size = 0; ///< bytes in all of them
};

} // namespace simulator
