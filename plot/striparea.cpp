#include "plot/striparea.h"

#include "plot/markrow.h"
#include "plot/rangedialog.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

namespace plot {

using recording::Mark;

namespace {

constexpr double ZoomPerKey = 1.5;
constexpr double PanPerKey = 0.25; ///< of what is seen
constexpr QRgb AppliedColor = 0xff0072b2;
constexpr QRgb FaultColor = 0xffa00000;
constexpr int TimeDecimals = 3;

QString secondsText(double seconds)
{
    return QLocale().toString(seconds, 'f', TimeDecimals);
}

QString flagLabel(const model::Family &family, const QString &key)
{
    for (const model::Field &field : family.fields) {
        for (const model::Flag &flag : field.flags) {
            if (key == QLatin1String(flag.key))
                return QCoreApplication::translate("EditView", flag.label);
        }
    }
    return key;
}

} // namespace

StripArea::StripArea(const chart::Charts &charts, QWidget *parent)
    : QWidget(parent), m_charts(charts), m_marks(new MarkRow(this)), m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("plotStrips"));
    setAccessibleName(tr("Curves"));
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    m_layout->setContentsMargins(0, 0, 4, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_marks);
}

StripArea::~StripArea() = default;

void StripArea::show(const PlotSource &source, const model::Family &family, const QStringList &keys)
{
    m_source = source;
    m_family = &family;
    m_faint = {};
    rebuild(family, keys);
    refresh();
}

void StripArea::rebuild(const model::Family &family, const QStringList &keys)
{
    qDeleteAll(m_strips);
    m_strips.clear();
    for (const StripCurves &curves : stripsOf(family, keys, m_source.unitOf))
        addStrip(curves, family);
    if (!m_strips.empty())
        m_strips.back()->setTimeScaleVisible(true);
    shareHeight();
}

/** All strips have curves of the same height; the one with the scale of time has that besides. */
void StripArea::shareHeight()
{
    const int scale = m_strips.empty() ? 0 : m_strips.back()->timeScaleHeight();
    const int each = (height() - m_marks->sizeHint().height() - scale) / std::max(int(m_strips.size()), 1);
    for (Strip *strip : m_strips)
        m_layout->setStretchFactor(strip, std::max(each, 1) + strip->timeScaleHeight());
}

void StripArea::addStrip(const StripCurves &curves, const model::Family &family)
{
    auto *strip = new Strip(curves, family, m_charts, this);
    strip->setTimeScaleVisible(false);
    if (const auto range = fixedRange(curves.key))
        strip->range().fix(range->least, range->greatest);
    connect(strip, &Strip::pointed, this, &StripArea::onPointed);
    connect(strip, &Strip::left, this, [this] {
        m_pointer.reset();
        changed();
    });
    connect(strip, &Strip::clicked, this, &StripArea::onClicked);
    connect(strip, &Strip::dragged, this, &StripArea::pan);
    connect(strip, &Strip::zoomed, this, &StripArea::zoom);
    connect(strip, &Strip::rangeChanged, this, [this, strip] {
        m_fixedRanges[strip->key()] = {strip->range().lower(), strip->range().upper()};
        Q_EMIT rangeChosen(strip->key());
        changed();
    });
    m_layout->addWidget(strip, 1);
    m_strips.push_back(strip);
}

void StripArea::refresh()
{
    if (!m_source.isEmpty())
        m_window.setNewest(m_source.seconds(m_source.samples->timeOf(m_source.samples->end() - 1)));
    const View view{m_source, m_window, cursor(), m_reference};
    const std::vector<chart::VerticalLine> lines = markLines();
    for (Strip *strip : m_strips)
        strip->showView(view, m_faint, lines);
    showMarkTexts(lines);
}

void StripArea::showMarkTexts(const std::vector<chart::VerticalLine> &lines)
{
    std::vector<MarkRow::Mark> marks;
    if (!m_strips.empty()) {
        const Strip &strip = *m_strips.front();
        const int left = strip.x() + strip.canvasPlace().x();
        const double pixelsPerSecond = strip.canvasPlace().width() / m_window.span();
        for (const chart::VerticalLine &line : lines)
            marks.push_back(
                {left + qRound((line.seconds - m_window.begin()) * pixelsPerSecond), line.pen.color(), line.text});
    }
    m_marks->setMarks(std::move(marks));
}

