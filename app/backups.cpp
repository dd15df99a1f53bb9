#include "app/backups.h"

#include "app/boxes.h"
#include "profile/profilefile.h"
#include "session/connection.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

#include <utility>

using dialogs::ComparisonDialog;
using profile::Obstacle;
using profile::Profile;

namespace {

const QString SettingsGroup = QStringLiteral("parameter files");
const QString FolderKey = QStringLiteral("folder");
const QString Suffix = QStringLiteral("zservo");

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
    {Obstacle::MotorOn,      QT_TRANSLATE_NOOP("Backups", "Nothing was written: the motor is on.")},
    {Obstacle::MotorStaysOn, QT_TRANSLATE_NOOP("Backups", "Nothing was restored: the motor could not be switched off.")},
    {Obstacle::Locked,       QT_TRANSLATE_NOOP("Backups", "Nothing was written: the servo's lock is on, so that it keeps its parameters. Switch its supply off and on.")},
    {Obstacle::Unreadable,   QT_TRANSLATE_NOOP("Backups", "Nothing was written: with the status return level 0 the servo could not be read any more, so that nothing would be proved.")},
};
// clang-format on

} // namespace

Backups::Backups(QWidget &window, const QWidget &view, const Link &link, Port port)
    : m_window(window), m_link(link), m_port(std::move(port)), m_text(view), m_settings(SettingsGroup)
{
    m_servoActions = {makeAction("actionBackUp", tr("&Back up…"), &Backups::askAndBackUp),
                      makeAction("actionCompare", tr("&Compare with…"), &Backups::askAndCompare),
                      makeAction("actionRestore", tr("&Restore…"), &Backups::askAndRestore)};
    connect(&link.connection, &session::Connection::stateChanged, this, &Backups::onStateChanged);
    connect(&link.connection, &session::Connection::polled, this, &Backups::onPolled);
    refresh();
}

Backups::~Backups() = default;

QAction *Backups::makeAction(const char *name, const QString &text, void (Backups::*slot)())
{
    auto *action = new QAction(text, &m_window);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void Backups::addTo(QMenu &menu)
{
    for (QAction *action : m_servoActions)
        menu.addAction(action);
}

void Backups::onStateChanged(session::State state)
{
    if (state != session::State::Connected)
        m_servo.reset();
    refresh();
}

void Backups::onPolled(const model::RegisterImage &image)
{
    const bool isFirst = !m_servo;
    m_servo.reset();
    if (image.isKnown(0, image.family().tableSize))
        m_servo = Profile::of(image, QDateTime::currentDateTimeUtc());
    m_isMotorOn = image.raw(image.family().motorSwitch()).value_or(0) != 0;
    if (isFirst)
        refresh();
    if (m_dialog)
        m_dialog->setMotorOn(m_isMotorOn);
}

void Backups::refresh()
{
    for (QAction *action : m_servoActions) {
        action->setEnabled(m_servo.has_value());
        action->setToolTip(m_servo ? QString() : tr("Connect to a servo first."));
    }
    if (m_dialog && !m_restoration)
        m_dialog->setHindrance(m_servo ? QString() : tr("The servo does not answer any more."));
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

QString Backups::askForFile(const QString &title)
{
    const QString path = QFileDialog::getOpenFileName(&m_window, title, folder(), QStringLiteral("*.") + Suffix);
    if (!path.isEmpty())
        rememberFolder(path);
    return path;
}

void Backups::askAndBackUp()
{
    if (!m_servo)
        return;
    QFileDialog dialog(&m_window, tr("Back up"), folder(), QStringLiteral("*.") + Suffix);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Suffix);
    dialog.selectFile(profile::proposedName(*m_servo));
    if (dialog.exec() != QDialog::Accepted)
        return;
    rememberFolder(dialog.selectedFiles().value(0));
    backUp(dialog.selectedFiles().value(0));
}

void Backups::backUp(const QString &path)
{
    if (!m_servo) {
        tellError(tr("Not backed up"), path, tr("The servo does not answer any more."));
        return;
    }
    const auto result = profile::writeFile(path, *m_servo);
    if (!result.isDone())
        tellError(tr("Not backed up"), path, result.text);
}

void Backups::askAndCompare()
{
    const QString path = askForFile(tr("Compare with"));
    if (!path.isEmpty())
        open(path, Purpose::Compare);
}

void Backups::askAndRestore()
{
    const QString path = askForFile(tr("Restore"));
    if (!path.isEmpty())
        open(path, Purpose::Restore);
}

void Backups::open(const QString &path, Purpose purpose)
{
    const profile::Reading reading = profile::readFile(path);
    if (reading.profile)
        show(*reading.profile, QFileInfo(path).fileName(), reading.edits, purpose);
    else
        tellError(tr("Not opened"), path, reading.error);
}

QString Backups::servoName() const
{
    return tr("Servo %1 on %2").arg(m_link.connection.address().id).arg(m_port.name());
}

/** What is no obstacle but might be a mistake. */
QStringList Backups::notesOn(const Profile &file) const
{
    QStringList notes;
    if (file.id && m_servo->id && *file.id != *m_servo->id)
        notes.append(tr("These are the parameters of servo %1.").arg(*file.id));
    if (file.firmware && *file.firmware != m_servo->firmware)
        notes.append(tr("They are from firmware %1, but the servo has firmware %2.")
                         .arg(*file.firmware)
                         .arg(m_servo->firmware.value_or(0)));
    return notes;
}

void Backups::show(const Profile &file, const QString &name, QStringList notes, Purpose purpose)
{
    if (!m_servo)
        return;
    if (file.model != m_servo->model) {
        boxes::tell(&m_window, QMessageBox::Warning, tr("Another model"),
                    tr("%1 has the parameters of a %2, model %3. The servo is a %4, model %5.")
                        .arg(name, QLatin1String(file.family().name))
                        .arg(file.model)
                        .arg(QLatin1String(m_servo->family().name))
                        .arg(m_servo->model));
        return;
    }
    delete m_dialog;
    m_restoration.reset();
    m_dialog =
        new ComparisonDialog(m_text, {*m_servo, file, servoName(), name, notesOn(file) + notes}, purpose, &m_window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setModal(true);
    m_dialog->setMotorOn(m_isMotorOn);
    connect(m_dialog, &ComparisonDialog::restoreWanted, this, &Backups::restore);
    connect(m_dialog, &ComparisonDialog::stopWanted, this, [this] { m_restoration->stop(); });
    connect(
        m_dialog, &ComparisonDialog::restoreOfferWanted, this,
        [this, file, name, notes] { show(file, name, notes, Purpose::Restore); }, Qt::QueuedConnection);
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
    m_openBaudRate = address.baudRate;
    m_port.takeOver();
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
    const QString rest = report.hasWritten ? tr("What was written is not proved; the same restore again does the rest.")
                                           : tr("Nothing was written.");
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
