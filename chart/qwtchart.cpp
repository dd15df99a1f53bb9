#include "chart/qwtchart.h"

#include "chart/plotitems.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

constexpr double GridZ = 0.0;
constexpr double MarksZ = 1.0;
constexpr double CurveZ = 10.0; ///< of the curve on top
constexpr double CursorsZ = 20.0;
constexpr double LeastCurveZ = 2.0;
constexpr int LeastNumbers = 2; ///< about, on the scale of values
constexpr int MostNumbers = 4;
constexpr double LinesPerNumber = 1.1; ///< of text, that a number takes there
constexpr double EndPart = 0.05;       ///< of the scale of time, at each end, without texts

/** Has its texts from who shows the chart. */
class LabelledScaleDraw : public QwtScaleDraw
{
public:
    explicit LabelledScaleDraw(LabelText text) : m_text(std::move(text)) {}

    QwtText label(double value) const override { return QwtText(m_text(std::abs(value) < 1e-12 ? 0.0 : value)); }

private:
    LabelText m_text;
};

/** Has no texts at its ends. */
class TimeScaleDraw final : public LabelledScaleDraw
{
public:
    using LabelledScaleDraw::LabelledScaleDraw;

    QwtText label(double value) const override
    {
        // A text that hangs over the end would make this chart's canvas narrower than those of the others.
        const double part = (value - scaleDiv().lowerBound()) / scaleDiv().range();
        if (part < EndPart || part > 1 - EndPart)
            return {};
        return LabelledScaleDraw::label(value);
    }
};

} // namespace

QwtChart::QwtChart(const Look &look, QWidget *parent)
    : QwtPlot(parent), m_marks(new VerticalLinesItem(MarksZ)), m_cursors(new VerticalLinesItem(CursorsZ))
{
    auto *canvas = new QwtPlotCanvas;
    // Each frame is another picture: a copy of the last one would only take time and memory.
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    canvas->setFrameStyle(QFrame::NoFrame);
    setCanvas(canvas);
    setCanvasBackground(look.background);
    setAutoReplot(false);
    plotLayout()->setAlignCanvasToScales(true);
    setMinimumHeight(0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    addScales(look);
    addItems(look);
}

void QwtChart::addScales(const Look &look)
{
    setAxisScaleDraw(yLeft, new LabelledScaleDraw(look.valueText));
    setAxisScaleDraw(xBottom, new TimeScaleDraw(look.timeText));
    for (const auto axis : {yLeft, xBottom})
        setAxisFont(axis, look.font);
    axisScaleDraw(yLeft)->setMinimumExtent(look.valueScaleWidth);
    axisScaleDraw(yLeft)->enableComponent(QwtAbstractScaleDraw::Backbone, false);
}

void QwtChart::addItems(const Look &look)
{
    auto *grid = new QwtPlotGrid;
    grid->setPen(look.grid);
    grid->setZ(GridZ);
    grid->attach(this);
    m_marks->attach(this);
    m_cursors->attach(this);
    for (std::size_t i = 0; i < look.curves.size(); ++i) {
        m_curves.push_back(new CurveItem(look.curves[i], std::max(CurveZ - double(i), LeastCurveZ)));
        m_curves.back()->attach(this);
    }
}

void QwtChart::setTimeScaleVisible(bool isVisible)
{
    enableAxis(xBottom, isVisible);
}

int QwtChart::timeScaleHeight() const
{
    return axisEnabled(xBottom) ? axisWidget(xBottom)->minimumSizeHint().height() : 0;
}

void QwtChart::setTimes(double begin, double end)
{
    setAxisScale(xBottom, begin, end);
}

void QwtChart::setValues(double lower, double upper)
{
    // Set anew only when it changes: that lays the chart out again.
    const double room = QwtPlot::canvas()->height() / (LinesPerNumber * QFontMetrics(axisFont(yLeft)).height());
    const int numbers = std::clamp(int(room), LeastNumbers, MostNumbers);
    if (axisMaxMajor(yLeft) != numbers)
        setAxisMaxMajor(yLeft, numbers);
    const QwtInterval shown = axisScaleDiv(yLeft).interval();
    if (shown.minValue() != lower || shown.maxValue() != upper)
        setAxisScale(yLeft, lower, upper);
}

void QwtChart::setCurve(std::size_t curve, Lines lines)
{
    m_curves[curve]->setLines(std::move(lines));
}

void QwtChart::setMarks(std::vector<VerticalLine> lines)
{
    m_marks->setLines(std::move(lines));
}

void QwtChart::setCursors(std::vector<VerticalLine> lines)
{
    m_cursors->setLines(std::move(lines));
}

} // namespace chart
