#include "app/screenfit.h"

#include <QMargins>
#include <QRect>

#include <algorithm>

namespace {

/** The start of a stretch of @p length that is to begin at @p wanted, inside @p room from @p first on. */
int insideFrom(int wanted, int length, int first, int room)
{
    return std::max(first, std::min(wanted, first + room - length));
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
