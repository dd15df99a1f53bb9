#include "plot/strip.h"

#include "plot/legendrow.h"

#include <QApplication>
#include <QLocale>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

constexpr QRgb GridColor = 0xffe4e4e4;
constexpr QRgb FaintColor = 0xff9a9a9a;
constexpr QRgb CursorColor = 0xff404040;
/** Steps of a field that fill a strip at least. */
constexpr int LeastSteps = 20;
constexpr double ZoomPerNotch = 1.25;
constexpr double DegreesPerNotch = 120.0; ///< in eighths, as Qt tells them
/** Keeps room for the widest number, so that the strips do not shift. */
const QString WidestLabel = QStringLiteral("-1602.25");

QString scaleText(double value)
{
    return QLocale().toString(value, 'g', 7);
}

chart::Lines drawn(recording::Polylines lines)
{
    return {std::move(lines.points), std::move(lines.starts), lines.isSparse};
}

QPen thin(QRgb color, Qt::PenStyle style)
{
    QPen pen(QColor(color), 1, style);
    pen.setCosmetic(true);
    return pen;
}

} // namespace

Strip::Strip(StripCurves curves, const model::Family &family, const chart::Charts &charts, QWidget *parent)
    : QWidget(parent), m_curves(std::move(curves)), m_family(family), m_legend(new LegendRow(this)),
      m_chart(charts.makeChart(look(), this))
{
    setObjectName(QStringLiteral("plotStrip_") + m_curves.key);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_legend);
    layout->addWidget(&m_chart->widget(), 1);
    m_legend->setIndent(look().valueScaleWidth);
    QWidget &canvas = m_chart->canvas();
    canvas.setMouseTracking(true);
    canvas.setCursor(Qt::CrossCursor);
    canvas.installEventFilter(this);
}

Strip::~Strip() = default;

chart::Look Strip::look() const
{
    chart::Look look;
    for (const Curve &curve : m_curves.curves)
        look.curves.push_back(curve.pen);
    look.curves.push_back(thin(FaintColor, Qt::SolidLine));
    look.grid = thin(GridColor, Qt::SolidLine);
    look.background = palette().color(QPalette::Base);
    look.font = font();
    look.valueScaleWidth = fontMetrics().horizontalAdvance(WidestLabel) + 2 * fontMetrics().averageCharWidth();
    look.timeText = [](double seconds) { return tr("%1 s").arg(scaleText(seconds)); };
    look.valueText = scaleText;
    return look;
}

QRect Strip::canvasPlace() const
{
    const QWidget &canvas = m_chart->canvas();
    return QRect(canvas.mapTo(this, QPoint()), canvas.size());
}

void Strip::setTimeScaleVisible(bool isVisible)
{
    m_chart->setTimeScaleVisible(isVisible);
}

int Strip::timeScaleHeight() const
{
    return m_chart->timeScaleHeight();
}

void Strip::showView(const View &view, const FaintCurve &faint, const std::vector<chart::VerticalLine> &marks)
{
    showCurves(view, faint);
    showScales(view);
    showLegend(view);
    m_chart->setMarks(marks);
    showCursors(view);
    m_chart->replot();
}

recording::Polylines Strip::linesOf(const View &view, const Curve &curve) const
{
    const PlotSource &source = view.source;
    if (source.isEmpty() || &source.samples->family() != &m_family || !source.has(*curve.column.field))
        return {};
    const recording::TimeSpan span{source.timeAt(view.window.begin()), source.timeAt(view.window.end())};
    return recording::decimated(*source.samples, curve.column, span, m_chart->canvas().width(), source.origin);
}

recording::Polylines Strip::faintLines(const View &view, const FaintCurve &faint) const
{
    const auto isOfField = [&faint](const Curve &curve) { return curve.column.field == faint.field; };
    const auto curve = std::find_if(curves().begin(), curves().end(), isOfField);
    if (!faint.field || curve == curves().end() || view.source.isEmpty())
        return {};
    recording::Polylines lines = recording::decimated(*view.source.samples, curve->column, faint.span,
                                                      m_chart->canvas().width(), view.source.origin);
    lines.isSparse = false; // no dots
    for (QPointF &point : lines.points)
        point = {point.x() + faint.laterBy, point.y() * faint.factor + faint.offset};
    return lines;
}

void Strip::showCurves(const View &view, const FaintCurve &faint)
{
    std::optional<recording::Extent> values;
    for (std::size_t i = 0; i < curves().size(); ++i) {
        recording::Polylines lines = linesOf(view, curves()[i]);
        const auto extent = recording::extentOf(lines);
        if (extent && values)
            values =
                recording::Extent{std::min(values->least, extent->least), std::max(values->greatest, extent->greatest)};
        else if (extent)
            values = extent;
        m_chart->setCurve(i, drawn(std::move(lines)));
    }
    m_chart->setCurve(curves().size(), drawn(faintLines(view, faint)));
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
    m_chart->setTimes(view.window.begin(), view.window.end());
    m_chart->setValues(m_range.lower(), m_range.upper());
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

void Strip::showCursors(const View &view)
{
    std::vector<chart::VerticalLine> cursors;
    if (view.reference)
        cursors.push_back({*view.reference, thin(CursorColor, Qt::DashLine), {}});
    if (view.cursor)
        cursors.push_back({*view.cursor, thin(CursorColor, Qt::SolidLine), {}});
    m_chart->setCursors(std::move(cursors));
}

double Strip::secondsAt(const QPoint &place) const
{
    return m_chart->secondsAt(place.x());
}

double Strip::valueAt(const QPoint &place) const
{
    return m_chart->valueAt(place.y());
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
