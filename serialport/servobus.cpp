#include "serialport/servobus.h"

#include "serialport/busoperation.h"
#include "serialport/exchange.h"
#include "serialport/replylayout.h"
#include "serialport/serialline.h"

#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(lcLink, "zelvar.link", QtWarningMsg)
Q_LOGGING_CATEGORY(lcWire, "zelvar.wire", QtWarningMsg)

namespace {

using Outcome = BusResult::Outcome;

/** A line counts as drained when nothing came for this long: more than a byte at the slowest rate. */
constexpr Clock::Duration DrainSilence = std::chrono::milliseconds(3);
/** A line that never falls silent is not waited for longer than this many silences. */
constexpr int MaximumDrainRounds = 50;
/** Bytes that are kept of what comes between two exchanges: late answers, and not much of what nobody can use. */
constexpr int MostUnasked = 1024;

wire::Framing framingOf(unsigned char protocolGeneration)
{
    return protocolGeneration == 1 ? wire::Framing::Protocol1 : wire::Framing::Protocol2;
}

bool changesServo(const BusRequest &request)
{
    return BusOperation::of(request.operation).changesServo;
}

} // namespace

ServoBus::ServoBus(QObject *parent, unsigned char protocolGeneration)
    : QObject(parent), m_first(framingOf(protocolGeneration)), m_clock(SystemClock::instance())
{
    useLine(std::make_unique<SerialLine>(*this));
}

ServoBus::ServoBus(std::unique_ptr<BusLine> line, Clock &clock, QObject *parent, unsigned char protocolGeneration)
    : QObject(parent), m_first(framingOf(protocolGeneration)), m_clock(clock)
{
    useLine(std::move(line));
}

ServoBus::~ServoBus()
{
    close();
    callEnded();
}

std::chrono::microseconds ServoBus::longestAnswer(const BusRequest &request, int baudRate,
                                                  unsigned char protocolGeneration)
{
    return Exchange(request, framingOf(protocolGeneration), std::nullopt, baudRate).longestAnswer();
}

void ServoBus::useLine(std::unique_ptr<BusLine> line)
{
    m_alarm = m_clock.makeAlarm(*this, [this] { onAlarm(); });
    m_line = std::move(line);
    m_line->listen([this] { receive(); }, [this](const QString &reason) { onLineLost(reason); });
}

QString ServoBus::open(const QString &portName, int baudRate)
{
    close();
    QString error = m_line->open(portName, baudRate);
    if (!error.isEmpty())
        return error;
    m_baudRate = baudRate;
    ++m_session;
    m_state = State::Idle;
    qCDebug(lcLink) << "opened" << portName << "at" << baudRate;
    return {};
}

void ServoBus::close()
{
    if (!isOpen())
        return;
    qCDebug(lcLink) << "closing with" << m_waiting.size() << "requests waiting";
    reset(Outcome::Withdrawn);
    m_line->close();
}

bool ServoBus::accepts(const BusRequest &request) const
{
    return isOpen() && BusOperation::isPossible(request);
}

ServoBus::Ticket ServoBus::request(const BusRequest &request, Completion completion, Urgency urgency)
{
    const auto ticket = static_cast<Ticket>(++m_lastTicket);
    Job job{request, std::move(completion), ticket, urgency};
    if (!accepts(request)) {
        endLater(std::move(job), isOpen() ? Outcome::Withdrawn : Outcome::PortLost);
        return ticket;
    }
    insert(std::move(job));
    if (m_state == State::Idle)
        startNext();
    return ticket;
}

void ServoBus::withdraw(Ticket ticket)
{
    if (m_exchange && m_current.ticket == ticket) {
        m_current.isWithdrawn = true;
        return;
    }
    const auto found =
        std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Job &job) { return job.ticket == ticket; });
    if (found == m_waiting.end())
        return;
    endLater(std::move(*found), Outcome::Withdrawn);
    m_waiting.erase(found);
}

std::vector<BusRequest> ServoBus::withdrawWaiting(const std::function<bool(const BusRequest &)> &isUnwanted)
{
    const auto isKept = [&](const Job &job) { return !isUnwanted(job.request); };
    const auto firstUnwanted = std::stable_partition(m_waiting.begin(), m_waiting.end(), isKept);
    std::vector<BusRequest> withdrawn;
    for (auto job = firstUnwanted; job != m_waiting.end(); ++job) {
        withdrawn.push_back(job->request);
        endLater(std::move(*job), Outcome::Withdrawn);
    }
    m_waiting.erase(firstUnwanted, m_waiting.end());
    return withdrawn;
}

