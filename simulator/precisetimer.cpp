#include "simulator/precisetimer.h"

#include <algorithm>

#ifdef Q_OS_LINUX
#    include <QSocketNotifier>
#    include <sys/timerfd.h>
#    include <unistd.h>
#else
#    include <QTimer>
#endif

namespace simulator {

#ifdef Q_OS_LINUX

PreciseTimer::PreciseTimer(QObject *parent)
    : QObject(parent), m_descriptor(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))
{
    if (m_descriptor < 0)
        qFatal("No timer: the system has no file descriptor left");
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &PreciseTimer::onReadable);
}

PreciseTimer::~PreciseTimer()
{
    m_notifier->setEnabled(false);
    close(m_descriptor);
}

void PreciseTimer::start(std::chrono::microseconds time)
{
    arm(std::max(time, std::chrono::microseconds(1))); // 0 would switch the timer off
}

void PreciseTimer::stop()
{
    arm(std::chrono::microseconds(0));
}

void PreciseTimer::arm(std::chrono::microseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    itimerspec setting{};
    setting.it_value.tv_sec = seconds.count();
    setting.it_value.tv_nsec = std::chrono::nanoseconds(time - seconds).count();
    timerfd_settime(m_descriptor, 0, &setting, nullptr);
}

void PreciseTimer::onReadable()
{
    quint64 expirations = 0;
    if (read(m_descriptor, &expirations, sizeof expirations) == sizeof expirations)
        Q_EMIT timeout();
}

#else

PreciseTimer::PreciseTimer(QObject *parent) : QObject(parent), m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer);
    connect(m_timer, &QTimer::timeout, this, &PreciseTimer::timeout);
}

PreciseTimer::~PreciseTimer() = default;

void PreciseTimer::start(std::chrono::microseconds time)
{
    m_timer->start(std::chrono::ceil<std::chrono::milliseconds>(std::max(time, std::chrono::microseconds(0))));
}

void PreciseTimer::stop()
{
    m_timer->stop();
}

#endif

} // namespace simulator
