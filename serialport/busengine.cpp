#include "serialport/busengine.h"

#include "serialport/lowlatency.h"
#include "serialport/porterrors.h"
#include "serialport/simulatedbuses.h"

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(lcLink, "zelvar.link", QtWarningMsg)
Q_LOGGING_CATEGORY(lcWire, "zelvar.wire", QtWarningMsg)

namespace {

using Operation = BusRequest::Operation;

constexpr int ReadAttempts = 1 + 2;
constexpr int WriteAttempts = 1 + 5;
/** A line counts as drained when nothing came for this long: more than a byte at the slowest rate. */
constexpr Exchange::Duration DrainSilence = std::chrono::milliseconds(3);
/** A line that never falls silent is not waited for longer than this many silences. */
constexpr int MaximumDrainRounds = 50;
/** Most data that both framings can write in one packet. */
constexpr int MaximumWriteSize = wire::protocol1::MaximumParameters - 1;

QString devicePath(const QString &portName)
{
    const auto buses = simulatedbuses::published();
    const auto bus = std::find_if(buses.begin(), buses.end(),
                                  [&](const simulatedbuses::Bus &candidate) { return candidate.name == portName; });
    return bus == buses.end() ? portName : bus->device;
}

} // namespace

BusEngine::BusEngine(wire::Framing first) : m_first(first), m_port(this), m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &BusEngine::onDeadline);
    connect(&m_port, &QSerialPort::readyRead, this, &BusEngine::onReadyRead);
    connect(&m_port, &QSerialPort::errorOccurred, this, &BusEngine::onPortError);
}

BusEngine::~BusEngine()
{
    close();
}

QString BusEngine::open(const QString &portName, int baudRate)
{
    close();
    if (portName.isEmpty())
        return PortErrors::noPortChosen();
    if (baudRate <= 0)
        return PortErrors::baudRateRefused(portName, baudRate);

    const QString path = devicePath(portName);
    m_port.setPortName(path);
    m_port.setBaudRate(baudRate);
    if (!m_port.open(QIODevice::ReadWrite))
        return whyNotOpened(portName, baudRate);
    requestLowLatency(m_port.handle());
    m_port.clear(); // what an earlier client asked for is not for us
    m_portName = portName;
    m_baudRate = baudRate;
    ++m_session;
    m_state = State::Idle;
    qCDebug(lcLink) << "opened" << portName << "at" << baudRate;
    return {};
}

QString BusEngine::whyNotOpened(const QString &portName, int baudRate)
{
    const QSerialPort::SerialPortError error = m_port.error();
    const QString systemText = m_port.errorString();
    m_port.clearError();
    if (error != QSerialPort::UnsupportedOperationError)
        return PortErrors::notOpened(portName, m_port.portName(), error, systemText);
    // Either the baud rate or every setting is refused, since this is no serial port at all: a rate that each serial
    // port takes tells which.
    m_port.setBaudRate(QSerialPort::Baud9600);
    const bool isSerialPort = m_port.open(QIODevice::ReadWrite);
    if (isSerialPort)
        m_port.close();
    m_port.clearError();
    return isSerialPort ? PortErrors::baudRateRefused(portName, baudRate)
                        : PortErrors::notOpened(portName, m_port.portName(), error, systemText);
}

void BusEngine::close()
{
    if (m_state == State::Closed)
        return;
    qCDebug(lcLink) << "closing" << m_portName << "with" << m_waiting.size() << "requests waiting";
    reset();
    m_port.close();
}

bool BusEngine::submit(const BusRequest &request, Notification onReply)
{
    ++m_newest; // refused or not: whoever asks has no use any more for a reply to what was asked before
    if (!isAcceptable(request))
        return false;
    if (joinReadUnderWay(request, onReply))
        return true;
    enqueue(request, std::move(onReply));
    if (m_state == State::Idle && !m_synchronous)
        startNext();
    return true;
}

bool BusEngine::runToEnd(const BusRequest &request, Notification onReply)
{
    if (!isAcceptable(request) || m_synchronous)
        return false;
    const quint64 session = m_session;
    const quint64 number = ++m_newest;
    bool isSent = false;
    enqueue(request, std::move(onReply));

    const QPointer<BusEngine> self(this);
    m_synchronous = true;
    const auto isUnderWay = [&] { return self && m_session == session && isOpen(); };
    while (isUnderWay()) {
        if (m_state == State::Draining && m_current.number == number)
            break; // it was sent once and nobody answered: the line may be drained without the caller
        if (m_state == State::Idle) {
            if (isSent || m_waiting.empty())
                break;
            startNext();
            isSent = isOpen() && m_current.number == number;
            continue;
        }
        const qint64 left = m_deadline.remainingTime();
        if (left <= 0)
            onDeadline();
        else if (m_port.waitForReadyRead(static_cast<int>(left)))
            receive();
    }
    if (!self)
        return isSent;
    m_synchronous = false;
    if (m_state == State::Idle)
        startNext();
    return isSent;
}

QByteArray BusEngine::takeReply()
{
    return std::exchange(m_reply, {});
}

bool BusEngine::isAcceptable(const BusRequest &request) const
{
    if (!isOpen() || request.id > wire::MaximumId)
        return false;
    return request.operation != Operation::Write ||
           (!request.data.isEmpty() && request.data.size() <= MaximumWriteSize);
}

void BusEngine::enqueue(const BusRequest &request, Notification onReply)
{
    if (request.operation == Operation::Read) {
        const auto isRead = [](const Job &job) { return job.request.operation == Operation::Read; };
        m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(), isRead), m_waiting.end());
    }
    m_waiting.push_back({request, std::move(onReply), m_newest});
}

