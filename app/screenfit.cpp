#include "app/screenfit.h"

#include <QGuiApplication>
#include <QMargins>
#include <QRect>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

/** The start of a stretch of @p length that is to begin at @p wanted, inside @p room from @p first on. */
int insideFrom(int wanted, int length, int first, int room)
{
    return std::max(first, std::min(wanted, first + room - length));
}

/** What the window manager is going to put around a window; it tells only once the window shows. */
QMargins expectedFrame(const QStyle &style)
{
    const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {border, style.pixelMetric(QStyle::PM_TitleBarHeight) + border, border, border};
}

} // namespace

QRect screenfit::fitted(const QRect &wanted, const QRect &available, const QMargins &frame)
{
    const QRect room = available.marginsRemoved(frame);
    const QSize size = wanted.size().boundedTo(room.size()).expandedTo(QSize(0, 0));
    return {QPoint(insideFrom(wanted.x(), size.width(), room.x(), room.width()),
                   insideFrom(wanted.y(), size.height(), room.y(), room.height())),
            size};
}

QRect screenfit::onScreen(const QWidget &window, const QRect &wanted)
{
    const QScreen *screen = QGuiApplication::screenAt(wanted.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return fitted(wanted, screen->availableGeometry(), expectedFrame(*window.style()));
}
