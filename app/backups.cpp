#include "app/backups.h"

#include "app/boxes.h"
#include "app/linkline.h"
#include "dialogs/historymodel.h"
#include "profile/profilefile.h"
#include "profile/tunedgains.h"
#include "session/applyproof.h"
#include "session/connection.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using dialogs::ComparisonDialog;
using dialogs::HistoryDialog;
using profile::Obstacle;
using profile::Profile;

namespace {

const QString SettingsGroup = QStringLiteral("parameter files");
const QString FolderKey = QStringLiteral("folder");
const QString Suffix = QStringLiteral("zservo");

QString historyFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/history");
}

/** How long a silent servo is asked. */
constexpr std::chrono::milliseconds Patience{1000};

/** What to say of what was in a restore's way. */
struct ObstacleRow
{
    Obstacle obstacle;
    const char *text;
};
// clang-format off
const ObstacleRow Obstacles[] = {
    {Obstacle::Refused,      QT_TRANSLATE_NOOP("Backups", "Nothing was written: the servo refuses to be read.")},
    {Obstacle::OtherModel,   QT_TRANSLATE_NOOP("Backups", "Nothing was written: by now another servo answers, of another model.")},
    {Obstacle::OtherValues,  QT_TRANSLATE_NOOP("Backups", "Nothing was written: by now the servo has other values than those shown here. Close this and compare again.")},
    {Obstacle::MotorOn,      QT_TRANSLATE_NOOP("Backups", "Nothing was written: the motor is on.")},
    {Obstacle::MotorStaysOn, QT_TRANSLATE_NOOP("Backups", "Nothing was restored: the motor could not be switched off.")},
    {Obstacle::Locked,       QT_TRANSLATE_NOOP("Backups", "Nothing was written: the servo's lock is on, so that it keeps its parameters. Switch its supply off and on.")},
    {Obstacle::Unreadable,   QT_TRANSLATE_NOOP("Backups", "Nothing was written: with the status return level 0 the servo could not be read any more, so that nothing would be proved.")},
};
// clang-format on

} // namespace

Backups::Backups(QWidget &window, const QWidget &view, LinkLine &line, const Link &link, Port port)
    : m_window(window), m_line(line), m_link(link), m_port(std::move(port)), m_text(view), m_settings(SettingsGroup),
      m_history(historyFolder()), m_keeper(link.connection, link.proof, m_history)
{
    makeActions();
    connect(&link.connection, &session::Connection::stateChanged, this, &Backups::onStateChanged);
    connect(&link.connection, &session::Connection::polled, this, &Backups::onPolled);
    connect(&m_keeper, &HistoryKeeper::differs, this, &Backups::onDiffers);
    connect(&m_keeper, &HistoryKeeper::failed, this,
            [this](const QString &reason) { m_line.tell(tr("not kept in the history: %1").arg(reason)); });
    connect(&m_keeper, &HistoryKeeper::kept, this, [this] {
        if (m_historyDialog)
            m_historyDialog->reload();
    });
    connect(&line, &LinkLine::offerAccepted, this, [this] {
        if (m_before)
            show({*m_before, keptName(*m_before, dialogs::HistoryModel::timeText(m_before->time)), tr("Before"), {}},
                 Purpose::Compare);
    });
    refresh();
}

/** The dialogs read and write, as when a name that is being typed loses the focus, what ends here. */
Backups::~Backups()
{
    delete m_dialog;
    delete m_historyDialog;
}

void Backups::makeActions()
{
    m_servoActions = {
        makeAction("actionBackUp", tr("&Back up…"), [this] { askAndBackUp(); }),
        makeAction("actionCompare", tr("&Compare with…"), [this] { askAndOpen(tr("Compare with"), Purpose::Compare); }),
        makeAction("actionRestore", tr("&Restore…"), [this] { showHistory(HistoryDialog::Purpose::Restore); }),
        makeAction("actionReplace", tr("Re&place a servo…"), [this] { showHistory(HistoryDialog::Purpose::Replace); }),
    };
    m_keepGains = makeAction("actionKeepGains", tr("&Keep the tuned gains…"), [this] { showTunedGains(); });
    m_showHistory = makeAction("actionHistory", tr("Histor&y…"), [this] { showHistory(HistoryDialog::Purpose::Look); });
}

