#include "plot/plotpane.h"

#include "chart/chart.h"
#include "model/families.h"
#include "plot/curves.h"
#include "plot/steprow.h"
#include "plot/striparea.h"
#include "recording/sampler.h"

#include <QActionGroup>
#include <QBuffer>
#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace plot {

using recording::Mark;

namespace {

const QString SettingsGroup = QStringLiteral("plot settings");
const QString SpanKey = QStringLiteral("span");
const QString FieldsKey = QStringLiteral("fields");
const QString RangesKey = QStringLiteral("ranges");

constexpr std::chrono::milliseconds RefreshInterval{100};
constexpr int Spans[] = {2, 5, 10, 30, 60, 120, 300, 600}; ///< seconds
constexpr int DefaultSpan = 30;
constexpr int SecondsPerMinute = 60;
constexpr int SpanDigits = 3;
/** Parts of what is seen that lie before the event when it holds the view. */
constexpr double BeforeApply = 0.2;
constexpr double BeforeFault = 0.8;

QString spanText(double seconds)
{
    const auto number = [](double value) { return QLocale().toString(value, 'g', SpanDigits); };
    return seconds < SecondsPerMinute ? PlotPane::tr("%1 s").arg(number(seconds))
                                      : PlotPane::tr("%1 min").arg(number(seconds / SecondsPerMinute));
}

} // namespace

PlotPane::PlotPane(recording::Sampler &sampler, const chart::Charts &charts, QWidget *parent)
    : QWidget(parent), m_sampler(sampler), m_charts(charts), m_settings(SettingsGroup), m_toolBar(new QToolBar(this)),
      m_area(new StripArea(charts, this)), m_steps(new StepRow(this)), m_cursor(new QLabel(this))
{
    setObjectName(QStringLiteral("plotPane"));
    setFocusProxy(m_area);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_area, 1);
    layout->addWidget(m_steps);
    addActions();
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(RefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &PlotPane::refresh);
    connect(&sampler, &recording::Sampler::sampled, this, &PlotPane::onSampled);
    connect(&sampler, &recording::Sampler::marked, this, &PlotPane::onMarked);
    connect(m_area, &StripArea::viewChanged, this, &PlotPane::showState);
    connect(m_area, &StripArea::rangeChosen, this, &PlotPane::storeRange);
    connect(m_steps, &StepRow::gainsWanted, this, &PlotPane::gainsWanted);
    loadRanges();
    m_live = {sampler.samples(), &sampler.marks(), sampler.origin().steady, sampler.unitOf(), {}};
    m_area->window().setSpan(Spans[m_span->currentIndex()]);
    showSource();
}

PlotPane::~PlotPane() = default;

QAction *PlotPane::addAction(const QString &name, const QString &text, const QString &tip, const QKeySequence &key)
{
    QAction *action = m_toolBar->addAction(text);
    action->setObjectName(name);
    action->setToolTip(key.isEmpty() ? tip
                                     : QStringLiteral("%1 (%2)").arg(tip, key.toString(QKeySequence::NativeText)));
    action->setShortcut(key);
    // Of the curves alone: elsewhere in the pane Space presses a button, and End belongs to the list.
    action->setShortcutContext(Qt::WidgetShortcut);
    m_area->addAction(action);
    return action;
}

QMenu *PlotPane::addMenu(const QString &name, const QString &text, const QString &tip)
{
    auto *button = new QToolButton(m_toolBar);
    button->setObjectName(name);
    button->setText(text);
    button->setToolTip(tip);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    m_toolBar->addWidget(button);
    return button->menu();
}

