#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

/**
 * Where time comes from. Whoever keeps rules about time takes one, so that a test can hand in a clock that it turns
 * itself. To be used in one thread, together with the objects that it was given to.
 */
class Clock
{
public:
    using Duration = std::chrono::microseconds;
    using TimePoint = std::chrono::steady_clock::time_point;

    /** Calls back once each time it was started and its time is over; silent once it is stopped or destroyed. */
    class Alarm
    {
    public:
        virtual ~Alarm() = default;

        /** Starts, or starts anew, with @p duration to go; what is less than a millisecond may be rounded up. */
        virtual void start(Duration duration) = 0;
        virtual void stop() = 0;
        virtual bool isActive() const = 0;
    };

    virtual ~Clock() = default;

    /** Never goes back, and not set by anybody. */
    virtual TimePoint now() const = 0;
    /**
     * An alarm that calls @p onTime from the event loop of @p owner's thread, which it follows when the owner is moved
     * to another one. REQUIRES: the alarm does not outlive @p owner.
     */
    virtual std::unique_ptr<Alarm> makeAlarm(QObject &owner, std::function<void()> onTime) = 0;
};

/** The system's steady clock; its alarms are precise to a millisecond. */
class SystemClock final : public Clock
{
public:
    /** One for everybody: it keeps nothing. */
    static SystemClock &instance()
    {
        static SystemClock clock;
        return clock;
    }

    TimePoint now() const override { return std::chrono::steady_clock::now(); }
    std::unique_ptr<Alarm> makeAlarm(QObject &owner, std::function<void()> onTime) override
    {
        return std::make_unique<TimerAlarm>(owner, std::move(onTime));
    }

private:
    class TimerAlarm final : public Alarm
    {
    public:
        TimerAlarm(QObject &owner, std::function<void()> onTime)
            : m_timer(new QTimer(&owner)), m_onTime(std::move(onTime))
        {
            m_timer->setSingleShot(true);
            m_timer->setTimerType(Qt::PreciseTimer);
            QObject::connect(m_timer, &QTimer::timeout, m_timer, [this] { onTimeout(); });
        }
        ~TimerAlarm() override { delete m_timer; }
        Q_DISABLE_COPY(TimerAlarm)

        void start(Duration duration) override
        {
            m_due = std::chrono::steady_clock::now() + duration;
            // An alarm that is put off again and again, as each packet does, has its timer set when that has run out.
            if (!m_timer->isActive() || m_due < m_timerDue)
                startTimer(duration);
        }
        void stop() override { m_timer->stop(); }
        bool isActive() const override { return m_timer->isActive(); }

    private:
        void startTimer(Duration duration)
        {
            m_timerDue = m_due;
            m_timer->start(std::chrono::ceil<std::chrono::milliseconds>(duration));
        }
        void onTimeout()
        {
            const auto left = std::chrono::ceil<Duration>(m_due - std::chrono::steady_clock::now());
            if (left > Duration(0)) {
                startTimer(left);
                return;
            }
            const auto onTime = m_onTime; // it may destroy this alarm
            onTime();
        }

        QTimer *m_timer; ///< a child of the owner, so that it follows it into another thread
        std::function<void()> m_onTime;
        TimePoint m_due;
        TimePoint m_timerDue; ///< of the timer while it runs: not later than m_due
    };
};
