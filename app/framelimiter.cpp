#include "app/framelimiter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace {

constexpr int FrameTime = 1000 / 30; // ms

} // namespace

FrameLimiter::FrameLimiter(QWidget &window)
{
    m_nextFrame.setSingleShot(true);
    m_nextFrame.setTimerType(Qt::PreciseTimer);
    connect(&m_nextFrame, &QTimer::timeout, &window,
            [&window] { QCoreApplication::postEvent(&window, new QEvent(QEvent::UpdateRequest)); });
    window.installEventFilter(this);
}

bool FrameLimiter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::eventFilter(watched, event);
    if (m_nextFrame.isActive())
        return true;
    const qint64 left = m_sinceFrame.isValid() ? FrameTime - m_sinceFrame.elapsed() : 0;
    if (left > 0) {
        m_nextFrame.start(static_cast<int>(left));
        return true;
    }
    m_sinceFrame.start();
    return false;
}
