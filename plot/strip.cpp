#include "plot/strip.h"

#include "plot/legendrow.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

#include <QApplication>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

constexpr double GridZ = 0.0;
constexpr double MarksZ = 1.0;
constexpr double FaintZ = 5.0;
constexpr double CurveZ = 10.0;
constexpr double CursorsZ = 20.0;
constexpr QRgb GridColor = 0xffe4e4e4;
constexpr QRgb FaintColor = 0xff9a9a9a;
constexpr QRgb CursorColor = 0xff404040;
/** Steps of a field that fill a strip at least. */
constexpr int LeastSteps = 20;
constexpr int LeastNumbers = 2; ///< about, on the scale of values
constexpr int MostNumbers = 4;
constexpr double LinesPerNumber = 1.1; ///< of text, that a number takes there
constexpr double EndPart = 0.05;       ///< of the scale of time, at each end, without texts
constexpr double ZoomPerNotch = 1.25;
constexpr double DegreesPerNotch = 120.0; ///< in eighths, as Qt tells them
/** Keeps room for the widest number, so that the strips do not shift. */
const QString WidestLabel = QStringLiteral("-1602.25");

/** Numbers in the user's locale. */
class LocalScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override
    {
        const double shown = std::abs(value) < 1e-12 ? 0.0 : value;
        return QwtText(QLocale().toString(shown, 'g', 7));
    }
};

/** With the unit of time. */
class TimeScaleDraw final : public LocalScaleDraw
{
public:
    QwtText label(double value) const override
    {
        // A text that hangs over the end would make this strip's canvas narrower than those of the others.
        const double part = (value - scaleDiv().lowerBound()) / scaleDiv().range();
        if (part < EndPart || part > 1 - EndPart)
            return {};
        return QwtText(Strip::tr("%1 s").arg(LocalScaleDraw::label(value).text()));
    }
};

QPen thin(QRgb color, Qt::PenStyle style)
{
    QPen pen(QColor(color), 1, style);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

Strip::Strip(StripCurves curves, const model::Family &family, QWidget *parent)
    : QWidget(parent), m_curves(std::move(curves)), m_family(family), m_legend(new LegendRow(this)),
      m_plot(new QwtPlot(this)), m_faint(new CurveItem(thin(FaintColor, Qt::SolidLine))),
      m_marks(new VerticalLinesItem(MarksZ)), m_cursors(new VerticalLinesItem(CursorsZ))
{
    setObjectName(QStringLiteral("plotStrip_") + m_curves.key);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_legend);
    layout->addWidget(m_plot, 1);

    auto *canvas = new QwtPlotCanvas;
    // Each frame is another picture: a copy of the last one would only take time and memory.
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    canvas->setFrameStyle(QFrame::NoFrame);
    canvas->setMouseTracking(true);
    canvas->setCursor(Qt::CrossCursor);
    canvas->installEventFilter(this);
    m_plot->setCanvas(canvas);
    m_plot->setCanvasBackground(palette().color(QPalette::Base));
    m_plot->setAutoReplot(false);
    m_plot->plotLayout()->setAlignCanvasToScales(true);
    m_plot->setMinimumHeight(0);
    m_plot->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_plot->setAxisScaleDraw(QwtPlot::yLeft, new LocalScaleDraw);
    m_plot->setAxisScaleDraw(QwtPlot::xBottom, new TimeScaleDraw);
    for (const auto axis : {QwtPlot::yLeft, QwtPlot::xBottom})
        m_plot->setAxisFont(axis, font());
    const int extent = fontMetrics().horizontalAdvance(WidestLabel) + 2 * fontMetrics().averageCharWidth();
    m_plot->axisScaleDraw(QwtPlot::yLeft)->setMinimumExtent(extent);
    m_plot->axisScaleDraw(QwtPlot::yLeft)->enableComponent(QwtAbstractScaleDraw::Backbone, false);
    m_legend->setIndent(extent);

    auto *grid = new QwtPlotGrid;
    grid->setPen(thin(GridColor, Qt::SolidLine));
    grid->setZ(GridZ);
    grid->attach(m_plot);
    m_faint->setZ(FaintZ);
    m_faint->attach(m_plot);
    m_marks->attach(m_plot);
    m_cursors->attach(m_plot);
    for (std::size_t i = 0; i < m_curves.curves.size(); ++i) {
        m_items.push_back(new CurveItem(m_curves.curves[i].pen));
        m_items.back()->setZ(CurveZ - double(i)); // the first one on top
        m_items.back()->attach(m_plot);
    }
}

