#pragma once

#include "serialport/clock.h"

#include <QVector>

#include <algorithm>

/** A clock that stands still until a test turns it; its alarms ring inside that call. Must outlive them. */
class TurnedClock final : public Clock
{
public:
    TimePoint now() const override { return m_now; }
    std::unique_ptr<Alarm> makeAlarm(QObject &, std::function<void()> onTime) override
    {
        return std::make_unique<TurnedAlarm>(*this, std::move(onTime));
    }

    /** Lets time pass in which no alarm can ring, as while a thread waits for something else. */
    void pass(Duration duration) { m_now += duration; }
    /** Goes on by @p duration; the alarms on the way ring, each at its time. */
    void turn(Duration duration)
    {
        const TimePoint end = m_now + duration;
        while (ringNext(end)) {
        }
        m_now = end;
    }
    /** Goes on to the next alarm, which rings. @return false when none is set. */
    bool turnToNextAlarm() { return ringNext(TimePoint::max()); }

private:
    class TurnedAlarm final : public Alarm
    {
    public:
        TurnedAlarm(TurnedClock &clock, std::function<void()> onTime) : m_clock(clock), m_onTime(std::move(onTime))
        {
            m_clock.m_alarms.append(this);
        }
        ~TurnedAlarm() override { m_clock.m_alarms.removeOne(this); }
        void start(Duration duration) override { m_due = m_clock.m_now + duration; }
        void stop() override { m_due = TimePoint::max(); }
        bool isActive() const override { return m_due != TimePoint::max(); }
        TimePoint due() const { return m_due; }
        void ring()
        {
            stop();
            const auto onTime = m_onTime; // it may destroy this alarm
            onTime();
        }

    private:
        TurnedClock &m_clock;
        std::function<void()> m_onTime;
        TimePoint m_due = TimePoint::max();
    };

    bool ringNext(TimePoint end)
    {
        const auto isEarlier = [](const TurnedAlarm *a, const TurnedAlarm *b) { return a->due() < b->due(); };
        const auto next = std::min_element(m_alarms.begin(), m_alarms.end(), isEarlier);
        if (next == m_alarms.end() || !(*next)->isActive() || (*next)->due() > end)
            return false;
        m_now = std::max(m_now, (*next)->due());
        (*next)->ring();
        return true;
    }

    TimePoint m_now;
    QVector<TurnedAlarm *> m_alarms;
};