void StripArea::changed()
{
    refresh();
    Q_EMIT viewChanged();
}

recording::TimeSpan StripArea::seenSpan() const
{
    return {m_source.timeAt(m_window.begin()), m_source.timeAt(m_window.end())};
}

std::vector<recording::Column> StripArea::columns() const
{
    std::vector<recording::Column> columns;
    for (const Strip *strip : m_strips) {
        for (const Curve &curve : strip->curves())
            columns.push_back(curve.column);
    }
    return columns;
}

void StripArea::setSteps(const std::vector<recording::Step> &steps)
{
    m_faint = {};
    if (steps.size() < 2 || steps[0].actual.field != steps[1].actual.field)
        return;
    const recording::Step &latest = steps[0];
    const recording::Step &before = steps[1];
    m_faint.field = before.actual.field;
    m_faint.span = before.span;
    m_faint.laterBy = m_source.seconds(latest.span.from) - m_source.seconds(before.span.from);
    m_faint.factor = (latest.to - latest.from) / (before.to - before.from); // there is a way, else it were no step
    m_faint.offset = latest.from - before.from * m_faint.factor;
}

std::optional<recording::Extent> StripArea::fixedRange(const QString &key) const
{
    const auto found = m_fixedRanges.find(key);
    return found == m_fixedRanges.end() ? std::nullopt : std::optional<recording::Extent>(*found);
}

void StripArea::setFixedRange(const QString &key, const std::optional<recording::Extent> &range)
{
    m_fixedRanges.remove(key);
    if (range)
        m_fixedRanges[key] = *range;
    for (Strip *strip : m_strips) {
        if (strip->key() != key)
            continue;
        if (range)
            strip->range().fix(range->least, range->greatest);
        else
            strip->range().setAutomatic();
    }
}

std::optional<double> StripArea::sampleAt(double seconds) const
{
    if (m_source.isEmpty())
        return std::nullopt;
    const auto number = m_source.samples->nearest(m_source.timeAt(seconds));
    return m_source.seconds(m_source.samples->timeOf(number));
}

/** On the sample that is nearest to the pointer. */
std::optional<double> StripArea::cursor() const
{
    return m_pointer ? sampleAt(m_window.begin() + *m_pointer * m_window.span()) : std::nullopt;
}

void StripArea::onPointed(double seconds)
{
    m_pointer = (seconds - m_window.begin()) / m_window.span();
    changed();
}

/** The other cursor stays where the user has clicked. */
void StripArea::onClicked()
{
    setFocus(Qt::MouseFocusReason);
    m_reference = cursor();
    changed();
}

void StripArea::moveCursor(int samples)
{
    if (m_source.isEmpty())
        return;
    m_window.hold(); // else the curves would move on below the cursor
    const auto &store = *m_source.samples;
    const double from = cursor().value_or(m_window.end());
    const auto number = std::clamp(store.nearest(m_source.timeAt(from)) + samples, store.first(), store.end() - 1);
    onPointed(m_source.seconds(store.timeOf(number)));
}

void StripArea::zoom(double factor, double anchor)
{
    m_window.zoom(factor, anchor);
    changed();
}

void StripArea::pan(double seconds)
{
    m_window.pan(seconds);
    changed();
}

void StripArea::clearCursors()
{
    m_pointer.reset();
    m_reference.reset();
    changed();
}

QString StripArea::cursorText() const
{
    const auto at = cursor();
    if (!at)
        return {};
    const QString text = tr("at %1 s").arg(secondsText(*at));
    return m_reference ? text + QStringLiteral(", \u0394 %1 s").arg(secondsText(*at - *m_reference)) : text;
}

QString StripArea::valuesText() const
{
    if (m_source.isEmpty())
        return {};
    const double at = cursor().value_or(m_window.end());
    const double other = m_reference.value_or(at);
    const auto row = [](const QString &name, const QString &value, const QString &reference,
                        const QString &difference) {
        return QStringList{name, value, reference, difference}.join(QLatin1Char('\t')) + QLatin1Char('\n');
    };
    QString text = row({}, tr("cursor"), tr("reference"), tr("difference"));
    text += row(tr("time [s]"), secondsText(at), secondsText(other), secondsText(at - other));
    for (const Strip *strip : m_strips) {
        for (const Curve &curve : strip->curves()) {
            const auto value = Strip::valueAt(m_source, curve, at);
            const auto reference = Strip::valueAt(m_source, curve, other);
            if (value && reference)
                text += row(QStringLiteral("%1 [%2]").arg(curve.name(*m_family), curve.unitText()), curve.text(*value),
                            curve.text(*reference), curve.text(*value - *reference));
        }
    }
    return text;
}