Strip::~Strip() = default;

QRect Strip::canvasPlace() const
{
    return QRect(m_plot->canvas()->mapTo(this, QPoint()), m_plot->canvas()->size());
}

void Strip::setTimeScaleVisible(bool isVisible)
{
    m_plot->enableAxis(QwtPlot::xBottom, isVisible);
}

int Strip::timeScaleHeight() const
{
    const QwtScaleWidget &scale = *m_plot->axisWidget(QwtPlot::xBottom);
    return m_plot->axisEnabled(QwtPlot::xBottom) ? scale.minimumSizeHint().height() : 0;
}

void Strip::showView(const View &view, const FaintCurve &faint, const std::vector<VerticalLine> &lines)
{
    showCurves(view, faint);
    showScales(view);
    showLegend(view);
    showLines(view, lines);
    m_plot->replot();
}

recording::Polylines Strip::linesOf(const View &view, const Curve &curve) const
{
    const PlotSource &source = view.source;
    if (source.isEmpty() || &source.samples->family() != &m_family || !source.has(*curve.column.field))
        return {};
    const recording::TimeSpan span{source.timeAt(view.window.begin()), source.timeAt(view.window.end())};
    return recording::decimated(*source.samples, curve.column, span, m_plot->canvas()->width(), source.origin);
}

recording::Polylines Strip::faintLines(const View &view, const FaintCurve &faint) const
{
    const auto isOfField = [&faint](const Curve &curve) { return curve.column.field == faint.field; };
    const auto curve = std::find_if(curves().begin(), curves().end(), isOfField);
    if (!faint.field || curve == curves().end() || view.source.isEmpty())
        return {};
    recording::Polylines lines = recording::decimated(*view.source.samples, curve->column, faint.span,
                                                      m_plot->canvas()->width(), view.source.origin);
    lines.isSparse = false; // no dots
    for (QPointF &point : lines.points)
        point = {point.x() + faint.laterBy, point.y() * faint.factor + faint.offset};
    return lines;
}

void Strip::showCurves(const View &view, const FaintCurve &faint)
{
    std::optional<recording::Extent> values;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        m_items[i]->setLines(linesOf(view, m_curves.curves[i]));
        const auto extent = recording::extentOf(m_items[i]->lines());
        if (extent && values)
            values =
                recording::Extent{std::min(values->least, extent->least), std::max(values->greatest, extent->greatest)};
        else if (extent)
            values = extent;
    }
    m_faint->setLines(faintLines(view, faint));
    if (values)
        m_range.follow(*values, leastSpan());
}

double Strip::leastSpan() const
{
    double span = 0;
    for (const Curve &curve : m_curves.curves) {
        const recording::Column &column = curve.column;
        const double step = std::abs(column.value(1) - column.value(0));
        const model::Range &range = column.field->range; // of a switch, say, all that there is
        span = std::max(span, step * std::min(LeastSteps, range.rawMax - range.rawMin));
    }
    return span;
}

void Strip::showScales(const View &view)
{
    m_plot->setAxisScale(QwtPlot::xBottom, view.window.begin(), view.window.end());
    // Set anew only when it changes: that lays the strip out again.
    const double room = m_plot->canvas()->height() / (LinesPerNumber * fontMetrics().height());
    const int numbers = std::clamp(int(room), LeastNumbers, MostNumbers);
    if (m_plot->axisMaxMajor(QwtPlot::yLeft) != numbers)
        m_plot->setAxisMaxMajor(QwtPlot::yLeft, numbers);
    const QwtInterval shown = m_plot->axisScaleDiv(QwtPlot::yLeft).interval();
    if (shown.minValue() != m_range.lower() || shown.maxValue() != m_range.upper())
        m_plot->setAxisScale(QwtPlot::yLeft, m_range.lower(), m_range.upper());
}