QAction *Backups::makeAction(const char *name, const QString &text, const std::function<void()> &act)
{
    auto *action = new QAction(text, &m_window);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, act);
    return action;
}

void Backups::addTo(QMenu &menu)
{
    for (QAction *action : m_servoActions)
        menu.addAction(action);
    menu.addActions({m_showHistory, m_keepGains});
}

void Backups::onStateChanged(session::State state)
{
    if (state != session::State::Connected) {
        m_isServoThere = false;
        m_unkept.clear();
        m_line.showUnkept({}, {});
    }
    refresh();
}

void Backups::onPolled(const model::RegisterImage &image)
{
    const bool wasThere = std::exchange(m_isServoThere, image.isKnown(0, image.family().tableSize));
    m_isMotorOn = image.raw(image.family().motorSwitch()).value_or(0) != 0;
    tellGains(image);
    if (wasThere != m_isServoThere)
        refresh();
    if (m_dialog)
        m_dialog->setMotorOn(m_isMotorOn);
}

void Backups::tellGains(const model::RegisterImage &image)
{
    const std::vector<profile::Pair> unkept = profile::differingGains(image);
    const auto isSame = [](const profile::Pair &one, const profile::Pair &other) {
        return one.field == other.field && one.servo == other.servo && one.file == other.file;
    };
    if (std::equal(unkept.begin(), unkept.end(), m_unkept.begin(), m_unkept.end(), isSame))
        return;
    m_unkept = unkept;
    refresh();
    QStringList lines{tr("A restart gives the servo its stored gains and profiles again. To store those in use: menu "
                         "Servo, Keep the tuned gains.")};
    for (const profile::Pair &pair : unkept)
        lines.append(tr("%1: %2 in use, %3 stored")
                         .arg(m_text.caption(*pair.field), m_text.value(*pair.field, pair.file),
                              m_text.value(*pair.field, pair.servo)));
    m_line.showUnkept(unkept.empty() ? QString() : tr("gains not kept"), lines.join(QLatin1Char('\n')));
}

void Backups::onDiffers(int count, const Profile &before)
{
    m_before = before;
    const QString text = HistoryKeeper::surprise(count, before.time.toLocalTime().date(), QDate::currentDate());
    const QString tip =
        tr("The history has other values for this id. Another servo may have it now, or what was changed "
           "without being stored was lost with the supply.");
    m_line.offer(text, text + QLatin1Char('\n') + tip, tr("Compare"));
}

void Backups::refresh()
{
    for (QAction *action : m_servoActions) {
        action->setEnabled(m_isServoThere);
        action->setToolTip(m_isServoThere ? QString() : tr("Connect to a servo first."));
    }
    m_keepGains->setEnabled(!m_unkept.empty());
    m_keepGains->setToolTip(m_unkept.empty() ? tr("The gains and profiles in use are the stored ones.") : QString());
    if (m_dialog && !m_restoration)
        m_dialog->setHindrance(m_isServoThere ? QString() : tr("The servo does not answer any more."));
    if (m_historyDialog)
        m_historyDialog->setConnected(m_isServoThere ? &m_link.image->family() : nullptr);
}

QString Backups::folder() const
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return m_settings.value(FolderKey, documents).toString();
}

void Backups::rememberFolder(const QString &path)
{
    m_settings.setValue(FolderKey, QFileInfo(path).absolutePath());
}

void Backups::askAndBackUp()
{
    if (m_isServoThere)
        askAndWrite(servo());
}

/** Has a profile of its own: what the history dialog shows may be loaded anew while the user chooses a name. */
void Backups::askAndWrite(Profile profile)
{
    QFileDialog dialog(&m_window, tr("Back up"), folder(), QStringLiteral("*.") + Suffix);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Suffix);
    dialog.selectFile(profile::proposedName(profile));
    if (dialog.exec() != QDialog::Accepted)
        return;
    rememberFolder(dialog.selectedFiles().value(0));
    write(dialog.selectedFiles().value(0), profile);
}

void Backups::backUp(const QString &path)
{
    if (m_isServoThere)
        write(path, servo());
}

