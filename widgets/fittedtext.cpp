#include "widgets/fittedtext.h"

#include <QFontInfo>
#include <QFontMetrics>

namespace {

constexpr int LeastPixelSize = 8;

bool fits(const QFont &font, const QString &text, const QSize &room)
{
    const QFontMetrics metrics(font);
    return metrics.height() <= room.height() && metrics.horizontalAdvance(text) <= room.width();
}

} // namespace

QFont stretchedFont(QFont font, int percent)
{
    font.setStretch(percent);
    return font;
}

FittedText fittedText(const QFont &font, const QString &text, const QSize &room)
{
    if (fits(font, text, room))
        return {font, text, false};
    QFont fitted = font;
    for (int size = QFontInfo(font).pixelSize(); size >= LeastPixelSize; --size) {
        fitted.setPixelSize(size);
        for (int stretch = FullStretch; stretch >= LeastStretch; stretch -= StretchStep) {
            fitted.setStretch(stretch);
            if (fits(fitted, text, room))
                return {fitted, text, false};
        }
    }
    const QString cut = QFontMetrics(fitted).elidedText(text, Qt::ElideRight, room.width());
    return {fitted, cut, cut != text};
}
