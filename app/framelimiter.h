#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QWidget;

/**
 * Has a window painted at most thirty times a second, so that the shortest polling interval, which brings
 * three times as many values, costs no paintings that nobody can tell apart. What is late is painted a moment
 * later, never left out.
 *
 * The window has to outlive it. GUI thread only.
 */
class FrameLimiter : public QObject
{
    Q_OBJECT

public:
    explicit FrameLimiter(QWidget &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QElapsedTimer m_sinceFrame;
    QTimer m_nextFrame;
};