void Backups::write(const QString &path, const Profile &profile)
{
    const auto result = profile::writeFile(path, profile);
    if (!result.isDone())
        tellError(tr("Not backed up"), path, result.text);
    else
        m_line.tell(tr("backed up: %1").arg(QFileInfo(path).fileName()), QDir::toNativeSeparators(path));
}

void Backups::askAndOpen(const QString &title, Purpose purpose)
{
    const QString path = QFileDialog::getOpenFileName(&m_window, title, folder(), QStringLiteral("*.") + Suffix);
    if (path.isEmpty())
        return;
    rememberFolder(path);
    open(path, purpose);
}

void Backups::open(const QString &path, Purpose purpose)
{
    const profile::Reading reading = profile::readFile(path);
    if (!reading.profile) {
        tellError(tr("Not opened"), path, reading.error);
        return;
    }
    QStringList notes = reading.edits;
    const int has = int(reading.profile->values.size());
    const int all = int(profile::nonVolatileFields(reading.profile->family()).size());
    if (has < all)
        notes.prepend(tr("The file has %1 of the %2 fields that a servo keeps.").arg(has).arg(all));
    show({*reading.profile, QFileInfo(path).fileName(), tr("File"), notes}, purpose);
}

void Backups::showHistory(HistoryDialog::Purpose purpose)
{
    delete m_historyDialog;
    const bool isReplacing = purpose == HistoryDialog::Purpose::Replace;
    m_historyDialog = new HistoryDialog(m_text, m_history, purpose, &m_window);
    m_historyDialog->setAttribute(Qt::WA_DeleteOnClose);
    const Purpose writing = isReplacing ? Purpose::Replace : Purpose::Restore;
    const auto shown = [this, writing](Purpose wanted) {
        return [this, writing, wanted](const Profile &profile, const QString &title) {
            show({profile, keptName(profile, title), tr("History"), {}, writing}, wanted);
        };
    };
    connect(m_historyDialog, &HistoryDialog::compareWanted, this, shown(Purpose::Compare));
    connect(m_historyDialog, &HistoryDialog::restoreWanted, this, shown(writing));
    connect(m_historyDialog, &HistoryDialog::saveWanted, this, &Backups::askAndWrite);
    connect(m_historyDialog, &HistoryDialog::restoreFileWanted, this,
            [this, writing] { askAndOpen(tr("Restore"), writing); });
    m_historyDialog->setConnected(m_isServoThere ? &m_link.image->family() : nullptr);
    if (m_isServoThere)
        m_historyDialog->showServo(isReplacing ? missingServo() : servoKey());
    m_historyDialog->show();
}

/** REQUIRES: the servo is there. */
profile::ServoKey Backups::servoKey() const
{
    const Profile present = servo();
    return {present.model, *present.id};
}

/** Another one of the same model as the connected servo, if there is one. */
profile::ServoKey Backups::missingServo() const
{
    const profile::ServoKey present = servoKey();
    for (const profile::KnownServo &known : m_history.servos()) {
        if (known.servo.model == present.model && known.servo.id != present.id)
            return known.servo;
    }
    return present;
}

void Backups::showTunedGains()
{
    if (!m_unkept.empty())
        show({profile::tunedGains(*m_link.image), tr("the gains and profiles in use"), tr("In use"), {}},
             Purpose::Keep);
}

/** REQUIRES: the servo is there. */
Profile Backups::servo() const
{
    return Profile::of(*m_link.image, QDateTime::currentDateTimeUtc());
}

QString Backups::servoName() const
{
    return tr("Servo %1 on %2").arg(m_link.connection.address().id).arg(m_port.name());
}

QString Backups::keptName(const Profile &profile, const QString &title)
{
    return tr("what servo %1 had: %2").arg(profile.id.value_or(0)).arg(title);
}

/** What is no obstacle but might be a mistake. */
QStringList Backups::notesOn(const Profile &file, const Profile &servo)
{
    QStringList notes;
    if (file.id && servo.id && *file.id != *servo.id)
        notes.append(tr("These are the parameters of servo %1.").arg(*file.id));
    if (file.firmware && *file.firmware != servo.firmware)
        notes.append(tr("They are from firmware %1, but the servo has firmware %2.")
                         .arg(*file.firmware)
                         .arg(servo.firmware.value_or(0)));
    return notes;
}