void PlotPane::addActions()
{
    m_pause = addAction(QStringLiteral("actionPlotPause"), tr("Pause"),
                        tr("Holds what is seen; samples are still kept"), Qt::Key_Space);
    m_pause->setCheckable(true);
    connect(m_pause, &QAction::toggled, this, &PlotPane::setPaused);
    m_goLive = addAction(QStringLiteral("actionPlotLive"), tr("Live"), tr("Back to the newest sample"), Qt::Key_End);
    connect(m_goLive, &QAction::triggered, this, &PlotPane::goLive);
    fillSpans();
    m_fields = addMenu(QStringLiteral("plotFieldsButton"), tr("Fields"), tr("Chooses what is shown"));
    fillTriggers();
    fillSaving();
    m_close = addAction(QStringLiteral("actionPlotCloseRecording"), tr("Close recording"),
                        tr("Shows the connected servo again"), {});
    m_close->setVisible(false);
    connect(m_close, &QAction::triggered, this, &PlotPane::closeRecording);
    m_cursor->setObjectName(QStringLiteral("plotCursorLabel"));
    m_cursor->setContentsMargins(8, 0, 0, 0);
    m_toolBar->addWidget(m_cursor);
}

void PlotPane::fillSpans()
{
    m_span = new QComboBox(m_toolBar);
    m_span->setObjectName(QStringLiteral("plotSpanComboBox"));
    m_span->setAccessibleName(tr("Time span"));
    m_span->setToolTip(tr("Time span; the wheel zooms, and dragging goes back in time"));
    const int stored = storedSpan();
    for (const int seconds : Spans) {
        m_span->addItem(spanText(seconds));
        if (seconds <= stored)
            m_span->setCurrentIndex(m_span->count() - 1);
    }
    connect(m_span, QOverload<int>::of(&QComboBox::activated), this, &PlotPane::chooseSpan);
    m_toolBar->addWidget(m_span);
}

/** In seconds. */
int PlotPane::storedSpan() const
{
    return m_settings.boundedInt(SpanKey, DefaultSpan, Spans[0], Spans[std::size(Spans) - 1]);
}

void PlotPane::fillTriggers()
{
    const std::tuple<Trigger, QString, QString> rows[] = {
        {Trigger::Never, QStringLiteral("actionPlotHoldNever"), tr("&Never")},
        {Trigger::Apply, QStringLiteral("actionPlotHoldApply"), tr("At each &Apply")},
        {Trigger::Fault, QStringLiteral("actionPlotHoldFault"), tr("At a &hardware error")},
    };
    QMenu *menu = addMenu(QStringLiteral("plotHoldButton"), tr("Hold"),
                          tr("Holds what is seen when something happens, with the time before it"));
    auto *group = new QActionGroup(this);
    for (const auto &[trigger, name, text] : rows) {
        QAction *action = menu->addAction(text);
        action->setObjectName(name);
        action->setCheckable(true);
        action->setChecked(trigger == m_trigger);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, chosen = trigger] { m_trigger = chosen; });
    }
}

void PlotPane::fillSaving()
{
    const std::tuple<Format, QString, QString> rows[] = {
        {Format::Png, QStringLiteral("actionPlotSavePng"), tr("Picture as &PNG\u2026")},
        {Format::Svg, QStringLiteral("actionPlotSaveSvg"), tr("Picture as &SVG\u2026")},
        {Format::Csv, QStringLiteral("actionPlotSaveCsv"), tr("Values as &CSV\u2026")},
    };
    QMenu *menu = addMenu(QStringLiteral("plotFileButton"), tr("File"), tr("Saves what is seen, or opens a recording"));
    for (const auto &[format, name, text] : rows) {
        QAction *action = menu->addAction(text, this, [this, wanted = format] { Q_EMIT saveWanted(wanted); });
        action->setObjectName(name);
    }
    menu->addSeparator();
    QAction *open = menu->addAction(tr("&Open a recording\u2026"), this, &PlotPane::openWanted);
    open->setObjectName(QStringLiteral("actionPlotOpen"));
}

const model::Family &PlotPane::family() const
{
    return source().family() ? *source().family() : model::ZelvarV1Family;
}

QStringList PlotPane::shownKeys() const
{
    const QString key = FieldsKey + QLatin1Char(' ') + QLatin1String(family().name);
    QStringList keys = m_settings.value(key, defaultKeys(family())).toStringList();
    if (m_recording) {
        QStringList there;
        for (const QString &shown : keys) {
            if (m_recorded.keys.contains(shown))
                there.append(shown);
        }
        keys = there.isEmpty() ? m_recorded.keys : there;
    }
    return keys;
}

