#include "chart/plotitems.h"

#include <qwt_scale_map.h>

#include <QPainter>

namespace chart {

namespace {

constexpr double DotSize = 4.0;

void drawDots(QPainter &painter, const QPen &pen, const QPolygonF &points)
{
    QPen dots = pen;
    dots.setWidthF(DotSize);
    dots.setCapStyle(Qt::RoundCap);
    dots.setStyle(Qt::SolidLine);
    painter.setPen(dots);
    painter.drawPoints(points);
}

/**
 * A line about two pixels of the desktop wide, and one where it is dense. Wide pens are outlined and filled as a whole,
 * which takes seconds when a line goes up and down in each column of pixels; so thin ones are laid side by side where
 * pixels are small.
 */
void drawLine(QPainter &painter, const QPen &pen, const QPolygonF &points, double canvasWidth)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const int passes = qRound(ratio) + (points.size() < canvasWidth ? 1 : 0);
    painter.setPen(pen);
    for (int pass = 0; pass < passes; ++pass)
        painter.drawPolyline(points.translated(pass / ratio, pass / ratio));
}

} // namespace

void CurveItem::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvas) const
{
    const auto &[points, starts, isSparse] = m_lines;
    painter->setBrush(Qt::NoBrush);
    for (std::size_t line = 0; line < starts.size(); ++line) {
        const std::size_t end = line + 1 < starts.size() ? starts[line + 1] : points.size();
        QPolygonF polygon;
        polygon.reserve(int(end - starts[line]));
        for (std::size_t i = starts[line]; i < end; ++i)
            polygon.append({xMap.transform(points[i].x()), yMap.transform(points[i].y())});
        drawLine(*painter, m_pen, polygon, canvas.width());
        if (polygon.size() == 1 || isSparse)
            drawDots(*painter, m_pen, polygon);
    }
}

void VerticalLinesItem::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &,
                             const QRectF &canvas) const
{
    for (const VerticalLine &line : m_lines) {
        const double x = xMap.transform(line.seconds);
        if (x < canvas.left() || x > canvas.right())
            continue;
        painter->setPen(line.pen);
        painter->drawLine(QPointF(x, canvas.top()), QPointF(x, canvas.bottom()));
    }
}

} // namespace chart
