#include "app/motorcontrol.h"

#include "app/boxes.h"
#include "app/linkline.h"
#include "controllers/operatingmode.h"
#include "device/uiregisterhelper.h"
#include "link/processwide.h"
#include "link/uischeduler.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "serialport/servobus.h"
#include "session/applyproof.h"
#include "widgets/uigrouphelper.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <iterator>
#include <utility>

using session::State;

namespace {

constexpr int StopKey = Qt::Key_F8;

/** Whether a block of @p data from @p address on covers @p field. */
bool covers(const model::Field &field, quint8 address, const QByteArray &data)
{
    return field.address >= address && field.end() <= address + data.size();
}

} // namespace

/** How the shaft is held in one mode: @p wanted gets what @p actual has, or 0 without one; or why it is not. */
struct MotorControl::HoldRow
{
    OperatingMode mode;
    const char *wanted;
    const char *actual;
    const char *whyNot;
};

// clang-format off
const MotorControl::HoldRow MotorControl::HoldRows[] = {
    {OperatingMode::Torque,    nullptr,                   nullptr,           QT_TRANSLATE_NOOP("MotorControl", "In the mode Torque the servo has no position to hold.")},
    {OperatingMode::Wheel,     "target_angular_velocity", nullptr,           nullptr},
    {OperatingMode::Joint,     "target_position",         "actual_position", nullptr},
    {OperatingMode::MultiTurn, "target_position",         "actual_position", nullptr},
    {OperatingMode::Stepper,   nullptr,                   nullptr,           QT_TRANSLATE_NOOP("MotorControl", "In the mode Stepper a target is a distance to go, and no position to hold.")},
};
// clang-format on

MotorControl::MotorControl(QWidget &window, const QWidget &view, LinkLine &line, const Link &link, Port port)
    : m_window(window), m_line(line), m_link(link), m_port(std::move(port)), m_text(view), m_stop(link.bus),
      m_stopAction(new QAction(tr("Stop &motor") + QLatin1String("\tF8"), &window)),
      m_holdAction(new QAction(tr("&Hold here"), &window)),
      m_stopAllAction(new QAction(tr("Stop &all on this bus"), &window))
{
    m_stopAction->setObjectName(QStringLiteral("actionStopMotor"));
    m_stopAction->setToolTip(line.stopButton().toolTip());
    m_holdAction->setObjectName(QStringLiteral("actionHoldHere"));
    m_stopAllAction->setObjectName(QStringLiteral("actionStopAll"));
    m_stopAllAction->setToolTip(
        tr("Tells every servo on the bus, of both families, to switch its motor off. That frees "
           "all shafts. Only the connected servo's stop is proved."));
    connect(m_stopAction, &QAction::triggered, this, &MotorControl::stopMotor);
    connect(m_holdAction, &QAction::triggered, this, &MotorControl::holdHere);
    connect(m_stopAllAction, &QAction::triggered, this, &MotorControl::stopAll);
    connect(&line.stopButton(), &QAbstractButton::pressed, this, &MotorControl::stopMotor);
    connect(&m_stop, &session::MotorStop::proved, this, &MotorControl::onProved);
    connect(&m_stop, &session::MotorStop::overdue, this, &MotorControl::onOverdue);
    connect(&link.connection, &session::Connection::polled, this, &MotorControl::onPolled);
    connect(&link.proof, &session::ApplyProof::read, this, &MotorControl::onProofRead);
    connect(&link.connection, &session::Connection::stateChanged, this, &MotorControl::onStateChanged);
    // Once it is queued: what would switch the motor on is not sent before the stop is proved.
    const auto onQueued = [this] {
        if (m_stop.isRunning())
            takeBackSwitchingOn();
    };
    connect(ProcessWide<UiGroupHelper>::instance().get(), &UiGroupHelper::addQueueRequest, this, onQueued,
            Qt::QueuedConnection);
    qApp->installEventFilter(this);
    showMotor();
    refreshHold();
}

MotorControl::~MotorControl() = default;

void MotorControl::addTo(QMenu &menu)
{
    menu.addActions({m_stopAction, m_holdAction, m_stopAllAction});
    menu.setToolTipsVisible(true);
}