std::optional<double> Strip::valueAt(const PlotSource &source, const Curve &curve, double seconds)
{
    if (source.isEmpty() || !source.has(*curve.column.field))
        return std::nullopt;
    const auto number = source.samples->nearest(source.timeAt(seconds));
    return curve.column.value(source.samples->raw(number, *curve.column.field));
}

void Strip::showLegend(const View &view)
{
    std::vector<LegendEntry> entries;
    for (const Curve &curve : m_curves.curves) {
        const QString unit = curve.unitText();
        const QString name = curve.name(m_family);
        LegendEntry entry{curve.pen, unit.isEmpty() ? name : QStringLiteral("%1 [%2]").arg(name, unit), {}, {}};
        const double end = view.source.isEmpty() ? 0.0 : view.window.end();
        const auto value = valueAt(view.source, curve, view.cursor.value_or(end));
        if (value)
            entry.value = curve.text(*value);
        const auto other = view.reference ? valueAt(view.source, curve, *view.reference) : std::nullopt;
        if (value && other && view.cursor)
            entry.difference = QStringLiteral("\u0394 ") + curve.text(*value - *other);
        entries.push_back(entry);
    }
    m_legend->setEntries(std::move(entries));
}

void Strip::showLines(const View &view, const std::vector<VerticalLine> &lines)
{
    m_marks->setLines(lines);
    std::vector<VerticalLine> cursors;
    if (view.reference)
        cursors.push_back({*view.reference, thin(CursorColor, Qt::DashLine), {}});
    if (view.cursor)
        cursors.push_back({*view.cursor, thin(CursorColor, Qt::SolidLine), {}});
    m_cursors->setLines(std::move(cursors));
}

double Strip::secondsAt(const QPoint &place) const
{
    return m_plot->invTransform(QwtPlot::xBottom, place.x());
}

double Strip::valueAt(const QPoint &place) const
{
    return m_plot->invTransform(QwtPlot::yLeft, place.y());
}

bool Strip::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Wheel:
        onWheel(*static_cast<QWheelEvent *>(event));
        return true;
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
            m_pressedAt = m_draggedTo = static_cast<QMouseEvent *>(event)->pos();
        m_isDragging = false;
        break;
    case QEvent::MouseMove:
        onMove(*static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        if (m_pressedAt && !m_isDragging)
            Q_EMIT clicked(secondsAt(*m_pressedAt));
        m_pressedAt.reset();
        break;
    case QEvent::Leave:
        Q_EMIT left();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void Strip::onMove(const QMouseEvent &event)
{
    if (!m_pressedAt) {
        Q_EMIT pointed(secondsAt(event.pos()));
        return;
    }
    if ((event.pos() - *m_pressedAt).manhattanLength() >= QApplication::startDragDistance())
        m_isDragging = true;
    if (!m_isDragging)
        return;
    const double by = secondsAt(m_draggedTo) - secondsAt(event.pos());
    m_draggedTo = event.pos();
    Q_EMIT dragged(by);
}

/** Zooms into time; with Ctrl into the strip's own values, which are a fixed range from then on. */
void Strip::onWheel(QWheelEvent &event)
{
    const double notches = event.angleDelta().y() / DegreesPerNotch;
    const double factor = std::pow(ZoomPerNotch, -notches);
    const QPoint place = event.position().toPoint();
    if (!(event.modifiers() & Qt::ControlModifier)) {
        Q_EMIT zoomed(factor, secondsAt(place));
        return;
    }
    const double anchor = valueAt(place);
    m_range.fix(anchor + (m_range.lower() - anchor) * factor, anchor + (m_range.upper() - anchor) * factor);
    Q_EMIT rangeChanged();
}

} // namespace plot
