#include "app/plotting.h"

#include "app/boxes.h"
#include "app/linkline.h"
#include "app/parameterfile.h"
#include "chart/chartlibrary.h"
#include "device/unitshelper.h"
#include "plot/plotpane.h"
#include "profile/profilefile.h"
#include "storage/replacefile.h"
#include "widgets/followeddevice.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QScreen>
#include <QStandardPaths>

#include <utility>

using plot::PlotPane;

namespace {

const QString SettingsGroup = QStringLiteral("plot settings");
const QString ShownKey = QStringLiteral("shown");
const QString FolderKey = QStringLiteral("folder");
const QString RecordAllKey = QStringLiteral("recordAllFields");

constexpr int TabsWidth = 1192;     ///< pixels, in which the tabs show all that they have
constexpr int LeastDockWidth = 420; ///< pixels, below which the pane is better off in a window of its own
constexpr QSize FloatingSize(900, 640);
constexpr std::chrono::seconds TellInterval{1};
constexpr std::chrono::minutes Past{10};

struct FormatRow
{
    PlotPane::Format format;
    const char *suffix;
};
constexpr FormatRow Formats[] = {
    {PlotPane::Format::Png, "png"},
    {PlotPane::Format::Svg, "svg"},
    {PlotPane::Format::Csv, "csv"},
};

QString suffixOf(PlotPane::Format format)
{
    for (const FormatRow &row : Formats) {
        if (row.format == format)
            return QLatin1String(row.suffix);
    }
    return {};
}

int chosenUnit(model::FieldKind kind)
{
    return currentUnits()->unitIndex(qint32(kind));
}

QString durationText(std::chrono::seconds duration)
{
    const auto seconds = duration.count();
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

/** Whether @p columns are fields of @p family; the families have keys in common. */
bool areOf(const model::Family &family, const std::vector<recording::Column> &columns)
{
    return columns.empty() || family.field(QLatin1String(columns[0].field->key)) == columns[0].field;
}

} // namespace

Plotting::Plotting(QMainWindow &window, LinkLine &line, const session::Connection &connection,
                   const session::ApplyProof &proof)
    : m_window(window), m_line(line), m_connection(connection), m_settings(SettingsGroup),
      m_sampler(connection, proof, chosenUnit),
      m_showPane(makeAction("actionPlot", tr("&Plot"), QStringLiteral("Ctrl+P"))),
      m_record(makeAction("actionRecord", tr("&Record to a file\u2026"), QStringLiteral("Ctrl+Shift+R"))),
      m_recordPast(makeAction("actionRecordPast", tr("Record &with the last ten minutes\u2026"), {})),
      m_recordAll(makeAction("actionRecordAll", tr("Record all &fields"), {}))
{
    for (QAction *action : {m_showPane, m_record, m_recordAll})
        action->setCheckable(true);
    m_recordAll->setToolTip(tr("All fields of the servo, or only those that the plot shows"));
    m_recordAll->setChecked(m_settings.value(RecordAllKey, true).toBool());
    connect(m_showPane, &QAction::triggered, this, &Plotting::setPaneShown);
    connect(m_record, &QAction::triggered, this, &Plotting::toggleRecording);
    connect(m_recordPast, &QAction::triggered, this, &Plotting::recordPast);
    connect(m_recordAll, &QAction::toggled, this, [this](bool isOn) { m_settings.setValue(RecordAllKey, isOn); });
    connect(&m_sampler, &recording::Sampler::sampled, this, &Plotting::onSampled);
    connect(&m_sampler, &recording::Sampler::marked, this, [this](const recording::Mark &mark) {
        if (m_recording)
            m_recording->add(mark);
    });
    m_reader.setMaxThreadCount(1);
    m_tellRecording.setInterval(TellInterval);
    connect(&m_tellRecording, &QTimer::timeout, this, &Plotting::showRecording);
}

Plotting::~Plotting()
{
    delete m_dock; // the pane looks at the sampler
}

QAction *Plotting::makeAction(const char *name, const QString &text, const QKeySequence &key)
{
    auto *action = new QAction(text, &m_window);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    return action;
}

void Plotting::addTo(QMenu &menu)
{
    menu.addActions({m_showPane});
    menu.addSeparator();
    menu.addActions({m_record, m_recordPast, m_recordAll});
}

void Plotting::restore()
{
    if (!m_settings.value(ShownKey, false).toBool() || !chart::load().charts)
        return;
    setPaneShown(true);
    // One that floats is shown before the window is: window managers lay it below, or do not show it at all.
    QTimer::singleShot(0, m_dock, [this] {
        if (!m_dock->isFloating())
            return;
        m_dock->hide();
        m_dock->show();
    });
}

void Plotting::store()
{
    m_settings.setValue(ShownKey, m_dock && !m_dock->isHidden());
}

void Plotting::setPaneShown(bool isShown)
{
    if (isShown && !m_dock)
        makeDock();
    m_showPane->setChecked(isShown && m_dock);
    if (!m_dock)
        return;
    m_dock->setVisible(isShown);
    if (isShown)
        m_pane->setFocus();
}

/** Tells the user if it cannot be made. */
void Plotting::makeDock()
{
    const chart::LoadResult library = chart::load();
    if (!library.charts) {
        boxes::tell(&m_window, QMessageBox::Warning, tr("Plot"),
                    tr("The plot cannot be shown, since a part of the program cannot be loaded. Installing the program "
                       "again helps.") +
                        QStringLiteral("\n\n") + library.error);
        return;
    }
    m_dock = new QDockWidget(tr("Plot"), &m_window);
    m_dock->setObjectName(QStringLiteral("plotDock"));
    m_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
    m_pane = new PlotPane(m_sampler, *library.charts, m_dock);
    m_dock->setWidget(m_pane);
    if (!m_window.restoreDockWidget(m_dock))
        placeDock();
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this] {
        const bool isShown = !m_dock->isHidden();
        m_showPane->setChecked(isShown);
        m_sampler.setCapacity(isShown ? recording::SampleStore::FullCapacity : recording::SampleStore::SmallCapacity);
    });
    connect(m_pane, &PlotPane::gainsWanted, this, &Plotting::gainsWanted);
    connect(m_pane, &PlotPane::openWanted, this, &Plotting::openFile);
    connect(m_pane, &PlotPane::saveWanted, this, [this](PlotPane::Format format) {
        const QByteArray contents = m_pane->contents(format); // what is seen now, not after the dialog
        const QString path = askWhereTo(tr("Save what is seen"), suffixOf(format));
        if (path.isEmpty())
            return;
        const storage::ReplaceResult result = storage::replaceFile(path, contents);
        if (!result.isDone())
            tellError(tr("Not saved"), path, result.text);
    });
}