void Backups::show(const Source &source, Purpose purpose)
{
    if (!m_isServoThere)
        return;
    const Profile &file = source.file;
    const Profile servo = this->servo();
    if (file.model != servo.model) {
        boxes::tell(&m_window, QMessageBox::Warning, tr("Another model"),
                    tr("%1 has the parameters of a %2, model %3. The servo is a %4, model %5.")
                        .arg(source.name, QLatin1String(file.family().name))
                        .arg(file.model)
                        .arg(QLatin1String(servo.family().name))
                        .arg(servo.model));
        return;
    }
    delete m_dialog;
    m_restoration.reset();
    const dialogs::Subject subject{
        servo, file, servoName(), source.name, source.columnTitle, notesOn(file, servo) + source.notes};
    m_dialog = new ComparisonDialog(m_text, subject, purpose, &m_window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setModal(true);
    m_dialog->setMotorOn(m_isMotorOn);
    connect(m_dialog, &ComparisonDialog::restoreWanted, this, &Backups::restore);
    connect(m_dialog, &ComparisonDialog::stopWanted, this, [this] { m_restoration->stop(); });
    connect(
        m_dialog, &ComparisonDialog::restoreOfferWanted, this, [this, source] { show(source, source.next); },
        Qt::QueuedConnection);
    m_dialog->show();
}

void Backups::restore(const profile::RestoreWish &wish)
{
    const model::ServoAddress address = m_link.connection.address();
    m_dialog->showBegun();
    const auto open = [this](int baudRate) {
        if (std::exchange(m_openBaudRate, baudRate) == baudRate)
            return QString();
        return m_port.open(baudRate);
    };
    m_restoration = std::make_unique<profile::Restoration>(m_link.bus, open, Patience);
    // From the event loop, so that the restoration has returned from all that it does.
    connect(m_restoration.get(), &profile::Restoration::ended, this, &Backups::onRestored, Qt::QueuedConnection);
    m_keeper.expectChange();
    m_port.takeOver();
    m_openBaudRate = m_link.bus.isOpen() ? address.baudRate : 0;
    m_restoration->begin(address, wish);
}

void Backups::onRestored()
{
    const profile::RestoreReport report = m_restoration->report();
    if (m_dialog)
        m_dialog->showReport(report, obstacleText(report));
    // Whoever has taken the port, as to stop the motor, is not to be disturbed.
    if (report.obstacle != Obstacle::PortLost && report.obstacle != Obstacle::PortTaken)
        m_port.reconnect(report.address);
}

/** Empty when there was none. */
QString Backups::obstacleText(const profile::RestoreReport &report) const
{
    for (const ObstacleRow &row : Obstacles) {
        if (row.obstacle == report.obstacle)
            return tr(row.text);
    }
    QString rest = report.hasWritten ? tr("What was written is not proved; the same restore again does the rest.")
                                     : tr("Nothing was written.");
    const bool mayHaveMoved = report.hasWritten && report.wantedAddress != m_link.connection.address();
    if (mayHaveMoved && report.obstacle != Obstacle::Stopped)
        rest += QLatin1Char(' ') + tr("By now the servo may have the id %1 at %2 baud.")
                                       .arg(report.wantedAddress.id)
                                       .arg(report.wantedAddress.baudRate);
    switch (report.obstacle) {
    case Obstacle::AddressTaken:
        return tr("Nothing was written: another servo has the id %1 at %2 baud. Give that one another id first.")
            .arg(report.wantedAddress.id)
            .arg(report.wantedAddress.baudRate);
    case Obstacle::NoAnswer:
        return tr("The servo does not answer.") + QLatin1Char(' ') + rest;
    case Obstacle::PortLost:
        return (report.portError.isEmpty() ? tr("The port was lost.") : report.portError) + QLatin1Char(' ') + rest;
    case Obstacle::PortTaken:
    case Obstacle::Stopped:
        return tr("Stopped.") + QLatin1Char(' ') + rest;
    default:
        return {};
    }
}

void Backups::tellError(const QString &title, const QString &path, const QString &reason)
{
    boxes::tell(&m_window, QMessageBox::Warning, title,
                QStringLiteral("%1\n\n%2").arg(QDir::toNativeSeparators(path), reason));
}
