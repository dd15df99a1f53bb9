#include "bench/connectedwindow.h"

#include "bench/measuring.h"
#include "bench/windowsize.h"
#include "link/uischeduler.h"
#include "session/connection.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimerEvent>

#include <thread>

/** Holds the scheduler's own ticks back, so that it polls only when it is told to. */
class ConnectedWindow::TickGate : public QObject
{
public:
    TickGate() { qApp->installEventFilter(this); }

    UiScheduler *scheduler() const { return m_scheduler; }

    void tick()
    {
        QTimerEvent event(m_timerId);
        m_isOpen = true;
        QCoreApplication::sendEvent(m_scheduler, &event);
        m_isOpen = false;
    }

    // The scheduler belongs to the window alone; it is found by its first tick.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Timer)
            return false;
        if (!m_scheduler) {
            m_scheduler = qobject_cast<UiScheduler *>(watched);
            if (!m_scheduler)
                return false;
            m_timerId = static_cast<QTimerEvent *>(event)->timerId();
            qApp->removeEventFilter(this);
            m_scheduler->installEventFilter(this);
        }
        return watched == m_scheduler && !m_isOpen;
    }

private:
    QPointer<UiScheduler> m_scheduler;
    int m_timerId = 0;
    bool m_isOpen = false;
};

ConnectedWindow::ConnectedWindow()
{
    constexpr int PollingInterval = 500; // ms; seldom, since these ticks are in vain
    chooseInSettings(m_servo, PollingInterval);
    m_window = std::make_unique<MainWindow>(nullptr);
    m_window->resize(WindowSize);
    m_window->show();
    paintAll();
    m_gate = std::make_unique<TickGate>();
    child<QAction>("actionConnect").trigger();
    while (!m_gate->scheduler())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

ConnectedWindow::~ConnectedWindow() = default;

double ConnectedWindow::poll(const QByteArray &table)
{
    m_servo.show(table);
    bool isAnswered = false;
    const auto connection =
        QObject::connect(&m_window->connection(), &session::Connection::polled, [&isAnswered] { isAnswered = true; });

    const double begin = threadTime();
    m_gate->tick();
    while (!isAnswered)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    paintAll();
    const double used = threadTime() - begin;
    QObject::disconnect(connection);
    return used;
}

double ConnectedWindow::stopMotor()
{
    const double before = m_servo.writtenAt();
    const int polls = m_servo.pollCount();
    const double begin = wallTime();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F8, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &press);
    while (m_servo.writtenAt() <= before) // it has been handed over: nothing else is needed for it to arrive
        std::this_thread::yield();
    const double used = m_servo.writtenAt() - begin;
    while (m_servo.pollCount() == polls) // which the program makes when the stop is proved
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    paintAll();
    return used;
}

void paintAll()
{
    // Painting is posted with low priority, and may be posted by what is handled before it.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}