/** Beside the tabs where there is room for it, else above the window. */
void Plotting::placeDock()
{
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_dock);
    const int room = m_window.width() - TabsWidth;
    if (m_window.isVisible() && room >= LeastDockWidth) {
        m_window.resizeDocks({m_dock}, {room}, Qt::Horizontal);
        return;
    }
    m_dock->setFloating(true);
    const QRect available = m_window.screen()->availableGeometry();
    QRect place(QPoint(), FloatingSize.boundedTo(available.size()));
    place.moveCenter(available.center());
    m_dock->setGeometry(place);
}

void Plotting::toggleRecording(bool isOn)
{
    if (isOn)
        askAndRecord(recording::TimePoint::max());
    else
        stopRecording();
    m_record->setChecked(m_recording != nullptr);
}

void Plotting::recordPast()
{
    askAndRecord(std::chrono::steady_clock::now() - Past);
}

void Plotting::askAndRecord(recording::TimePoint from)
{
    const QString path = askWhereTo(tr("Record to a file"), QStringLiteral("csv"));
    if (!path.isEmpty())
        recordFrom(path, from);
}

/** Of a servo that is not known yet, all fields are those of the own family. */
std::vector<recording::Column> Plotting::recordedColumns() const
{
    const auto samples = m_sampler.samples();
    const model::Family &family = samples ? samples->family() : model::RegisterImage().family();
    if (!m_recordAll->isChecked() && m_pane && areOf(family, m_pane->columns()))
        return m_pane->columns();
    return recording::allColumns(family, chosenUnit);
}

/** As far back as @p from, if samples are there. */
void Plotting::recordFrom(const QString &path, recording::TimePoint from)
{
    stopRecording();
    auto recording = std::make_unique<recording::FileRecording>(m_sampler.origin());
    const QString error = recording->begin(path, recordedColumns());
    if (!error.isEmpty()) {
        tellError(tr("Not recorded"), path, error);
        return;
    }
    m_recording = std::move(recording);
    connect(m_recording.get(), &recording::FileRecording::failed, this, &Plotting::onRecordingFailed);
    m_isParameterFileDue = true;
    m_tellRecording.start();
    showRecording();
    const auto samples = m_sampler.samples();
    if (!samples)
        return;
    const auto first = samples->lowerBound(from);
    if (first != samples->end())
        keepParameters(samples->image(first));
    m_recording->addPast(*samples, m_sampler.marks(), from);
}