// A shortcut would not reach through a modal dialog.
bool MotorControl::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != StopKey)
        return false;
    if (!key->isAutoRepeat())
        stopMotor();
    return true;
}

void MotorControl::stopMotor()
{
    m_isForAll = false;
    stop();
}

void MotorControl::stopAll()
{
    m_isForAll = true;
    stop();
}

void MotorControl::stop()
{
    if (m_link.connection.isUp() && m_link.bus.isOpen())
        beginStop(static_cast<quint8>(m_link.connection.servoAddress().id));
    else if (m_isWaiting)
        beginStop(m_port.servoId());
    else
        stopWithoutConnection();
}

void MotorControl::beginStop(quint8 servoId)
{
    if (m_isForAll)
        m_stop.tellAll();
    const model::Family *family = m_link.connection.isUp() ? m_link.connection.family() : nullptr;
    m_stop.begin(servoId, family);
    // From here on, what is already on its way.
    if (family)
        m_link.registers.assumeWritten(family->motorSwitch().address, QByteArray(1, '\0'));
    ProcessWide<UiGroupHelper>::instance()->motorStopped();
    m_link.proof.motorStopped();
    m_takenBack.clear();
    takeBackSwitchingOn();
    showMotor();
}

/** Waits until the stop is proved or overdue, so that nobody else, such as a scan, takes the port meanwhile. */
void MotorControl::stopWithoutConnection()
{
    const QString error = m_port.open();
    if (!error.isEmpty()) {
        setMotor(Motor::Unknown);
        tellMayBeOn(error);
        return;
    }
    m_stop.end(); // one that the port was taken from: this one has its own patience
    m_isOverdue = false;
    QEventLoop loop;
    connect(&m_stop, &session::MotorStop::proved, &loop, &QEventLoop::quit);
    connect(&m_stop, &session::MotorStop::overdue, &loop, &QEventLoop::quit);
    beginStop(m_port.servoId());
    const QPointer<MotorControl> self(this);
    m_isWaiting = true;
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!self)
        return;
    m_isWaiting = false;
    m_isOverdue = false;
    m_stop.end();
    m_port.close();
    showMotor();
}

void MotorControl::takeBackSwitchingOn()
{
    const model::Family *family = m_link.connection.family();
    if (!family)
        return;
    const auto edited = takeBack([&motor = family->motorSwitch()](quint8 address, const QByteArray &data) {
        return covers(motor, address, data) && data.at(motor.address - address) != 0;
    });
    if (edited.empty())
        return;
    m_takenBack = tr("not applied, since the motor was stopped: %1")
                      .arg(m_text.fields(edited).replace(QLatin1Char('\n'), QLatin1String(", ")));
    m_line.tell(m_takenBack);
}

/** @return what they were to change. */
std::vector<session::AppliedField> MotorControl::takeBack(const IsUnwanted &isUnwanted)
{
    std::vector<session::AppliedField> edited;
    const auto forget = [&](quint8 address, const QByteArray &data) {
        const auto fields = m_link.proof.takeBack(address, data);
        std::copy(fields.begin(), fields.end(), std::back_inserter(edited));
    };
    const auto isUnwantedRequest = [&](const BusRequest &request) {
        return request.operation == BusRequest::Operation::Write && isUnwanted(request.address, request.data);
    };
    if (const auto scheduler = m_scheduler.lock()) {
        const auto taken =
            scheduler->takeBack([&](const QueueRequest &request) { return isUnwanted(request.address, request.data); });
        for (const auto &request : taken)
            forget(request->address, request->data);
    }
    for (const BusRequest &request : m_link.bus.withdrawWaiting(isUnwantedRequest))
        forget(request.address, request.data);
    return edited;
}

void MotorControl::onProved()
{
    m_isOverdue = false;
    if (m_box)
        m_box->close();
    setMotor(Motor::Off);
    QString text = tr("motor stopped");
    if (m_isForAll)
        text = tr("motor stopped; the others on the bus were told, which proves nothing");
    if (!m_takenBack.isEmpty())
        text += QLatin1String("; ") + m_takenBack;
    m_line.tell(text, text + QLatin1Char('\n') + tr("The servo was read after the stop: its motor is off."));
    if (m_link.connection.isUp())
        readAgain([](const QByteArray &) {}); // everything else that is shown may be from before the stop
}