bool BusEngine::joinReadUnderWay(const BusRequest &request, const Notification &onReply)
{
    if (!m_exchange || request.operation != Operation::Read || !(m_current.request == request))
        return false;
    const bool writeInBetween = std::any_of(m_waiting.begin(), m_waiting.end(),
                                            [](const Job &job) { return job.request.operation != Operation::Read; });
    if (writeInBetween)
        return false;
    m_waiting.clear(); // at most a read that this one is newer than
    m_current.onReply = onReply;
    m_current.number = m_newest;
    m_attempts = 1; // the newer read has repeats of its own
    return true;
}

void BusEngine::startNext()
{
    if (m_waiting.empty())
        return;
    m_current = std::move(m_waiting.front());
    m_waiting.pop_front();
    const auto known = m_framings.find(m_current.request.id);
    m_exchange = std::make_unique<Exchange>(
        m_current.request, m_first, known == m_framings.end() ? std::nullopt : std::make_optional(known->second),
        m_baudRate);
    m_attempts = 0;
    startAttempt();
}

void BusEngine::startAttempt()
{
    ++m_attempts;
    m_state = State::Exchanging;
    transmit(m_exchange->begin());
}

void BusEngine::transmit(const Exchange::Transmission &transmission)
{
    // The time runs from here and not from bytesWritten, which some drivers never report.
    waitFor(transmission.patience);
    if (transmission.packet.isEmpty())
        return;
    qCDebug(lcWire).noquote() << "->" << transmission.packet.toHex(' ');
    m_port.write(transmission.packet);
    if (isOpen())
        m_port.flush();
}

void BusEngine::waitFor(Exchange::Duration duration)
{
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(duration);
    m_deadline.setRemainingTime(milliseconds, Qt::PreciseTimer);
    m_timer.start(milliseconds);
}

void BusEngine::onReadyRead()
{
    if (!m_synchronous)
        receive();
}

void BusEngine::receive()
{
    if (!isOpen())
        return;
    const QByteArray bytes = m_port.readAll();
    if (bytes.isEmpty() || !isOpen())
        return;
    qCDebug(lcWire).noquote() << "<-" << bytes.toHex(' ');
    if (m_state == State::Draining && ++m_drainRounds < MaximumDrainRounds)
        waitFor(DrainSilence);
    if (m_state != State::Exchanging)
        return;

    const Exchange::Progress progress = m_exchange->take(bytes);
    if (const auto framing = m_exchange->answeredIn())
        m_framings[m_current.request.id] = *framing;
    switch (progress) {
    case Exchange::Progress::Waiting:
        return;
    case Exchange::Progress::Answered:
        finish(m_exchange->reply());
        return;
    case Exchange::Progress::Refused:
        qCDebug(lcLink) << "servo" << m_current.request.id << "refused a read";
        finish(std::nullopt);
        return;
    case Exchange::Progress::Garbled:
        attemptFailed();
        return;
    }
}

void BusEngine::onDeadline()
{
    if (m_state == State::Draining) {
        drainEnded();
        return;
    }
    if (m_state != State::Exchanging)
        return;
    if (const auto next = m_exchange->timeOut())
        transmit(*next);
    else
        attemptFailed();
}

void BusEngine::attemptFailed()
{
    qCDebug(lcLink) << "no valid answer from servo" << m_current.request.id << "in attempt" << m_attempts;
    m_state = State::Draining;
    m_drainRounds = 0;
    waitFor(DrainSilence);
}

void BusEngine::drainEnded()
{
    // Bytes may be there that the event loop had no time to deliver.
    const bool isSilent = !m_port.waitForReadyRead(0);
    if (!isOpen())
        return;
    m_port.readAll();
    if (!isSilent && ++m_drainRounds < MaximumDrainRounds) {
        waitFor(DrainSilence);
        return;
    }
    if (mayRepeat())
        startAttempt();
    else
        finish(std::nullopt);
}

bool BusEngine::mayRepeat() const
{
    switch (m_current.request.operation) {
    case Operation::Read:
        return m_attempts < ReadAttempts && m_current.number == m_newest;
    case Operation::Write:
        return m_attempts < WriteAttempts;
    case Operation::Reboot:
    case Operation::FactoryReset:
        return false;
    }
    Q_UNREACHABLE();
}

void BusEngine::finish(std::optional<QByteArray> reply)
{
    m_timer.stop();
    m_exchange.reset();
    m_state = State::Idle;
    const Notification onReply = std::exchange(m_current.onReply, nullptr);
    const bool isNewest = m_current.number == m_newest;

    if (reply && isNewest && onReply) {
        m_reply = *reply;
        // The callback may close the port or make requests; called from runToEnd(), it may even destroy this engine.
        const QPointer<BusEngine> self(this);
        onReply();
        if (!self)
            return;
    }
    if (m_state == State::Idle && !m_synchronous)
        startNext();
}

void BusEngine::onPortError(QSerialPort::SerialPortError error)
{
    const bool isLoss =
        error == QSerialPort::ReadError || error == QSerialPort::WriteError || error == QSerialPort::ResourceError;
    if (!isLoss || !isOpen())
        return;
    qCDebug(lcLink) << "lost" << m_portName << "by" << error;
    const QString reason = PortErrors::lost(m_portName);
    const quint64 session = m_session;
    // A broken descriptor reports its error without end: it has to go at once, before the event loop turns again.
    reset();
    m_port.close();
    const auto report = [this, session, reason] {
        if (m_session == session)
            Q_EMIT connectionLost(reason);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void BusEngine::reset()
{
    m_state = State::Closed;
    m_timer.stop();
    m_waiting.clear();
    m_exchange.reset();
    m_current = Job();
    m_reply.clear();
    m_framings.clear();
}
