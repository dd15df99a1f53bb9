#pragma once

#include "chart/chart.h"

#include <qwt_plot_item.h>

#include <vector>

namespace chart {

/** The lines of one curve. */
class CurveItem final : public QwtPlotItem
{
public:
    CurveItem(const QPen &pen, double z) : m_pen(pen) { setZ(z); }

    void setLines(Lines lines) { m_lines = std::move(lines); }
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvas) const override;

private:
    QPen m_pen;
    Lines m_lines;
};

/** Vertical lines through all of the chart. */
class VerticalLinesItem final : public QwtPlotItem
{
public:
    explicit VerticalLinesItem(double z) { setZ(z); }

    void setLines(std::vector<VerticalLine> lines) { m_lines = std::move(lines); }
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvas) const override;

private:
    std::vector<VerticalLine> m_lines;
};

} // namespace chart