void PlotPane::showSource()
{
    m_area->show(source(), family(), shownKeys());
    fillFields();
    refresh();
}

void PlotPane::fillFields()
{
    m_fields->clear();
    addFieldMenu(tr("&State"), model::Access::ReadOnly);
    addFieldMenu(tr("&Volatile parameters"), model::Access::Volatile);
    addFieldMenu(tr("&Non-volatile parameters"), model::Access::NonVolatile);
}

void PlotPane::addFieldMenu(const QString &title, model::Access access)
{
    QMenu *menu = m_fields->addMenu(title);
    const QStringList keys = shownKeys();
    for (const model::Field &field : family().fields) {
        if (field.access != access || !canBeShown(field) || !source().has(field))
            continue;
        QAction *action = menu->addAction(Curve{{&field, 0}, {}}.name(family()));
        action->setObjectName(QStringLiteral("plotField_") + QLatin1String(field.key));
        action->setCheckable(true);
        action->setChecked(keys.contains(QLatin1String(field.key)));
        connect(action, &QAction::toggled, this,
                [this, chosen = &field](bool isShown) { chooseField(*chosen, isShown); });
    }
}

void PlotPane::chooseField(const model::Field &field, bool isShown)
{
    QStringList keys = shownKeys();
    keys.removeAll(QLatin1String(field.key));
    if (isShown)
        keys.append(QLatin1String(field.key));
    m_settings.setValue(FieldsKey + QLatin1Char(' ') + QLatin1String(family().name), keys);
    m_area->show(source(), family(), keys);
}

void PlotPane::chooseSpan(int index)
{
    m_settings.setValue(SpanKey, Spans[index]);
    m_area->window().setSpan(Spans[index]);
    refresh();
}

void PlotPane::loadRanges()
{
    const QVariantMap ranges = m_settings.value(RangesKey, {}).toMap();
    for (auto range = ranges.begin(); range != ranges.end(); ++range) {
        const QVariantList ends = range->toList();
        const recording::Extent extent{ends.value(0).toDouble(), ends.value(1).toDouble()};
        if (extent.least < extent.greatest) // the store is a file that anybody may have edited
            m_area->setFixedRange(range.key(), extent);
    }
}

void PlotPane::storeRange(const QString &key)
{
    QVariantMap ranges = m_settings.value(RangesKey, {}).toMap();
    ranges.remove(key);
    if (const auto range = m_area->fixedRange(key))
        ranges[key] = QVariantList{range->least, range->greatest};
    m_settings.setValue(RangesKey, ranges);
}

void PlotPane::showRecording(recording::Recording recording, const QString &name)
{
    m_recording = std::move(recording);
    m_recorded = {m_recording->samples, &m_recording->marks, m_recording->origin.steady, m_sampler.unitOf(), {}};
    for (const recording::Column &column : m_recording->columns)
        m_recorded.keys.append(QLatin1String(column.field->key));
    m_close->setText(tr("Close %1").arg(name));
    m_close->setVisible(true);
    const recording::SampleStore &samples = *m_recorded.samples;
    if (!samples.isEmpty()) // all of it
        m_area->window().setSpan(m_recorded.seconds(samples.timeOf(samples.end() - 1)) -
                                 m_recorded.seconds(samples.timeOf(samples.first())));
    m_area->window().goLive(); // its end, that is
    showSource();
}

void PlotPane::closeRecording()
{
    m_recording.reset();
    m_recorded = {};
    m_close->setVisible(false);
    m_area->window().setSpan(storedSpan());
    m_area->window().goLive();
    showSource();
}

void PlotPane::setPaused(bool isPaused)
{
    if (isPaused)
        m_area->window().hold();
    else
        m_area->window().goLive();
    m_holdAt.reset();
    refresh();
}

void PlotPane::goLive()
{
    m_holdAt.reset();
    m_area->window().goLive();
    refresh();
}