void Plotting::stopRecording()
{
    m_tellRecording.stop();
    m_recording.reset();
    showRecording();
}

void Plotting::onRecordingFailed(const QString &reason)
{
    const QString path = m_recording->path();
    // Whoever tells of it is in the recording still.
    m_recording.release()->deleteLater();
    stopRecording();
    tellError(tr("Recording stopped"), path, reason);
}

void Plotting::onSampled(const model::RegisterImage &image)
{
    if (!m_recording)
        return;
    const bool isOfThisServo = areOf(image.family(), m_recording->columns());
    if (!isOfThisServo && m_recording->sampleCount() > 0) {
        onRecordingFailed(tr("The servo that is connected now has other fields."));
        return;
    }
    if (!isOfThisServo)
        recordFrom(m_recording->path(), recording::TimePoint::max()); // it was begun before any servo was known
    if (m_isParameterFileDue)
        keepParameters(image);
    if (m_recording)
        m_recording->add(image);
}

/** In a file beside the recording, once: what the servo has when it begins. */
void Plotting::keepParameters(const model::RegisterImage &image)
{
    if (!image.isKnown(0, image.family().tableSize))
        return; // the next one is whole
    m_isParameterFileDue = false;
    const auto profile = profile::Profile::of(image, m_sampler.origin().wallAt(image.lastRead()));
    const QString path = parameterfile::pathFor(m_recording->path(), profile);
    if (path.isEmpty())
        return;
    const storage::ReplaceResult result = profile::writeFile(path, profile);
    if (!result.isDone())
        tellError(tr("Parameters not written"), path, result.text);
}

void Plotting::showRecording()
{
    m_record->setChecked(m_recording != nullptr);
    if (!m_recording) {
        m_line.showRecording({}, {});
        return;
    }
    m_line.showRecording(
        tr("recording %1 \u00B7 %2 samples")
            .arg(durationText(m_recording->duration()), QLocale().toString(m_recording->sampleCount())),
        QDir::toNativeSeparators(m_recording->path()));
}

QString Plotting::suggestedPath(const QString &suffix) const
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QDir folder(m_settings.value(FolderKey, documents).toString());
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmmss"));
    const bool isKnown = m_sampler.samples() != nullptr;
    const QString servo = isKnown ? QStringLiteral("servo-%1").arg(m_connection.address().id) : QStringLiteral("servo");
    return folder.filePath(QStringLiteral("%1-%2.%3").arg(servo, time, suffix));
}

QString Plotting::askWhereTo(const QString &title, const QString &suffix)
{
    QFileDialog dialog(&m_window, title, suggestedPath(suffix), QStringLiteral("*.") + suffix);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(QFileInfo(suggestedPath(suffix)).fileName());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString path = dialog.selectedFiles().value(0);
    rememberFolder(path);
    return path;
}

void Plotting::rememberFolder(const QString &path)
{
    m_settings.setValue(FolderKey, QFileInfo(path).absolutePath());
}

void Plotting::openFile()
{
    const QString folder = QFileInfo(suggestedPath({})).absolutePath();
    const QString path =
        QFileDialog::getOpenFileName(&m_window, tr("Open a recording"), folder, QStringLiteral("*.csv"));
    if (path.isEmpty())
        return;
    rememberFolder(path);
    open(path);
}

void Plotting::open(const QString &path)
{
    setPaneShown(true);
    if (!m_pane)
        return;
    m_reader.start([this, path] {
        QFile file(path);
        const bool isOpen = file.open(QIODevice::ReadOnly);
        auto result = isOpen ? recording::readCsv(file.readAll()) : recording::ReadResult{{}, file.errorString()};
        QMetaObject::invokeMethod(this, [=] { showOpened(path, result); });
    });
}

void Plotting::showOpened(const QString &path, recording::ReadResult result)
{
    if (result.recording)
        m_pane->showRecording(std::move(*result.recording), QFileInfo(path).fileName());
    else
        tellError(tr("Not opened"), path, result.error);
}

void Plotting::tellError(const QString &title, const QString &path, const QString &reason)
{
    boxes::tell(&m_window, QMessageBox::Warning, title,
                QStringLiteral("%1\n\n%2").arg(QDir::toNativeSeparators(path), reason));
}
