#include "widgets/mark.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr QRgb Color = 0xffb3261e;
constexpr int Thickness = 2; // pixels

} // namespace

void mark::paint(QWidget &widget)
{
    QPainter painter(&widget);
    painter.setPen(QPen(QColor(Color), Thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(widget.rect().adjusted(Thickness / 2, Thickness / 2, -Thickness / 2, -Thickness / 2));
}