QString StripArea::textOf(const Mark &mark) const
{
    if (mark.kind == Mark::Kind::Fault)
        return flagLabel(*m_family, mark.detail);
    if (mark.applied.empty())
        return mark.detail;
    QStringList texts;
    for (const session::AppliedField &field : mark.applied) {
        const Curve curve{{field.field, m_source.unitOf(field.field->kind)}, {}};
        const double value = curve.column.value(model::rawValue(*field.field, field.wanted));
        texts.append(
            QStringLiteral("%1 %2 %3").arg(curve.name(*m_family), curve.text(value), curve.unitText()).trimmed());
    }
    return texts.join(QLatin1String(", "));
}

std::vector<chart::VerticalLine> StripArea::markLines() const
{
    std::vector<chart::VerticalLine> lines;
    if (!m_source.marks)
        return lines;
    for (const Mark &mark : *m_source.marks) {
        const bool isFault = mark.kind == Mark::Kind::Fault || mark.kind == Mark::Kind::NotApplied;
        const double seconds = m_source.seconds(mark.when);
        if ((!isFault && mark.kind != Mark::Kind::Applied) || seconds < m_window.begin() || seconds > m_window.end())
            continue;
        const QString text =
            mark.kind == Mark::Kind::NotApplied ? tr("not applied: %1").arg(textOf(mark)) : textOf(mark);
        QPen pen(QColor(isFault ? FaultColor : AppliedColor), 1, isFault ? Qt::SolidLine : Qt::DotLine);
        pen.setCosmetic(true);
        lines.push_back({seconds, pen, text});
    }
    const auto isEarlier = [](const chart::VerticalLine &one, const chart::VerticalLine &other) {
        return one.seconds < other.seconds;
    };
    std::sort(lines.begin(), lines.end(), isEarlier);
    return lines;
}

void StripArea::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        moveCursor(-1);
        return;
    case Qt::Key_Right:
        moveCursor(1);
        return;
    case Qt::Key_PageUp:
        pan(-PanPerKey * m_window.span());
        return;
    case Qt::Key_PageDown:
        pan(PanPerKey * m_window.span());
        return;
    case Qt::Key_Plus:
        zoom(1 / ZoomPerKey, m_window.end());
        return;
    case Qt::Key_Minus:
        zoom(ZoomPerKey, m_window.end());
        return;
    case Qt::Key_Return:
        onClicked();
        return;
    case Qt::Key_Escape:
        clearCursors();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

Strip *StripArea::stripAt(const QPoint &place) const
{
    const auto found = std::find_if(m_strips.begin(), m_strips.end(),
                                    [&place](const Strip *strip) { return strip->geometry().contains(place); });
    return found == m_strips.end() ? nullptr : *found;
}

void StripArea::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    const QString values = valuesText();
    menu.addAction(tr("&Copy values"), this, [&values] { QApplication::clipboard()->setText(values); });
    menu.addAction(tr("C&lear the cursors"), this, &StripArea::clearCursors);
    if (Strip *strip = stripAt(event->pos())) {
        const QString key = strip->key();
        const auto choose = [this, key](const std::optional<recording::Extent> &range) {
            setFixedRange(key, range);
            Q_EMIT rangeChosen(key);
            changed();
        };
        const recording::Extent shown{strip->range().lower(), strip->range().upper()};
        menu.addSeparator();
        QAction *automatic = menu.addAction(tr("&Automatic range"), this, [&] { choose(std::nullopt); });
        automatic->setCheckable(true);
        automatic->setChecked(!strip->range().isFixed());
        menu.addAction(tr("&Fixed range\u2026"), this, [&] {
            if (const auto range = askForRange(this, shown))
                choose(range);
        });
    }
    menu.exec(event->globalPos());
}

void StripArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    shareHeight();
    refresh(); // other pixels, other samples
}

} // namespace plot
