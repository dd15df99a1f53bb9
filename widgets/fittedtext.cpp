#include "widgets/fittedtext.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int LeastPixelSize = 8;

} // namespace

int fittedWidth(int needed, int room)
{
    constexpr int Step = 4;
    const int share = needed <= room ? FullWidth : FullWidth * qMax(room, 0) / needed;
    return qMax(LeastWidth, share - share % Step);
}

void FittedText::draw(QPainter &painter, const QRect &place, int flags) const
{
    const qreal share = qreal(letterWidth) / FullWidth;
    painter.save();
    painter.setFont(font);
    painter.translate(place.topLeft());
    painter.scale(share, 1.0);
    painter.drawText(QRectF(0.0, 0.0, place.width() / share, place.height()), flags, text);
    painter.restore();
}

FittedText fittedText(const QFont &font, const QString &text, const QSize &room)
{
    QFont fitted = font;
    for (int size = QFontInfo(font).pixelSize(); size >= LeastPixelSize; --size) {
        const QFontMetrics metrics(fitted);
        const int needed = metrics.horizontalAdvance(text);
        const int width = fittedWidth(needed, room.width());
        if (metrics.height() <= room.height() && needed * width <= room.width() * FullWidth)
            return {fitted, text, width};
        fitted.setPixelSize(size - 1);
    }
    fitted.setPixelSize(LeastPixelSize);
    const int wide = room.width() * FullWidth / LeastWidth;
    const QString cut = QFontMetrics(fitted).elidedText(text, Qt::ElideRight, wide);
    return {fitted, cut, LeastWidth, cut != text};
}