/** Reads the servo's whole table for the window and for @p take, which gets nothing when there is no answer. */
void MotorControl::readAgain(const TakeRegisters &take)
{
    const model::Family *family = m_link.connection.family();
    if (!family)
        return;
    BusRequest request;
    request.id = static_cast<quint8>(m_link.connection.servoAddress().id);
    request.length = static_cast<quint8>(family->tableSize);
    m_link.bus.request(request, [self = QPointer<MotorControl>(this), family, take](const BusResult &result) {
        if (!self || !self->m_link.connection.isUp() || self->m_link.connection.family() != family)
            return;
        const bool isAnswered = result.outcome == BusResult::Outcome::Answered;
        if (isAnswered)
            Q_EMIT self->read(result.data);
        take(isAnswered ? result.data : QByteArray());
    });
}

void MotorControl::onOverdue()
{
    m_isOverdue = true;
    setMotor(Motor::Unknown);
    tellMayBeOn(m_link.connection.isUp() ? tr("It is told to stop again and again until Disconnect.") : QString());
}

void MotorControl::tellMayBeOn(const QString &more)
{
    const QString text = tr("<h3>The motor may still be on: cut its supply.</h3>"
                            "<p>No answer of the servo has shown that its motor is off.</p><p>%1</p>")
                             .arg(more.toHtmlEscaped());
    m_line.tell(tr("stop not proved: the motor may still be on"));
    if (m_box)
        m_box->close();
    m_box = boxes::tellUrgently(&m_window, tr("The motor may still be on"), text);
}

void MotorControl::onPolled(const model::RegisterImage &image)
{
    const auto bits = image.bits(image.family().motorSwitch());
    if (!m_stop.isRunning())
        setMotor(!bits ? Motor::Unknown : *bits == 0 ? Motor::Off : Motor::On);
    refreshHold();
}

/** What a proof has read is newer than the latest poll, which may be seconds old. */
void MotorControl::onProofRead(const QByteArray &registers)
{
    model::RegisterImage image(m_link.connection.family());
    image.take(0, registers, {});
    onPolled(image);
}

void MotorControl::onStateChanged(State state)
{
    if (state == State::Disconnected && m_stop.isRunning() && !m_isWaiting) {
        m_stop.end();
        if (!std::exchange(m_isOverdue, false))
            tellMayBeOn({});
    }
    if (state == State::PortClosed && m_stop.isRunning())
        QMetaObject::invokeMethod(this, &MotorControl::stop, Qt::QueuedConnection); // it opens the port again
    if (state == State::Identifying)
        m_motor = Motor::Unknown;
    m_isStale = state != State::Connected && state != State::Disconnected;
    showMotor();
    refreshHold();
}

void MotorControl::setMotor(Motor motor)
{
    m_motor = motor;
    m_isStale = false;
    showMotor();
}

void MotorControl::showMotor()
{
    m_line.showMotor(motorText());
}

QString MotorControl::motorText() const
{
    if (m_stop.isRunning())
        return m_isOverdue ? tr("the motor may still be on") : tr("stopping the motor");
    if (m_motor == Motor::Unknown || m_isStale)
        return tr("motor not known");
    if (m_link.connection.isUp())
        return m_motor == Motor::On ? tr("motor on") : tr("motor off");
    return m_motor == Motor::On ? tr("the motor was left on") : tr("the motor was left off");
}

/** The row of the servo's mode; null while it is not known. */
const MotorControl::HoldRow *MotorControl::holdRow() const
{
    if (m_link.connection.state() != State::Connected || m_link.connection.family() != &model::ZelvarV1Family)
        return nullptr;
    const auto mode = m_link.registers.image()->raw(QLatin1String("operating_mode"));
    const auto found = std::find_if(std::begin(HoldRows), std::end(HoldRows),
                                    [mode](const HoldRow &row) { return mode == static_cast<qint32>(row.mode); });
    return found == std::end(HoldRows) ? nullptr : found;
}