bool ServoBus::reclaim(Ticket ticket)
{
    if (!m_exchange || m_current.ticket != ticket)
        return false;
    if (std::any_of(m_waiting.begin(), m_waiting.end(), [](const Job &job) { return changesServo(job.request); }))
        return false;
    m_current.isWithdrawn = false;
    return true;
}

bool ServoBus::carryOut(const BusRequest &request, const Completion &completion)
{
    bool isEnded = false;
    bool isSent = false;
    // Called in any case, be it from the destructor, so the references are good.
    this->request(request, [&](const BusResult &result) {
        isEnded = true;
        isSent = result.attempts > 0;
        if (completion)
            completion(result);
    });
    const QPointer<ServoBus> self(this);
    while (self && !isEnded) {
        if (!m_ended.empty()) { // by a loss, or by what a completion did
            callEnded();
            continue;
        }
        const Clock::Duration left = std::chrono::duration_cast<Clock::Duration>(m_deadline - m_clock.now());
        if (left <= Clock::Duration(0))
            onAlarm();
        else if (m_line->waitForReceived(left))
            receive();
    }
    return isSent;
}

void ServoBus::insert(Job job)
{
    const auto isNormal = [](const Job &waiting) { return waiting.urgency == Urgency::Normal; };
    const auto place =
        job.urgency == Urgency::Normal ? m_waiting.end() : std::find_if(m_waiting.begin(), m_waiting.end(), isNormal);
    m_waiting.insert(place, std::move(job));
}

void ServoBus::startNext()
{
    if (m_waiting.empty())
        return;
    m_current = std::move(m_waiting.front());
    m_waiting.pop_front();
    const auto known = m_framings.find(m_current.request.id);
    m_exchange = std::make_unique<Exchange>(
        m_current.request, m_first, known == m_framings.end() ? std::nullopt : std::make_optional(known->second),
        m_baudRate);
    // Nothing that is here by now answers what was not asked yet, unless it is of use whoever was asked.
    const QByteArray unasked = std::exchange(m_unasked, {});
    const bool isForWhoeverAnswers = m_exchange->operation().isForWhoeverAnswers;
    if (!isForWhoeverAnswers)
        m_line->discardReceived();
    if (isOpen())
        startAttempt();
    if (isOpen() && isForWhoeverAnswers)
        m_exchange->take(unasked);
}

void ServoBus::startAttempt()
{
    m_state = State::Exchanging;
    const Exchange::Transmission transmission = m_exchange->begin();
    transmit(transmission.packet, transmission.patience);
    if (isOpen())
        ++m_current.attempts;
}

void ServoBus::transmit(const QByteArray &packet, Clock::Duration patience)
{
    // The time runs from here, and not from when the packet has been sent, which some drivers never report.
    waitFor(patience);
    if (packet.isEmpty())
        return;
    qCDebug(lcWire).noquote() << "->" << packet.toHex(' ');
    m_line->send(packet);
}

void ServoBus::waitFor(Clock::Duration duration)
{
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(duration);
    m_deadline = m_clock.now() + milliseconds;
    m_alarm->start(milliseconds);
}

void ServoBus::receive()
{
    if (!isOpen())
        return;
    const QByteArray bytes = m_line->takeReceived();
    if (bytes.isEmpty() || !isOpen())
        return;
    qCDebug(lcWire).noquote() << "<-" << bytes.toHex(' ');
    const bool isDraining = m_state == State::Draining;
    if (isDraining)
        waitFor(++m_drainRounds < MaximumDrainRounds ? DrainSilence : Clock::Duration(0));
    if (!m_exchange) {
        if (m_state == State::Idle)
            m_unasked = (m_unasked + bytes).right(MostUnasked);
        return;
    }

    // On a line that holds answers back they come while it is drained for the repeat, and count all the same.
    switch (m_exchange->take(bytes)) {
    case Exchange::Progress::Waiting:
        return;
    case Exchange::Progress::Answered:
        finish(Outcome::Answered, isDraining ? State::Draining : State::Idle);
        return;
    case Exchange::Progress::Refused:
        qCDebug(lcLink) << "servo" << m_current.request.id << "refused a request";
        finish(Outcome::Refused, isDraining ? State::Draining : State::Idle);
        return;
    case Exchange::Progress::Garbled:
        if (!isDraining)
            attemptFailed();
        return;
    }
}