void PlotPane::onSampled()
{
    const auto samples = m_sampler.samples();
    if (samples != m_live.samples) {
        m_live.samples = samples; // of another family
        if (!m_recording)
            showSource();
    }
    scheduleRefresh();
}

void PlotPane::onMarked(const Mark &mark)
{
    const double span = m_area->window().span();
    const double seconds = m_live.seconds(mark.when);
    const bool isApply = mark.kind == Mark::Kind::Applied || mark.kind == Mark::Kind::NotApplied;
    if (m_trigger == Trigger::Apply && isApply)
        m_holdAt = seconds + span * (1 - BeforeApply);
    // The first one stays in view: those that follow come of it.
    const bool isHeld = m_holdAt || !m_area->window().isLive();
    if (m_trigger == Trigger::Fault && mark.kind == Mark::Kind::Fault && !isHeld)
        m_holdAt = seconds + span * (1 - BeforeFault);
    if (m_holdAt && !m_recording)
        m_area->window().goLive(); // until it is there
    // The user may have chosen other units since the last connection.
    if (mark.kind == Mark::Kind::Link && !m_recording)
        m_area->show(source(), family(), shownKeys());
    scheduleRefresh();
}

void PlotPane::scheduleRefresh()
{
    if (isVisible() && !m_refresh.isActive())
        m_refresh.start();
}

void PlotPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    refresh();
}

void PlotPane::refresh()
{
    holdIfTriggered();
    refreshSteps();
    m_area->refresh();
    showState();
}

void PlotPane::holdIfTriggered()
{
    if (!m_holdAt || m_recording || m_live.isEmpty())
        return;
    const double newest = m_live.seconds(m_live.samples->timeOf(m_live.samples->end() - 1));
    if (newest < *m_holdAt)
        return;
    m_area->window().holdAt(*m_holdAt);
    m_holdAt.reset();
}

void PlotPane::refreshSteps()
{
    constexpr int StepsShown = 2;
    std::vector<recording::Step> steps;
    if (!source().isEmpty())
        steps = recording::latestSteps(*source().samples, *source().marks, source().unitOf, StepsShown);
    m_steps->setSteps(steps, family());
    m_area->setSteps(steps);
}

void PlotPane::showState()
{
    const bool isLive = m_area->window().isLive();
    m_goLive->setEnabled(!isLive);
    const QSignalBlocker blocker(m_pause);
    m_pause->setChecked(!isLive);
    showSpan();
    m_cursor->setText(m_area->cursorText());
}

/** Which the wheel may have made one that the list does not have. */
void PlotPane::showSpan()
{
    const double span = m_area->window().span();
    const auto *listed = std::find(std::begin(Spans), std::end(Spans), span);
    if (listed == std::end(Spans))
        m_span->setPlaceholderText(spanText(span));
    m_span->setCurrentIndex(listed == std::end(Spans) ? -1 : int(listed - std::begin(Spans)));
}

std::vector<recording::Column> PlotPane::columns() const
{
    return m_area->columns();
}

QByteArray PlotPane::contents(Format format) const
{
    switch (format) {
    case Format::Png:
        return png();
    case Format::Svg:
        return m_charts.svg(*m_area, tr("Plot"));
    case Format::Csv:
        return csv();
    }
    return {};
}

QByteArray PlotPane::png() const
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    m_area->grab().save(&file, "PNG");
    return file.data();
}

QByteArray PlotPane::csv() const
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    recording::CsvWriter writer(file, m_area->columns(), m_recording ? m_recording->origin : m_sampler.origin());
    QString error = writer.writeTitles();
    const auto takeMark = [&](const Mark &mark) {
        error = writer.writeEvent(mark.when, mark.fileText());
        return true;
    };
    const auto takeSample = [&](const model::RegisterImage &image) {
        error = writer.writeSample(image);
        return true;
    };
    if (!source().isEmpty())
        recording::goThrough(*source().samples, *source().marks, m_area->seenSpan(), takeMark, takeSample);
    Q_ASSERT(error.isEmpty()); // memory takes everything
    return file.data();
}

} // namespace plot