QString MotorControl::whyNotHeld() const
{
    if (m_link.connection.state() != State::Connected)
        return tr("Connect to a servo first.");
    if (m_link.connection.family() != &model::ZelvarV1Family)
        return tr("Only servos of the Zelvar family can be held.");
    const HoldRow *row = holdRow();
    if (!row)
        return tr("The servo's operating mode is not known.");
    return row->whyNot ? tr(row->whyNot) : QString();
}

void MotorControl::refreshHold()
{
    const QString whyNot = whyNotHeld();
    m_holdAction->setEnabled(whyNot.isEmpty());
    m_holdAction->setToolTip(whyNot.isEmpty() ? tr("Makes the place where the servo is its target, or its target "
                                                   "velocity 0. The motor stays on, and nothing falls.")
                                              : whyNot);
}

void MotorControl::holdHere()
{
    const HoldRow *row = holdRow();
    if (!row || !row->wanted)
        return;
    const model::Family &family = *m_link.connection.family();
    const model::Field &wanted = family[row->wanted];
    const auto edited = takeBack([&](quint8 address, const QByteArray &data) { return covers(wanted, address, data); });
    if (!edited.empty()) {
        m_line.tell(tr("not applied, since the servo was to hold: %1")
                        .arg(m_text.fields(edited).replace(QLatin1Char('\n'), QLatin1String(", "))));
    }
    if (!row->actual) {
        writeHold(wanted, 0);
        return;
    }
    // Where it is now, and not where it was at the last tick.
    const model::Field &actual = family[row->actual];
    const BusRequest request{BusRequest::Operation::Read,
                             static_cast<quint8>(m_link.connection.servoAddress().id),
                             actual.address,
                             actual.size,
                             {}};
    const auto hold = [self = QPointer<MotorControl>(this), &wanted](const BusResult &result) {
        if (!self || !self->m_link.connection.isUp())
            return;
        if (result.outcome != BusResult::Outcome::Answered) {
            self->m_line.tell(tr("not held: the servo did not tell where it is"));
            return;
        }
        const auto *bytes = reinterpret_cast<const quint8 *>(result.data.constData());
        self->writeHold(wanted, model::littleEndian(bytes, result.data.size()));
    };
    m_link.bus.request(request, hold, ServoBus::Urgency::Urgent);
}

void MotorControl::writeHold(const model::Field &field, quint32 bits)
{
    QByteArray data(field.size, '\0');
    model::putLittleEndian(bits, field.size, reinterpret_cast<quint8 *>(data.data()));
    const BusRequest request{BusRequest::Operation::Write, static_cast<quint8>(m_link.connection.servoAddress().id),
                             field.address, 0, data};
    const auto prove = [self = QPointer<MotorControl>(this), &field, bits](const BusResult &result) {
        if (self && self->m_link.connection.isUp())
            self->onHoldWritten(field, bits, result);
    };
    m_link.bus.request(request, prove, ServoBus::Urgency::Urgent);
}

/** A servo may be set not to answer writes: what it has is the proof. */
void MotorControl::onHoldWritten(const model::Field &field, quint32 bits, const BusResult &result)
{
    if (result.outcome == BusResult::Outcome::Refused) {
        m_line.tell(tr("not held: %1").arg(m_text.refusal(result.error)));
        return;
    }
    readAgain([this, &field, bits](const QByteArray &registers) { judgeHold(field, bits, registers); });
}

void MotorControl::judgeHold(const model::Field &field, quint32 bits, const QByteArray &registers)
{
    if (registers.isEmpty()) {
        m_line.tell(tr("not held: the servo does not answer"));
        return;
    }
    model::RegisterImage image(m_link.connection.family());
    image.take(0, registers, {});
    const quint32 found = image.bits(field).value_or(~bits);
    m_line.tell(found == bits ? tr("holding: %1").arg(m_text.bitsText(field, bits))
                              : tr("not held: the servo still has %1").arg(m_text.bitsText(field, found)));
}
