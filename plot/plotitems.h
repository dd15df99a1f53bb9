#pragma once

#include "plot/curves.h"
#include "plot/plotsource.h"
#include "recording/decimation.h"

#include <qwt_plot_item.h>

#include <vector>

namespace plot {

/** The lines of one curve. */
class CurveItem final : public QwtPlotItem
{
public:
    explicit CurveItem(const QPen &pen) : m_pen(pen) {}

    void setLines(recording::Polylines lines) { m_lines = std::move(lines); }
    const recording::Polylines &lines() const { return m_lines; }
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvas) const override;

private:
    QPen m_pen;
    recording::Polylines m_lines;
};

/** A vertical line and what it means. */
struct VerticalLine
{
    double seconds;
    QPen pen;
    QString text; ///< empty for a cursor
};

/** Vertical lines through a strip. */
class VerticalLinesItem final : public QwtPlotItem
{
public:
    explicit VerticalLinesItem(double z) { setZ(z); }

    void setLines(std::vector<VerticalLine> lines) { m_lines = std::move(lines); }
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvas) const override;

private:
    std::vector<VerticalLine> m_lines;
};

} // namespace plot