void ServoBus::onAlarm()
{
    if (m_state == State::Draining) {
        drainEnded();
        return;
    }
    if (m_state != State::Exchanging)
        return;
    if (m_exchange->operation().isForWhoeverAnswers)
        finish(m_exchange->heardWhoWasAsked() ? Outcome::Answered : withoutAnswer(), State::Idle);
    else if (const auto next = m_exchange->timeOut())
        transmit(next->packet, next->patience);
    else
        attemptFailed();
}

void ServoBus::attemptFailed()
{
    qCDebug(lcLink) << "no valid answer from servo" << m_current.request.id << "in attempt" << m_current.attempts;
    m_drainRounds = 0;
    m_state = State::Draining;
    waitFor(DrainSilence);
    if (!mayRepeat())
        finish(withoutAnswer(), State::Draining);
}

void ServoBus::drainEnded()
{
    // Bytes may be there that the event loop had no time to deliver.
    const bool isSilent = !m_line->waitForReceived(Clock::Duration(0));
    if (!isOpen())
        return;
    if (!isSilent && m_drainRounds < MaximumDrainRounds) {
        receive();
        return;
    }
    m_line->takeReceived();
    m_state = State::Idle;
    if (!m_exchange)
        startNext();
    else if (mayRepeat())
        startAttempt();
    else
        finish(withoutAnswer(), State::Idle);
}

bool ServoBus::mayRepeat() const
{
    const bool isCut =
        m_current.urgency == Urgency::Normal && !m_waiting.empty() && m_waiting.front().urgency == Urgency::Urgent;
    return !m_current.isWithdrawn && !isCut && m_current.attempts < m_exchange->operation().attempts;
}

BusResult::Outcome ServoBus::withoutAnswer() const
{
    return m_current.isWithdrawn ? Outcome::Withdrawn : Outcome::NoAnswer;
}

void ServoBus::finish(Outcome outcome, State next)
{
    BusResult result;
    result.outcome = outcome;
    result.attempts = m_current.attempts;
    if (m_exchange->operation().isForWhoeverAnswers) {
        result.heard = m_exchange->heard();
        result.hasEcho = m_exchange->hasEcho();
        result.strayBytes = m_exchange->strayBytes();
    }
    if (const auto &answer = m_exchange->answer()) {
        m_framings[m_current.request.id] = answer->framing;
        result.answer = *answer;
        result.error = replylayout::errorByte(*answer);
        if (outcome == Outcome::Answered)
            result.data = answer->parameters;
    }
    m_exchange.reset();
    m_state = next; // an alarm that rings while nothing is under way says nothing
    const QPointer<ServoBus> self(this);
    complete(std::exchange(m_current, {}), result);
    if (self && m_state == State::Idle)
        startNext();
}

void ServoBus::onLineLost(const QString &reason)
{
    if (!isOpen())
        return;
    qCDebug(lcLink) << reason;
    reset(Outcome::PortLost);
    m_line->close();
    const auto report = [this, session = m_session, reason] {
        if (m_session == session)
            Q_EMIT connectionLost(reason);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void ServoBus::reset(Outcome outcome)
{
    m_state = State::Closed;
    m_alarm->stop();
    if (std::exchange(m_exchange, nullptr))
        endLater(std::exchange(m_current, {}), outcome);
    for (Job &job : std::exchange(m_waiting, {}))
        endLater(std::move(job), outcome);
    m_framings.clear();
    m_unasked.clear();
}

void ServoBus::endLater(Job job, Outcome outcome)
{
    if (m_ended.empty())
        QMetaObject::invokeMethod(this, &ServoBus::callEnded, Qt::QueuedConnection);
    BusResult result;
    result.outcome = outcome;
    result.attempts = job.attempts;
    m_ended.push_back({std::move(job), result});
}

void ServoBus::callEnded()
{
    // Also when one of them destroys this bus, each of the others is called.
    const QPointer<ServoBus> self(this);
    for (const auto &[job, result] : std::exchange(m_ended, {})) {
        if (self)
            complete(job, result);
        else if (job.completion)
            job.completion(result);
    }
}

void ServoBus::complete(const Job &job, const BusResult &result)
{
    const QPointer<ServoBus> self(this);
    if (job.completion)
        job.completion(result);
    if (self)
        Q_EMIT requestFinished(job.request, result);
}
