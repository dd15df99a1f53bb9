#pragma once

#include "chart/chart.h"

#include <qwt_plot.h>

namespace chart {

class CurveItem;
class VerticalLinesItem;

/** A chart drawn by Qwt. */
class QwtChart final : public QwtPlot, public Chart
{
public:
    QwtChart(const Look &look, QWidget *parent);

    QWidget &widget() override { return *this; }
    QWidget &canvas() override { return *QwtPlot::canvas(); }
    void setTimeScaleVisible(bool isVisible) override;
    int timeScaleHeight() const override;
    void setTimes(double begin, double end) override;
    void setValues(double lower, double upper) override;
    void setCurve(std::size_t curve, Lines lines) override;
    void setMarks(std::vector<VerticalLine> lines) override;
    void setCursors(std::vector<VerticalLine> lines) override;
    void replot() override { QwtPlot::replot(); }
    double secondsAt(int x) const override { return invTransform(xBottom, x); }
    double valueAt(int y) const override { return invTransform(yLeft, y); }

private:
    void addScales(const Look &look);
    void addItems(const Look &look);

    // The plot's, as all that is attached to it.
    std::vector<CurveItem *> m_curves;
    VerticalLinesItem *m_marks;
    VerticalLinesItem *m_cursors;
};

} // namespace chart
