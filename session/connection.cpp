#include "session/connection.h"

#include "link/uischeduler.h"
#include "model/baudrates.h"
#include "serialport/servobus.h"

#include <algorithm>
#include <utility>

namespace session {

namespace {

constexpr int MissedPolls = 3;
constexpr std::chrono::milliseconds LeastSilence{1000};
constexpr std::chrono::milliseconds IdentificationPatience{1000};

/** Whether servo and port, set to these nominal rates, would not understand each other. */
bool areApart(int baudRate, int portRate)
{
    constexpr int TolerancePercent = 3;
    return qAbs(baudRate - portRate) * 100 > TolerancePercent * portRate;
}

} // namespace

Connection::Connection(std::shared_ptr<const model::RegisterImage> image, ServoBus *bus, Clock &clock)
    : m_image(std::move(image)), m_clock(clock), m_alarm(clock.makeAlarm(*this, [this] { onAlarm(); }))
{
    if (bus)
        connect(bus, &ServoBus::requestFinished, this, &Connection::onRequestFinished);
}

Connection::~Connection() = default;

void Connection::begin(const model::ServoAddress &address)
{
    stopFollowing();
    m_address = m_servoAddress = address;
    m_family = nullptr;
    m_quality.reset();
    m_alarm->start(IdentificationPatience);
    enter(State::Identifying);
}

void Connection::follow(UiScheduler &scheduler, const model::Family &family, int pollingInterval)
{
    stopFollowing();
    m_scheduler = &scheduler;
    m_family = &family;
    m_patience = std::max(std::chrono::milliseconds(MissedPolls * pollingInterval), LeastSilence);
    connect(&scheduler, &UiScheduler::replyReceived, this, &Connection::onReply);
    connect(&scheduler, &UiScheduler::writeSent, this, &Connection::onWriteSent);
    m_alarm->start(m_patience);
    enter(State::Connected);
}

void Connection::portClosed()
{
    stopFollowing();
    enter(State::PortClosed);
}

void Connection::end()
{
    stopFollowing();
    enter(State::Disconnected);
}

void Connection::enter(State state)
{
    const State before = std::exchange(m_state, state);
    if (before != state)
        Q_EMIT stateChanged(state, before);
}

void Connection::stopFollowing()
{
    m_alarm->stop();
    if (m_scheduler)
        m_scheduler->disconnect(this);
    m_scheduler = nullptr;
}

void Connection::onReply()
{
    m_alarm->start(m_patience);
    // A servo that was to move and still answers at the old address has refused to.
    m_servoAddress = m_address;
    enter(State::Connected);
    Q_EMIT polled(*m_image);
}

void Connection::onAlarm()
{
    if (m_scheduler) {
        if (m_state != State::Moved) // which has told why already
            enter(State::Silent);
        return;
    }
    m_alarm->start(IdentificationPatience);
    enter(State::Unanswered);
    Q_EMIT identificationDue();
}

void Connection::onRequestFinished(const BusRequest &request, const BusResult &result)
{
    if (request.id != m_address.id)
        return;
    const bool isRead = request.operation == BusRequest::Operation::Read;
    if (request.operation == BusRequest::Operation::Write)
        Q_EMIT written({request.address, request.data, result});
    else if (isRead && m_scheduler && request.length == m_family->tableSize)
        onPollEnded(result);
}

void Connection::onPollEnded(const BusResult &result)
{
    m_quality.add(result, m_clock.now());
    constexpr quint8 HardwareBits =
        wire::VoltageErrorBit | wire::AngleLimitErrorBit | wire::OverheatingErrorBit | wire::OverloadErrorBit;
    const bool isFirstFraming = !result.answer.raw.isEmpty() && result.answer.framing == wire::Framing::Protocol1;
    m_reportedAlarms = isFirstFraming ? result.answer.instruction & HardwareBits : 0;
    Q_EMIT qualityChanged();
    if (result.outcome == BusResult::Outcome::NoAnswer)
        Q_EMIT pollLost();
    if (result.outcome != BusResult::Outcome::Refused)
        return;
    m_alarm->start(m_patience); // it is there
    enter(State::Refusing);
}

void Connection::onWriteSent(uint8_t address, const QByteArray &data)
{
    Q_EMIT writeSent(address, data);
    const model::ServoAddress after = addressAfter(address, data);
    if (after == m_address)
        return;
    m_servoAddress = after;
    enter(State::Moved);
}

model::ServoAddress Connection::addressAfter(uint8_t address, const QByteArray &data) const
{
    model::RegisterImage written(m_family);
    written.take(address, data, {});
    model::ServoAddress after = m_address;
    after.id = written.raw(QLatin1String("id")).value_or(after.id);
    const int baudRate = model::baudRateOf(written.raw(QLatin1String("baud_rate")).value_or(-1));
    // The code stands for a nominal rate, which the port's own may differ from a little.
    if (baudRate > 0 && areApart(baudRate, m_address.baudRate))
        after.baudRate = baudRate;
    return after;
}

} // namespace session
