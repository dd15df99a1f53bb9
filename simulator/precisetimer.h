#pragma once

#include <QObject>

#include <chrono>

class QSocketNotifier;
class QTimer;

namespace simulator {

/** A single-shot timer to the microsecond where the system has one; a byte at 1 Mbit/s takes ten of them. */
class PreciseTimer : public QObject
{
    Q_OBJECT

public:
    explicit PreciseTimer(QObject *parent = nullptr);
    ~PreciseTimer() override;
    Q_DISABLE_COPY(PreciseTimer)

    /** Sends timeout() once, @p time from now; forgets an earlier start. */
    void start(std::chrono::microseconds time);
    void stop();

Q_SIGNALS:
    void timeout();

private:
#ifdef Q_OS_LINUX
    void arm(std::chrono::microseconds time);
    void onReadable();

    int m_descriptor = -1;
    QSocketNotifier *m_notifier = nullptr;
#else
    QTimer *m_timer = nullptr;
#endif
};

} // namespace simulator
