#include "session/motorstop.h"

#include "model/families.h"

#include <QPointer>

#include <utility>

namespace session {

namespace {

using Operation = BusRequest::Operation;
using Urgency = ServoBus::Urgency;

constexpr char Off = 0;

/** Between two rounds, for the polls that wait meanwhile. */
constexpr std::chrono::milliseconds Pause{50};

/** How often everybody is told: what the line garbles is lost. */
constexpr int TimesToTellAll = 3;

} // namespace

const MotorStop::Dialect MotorStop::Dialects[] = {
    {&model::ZelvarV1Family, wire::Framing::Protocol2},
    {&model::DynamixelAx12Family, wire::Framing::Protocol1},
};

MotorStop::MotorStop(ServoBus &bus, Clock &clock)
    : m_bus(bus), m_patience(clock.makeAlarm(*this, [this] { Q_EMIT overdue(); })),
      m_pause(clock.makeAlarm(*this, [this] { startRound(); }))
{
}

MotorStop::~MotorStop() = default;

void MotorStop::begin(quint8 servoId, const model::Family *family)
{
    m_servoId = servoId;
    m_dialects.clear();
    for (const Dialect &dialect : Dialects) {
        if (!family || family == dialect.family)
            m_dialects.push_back(dialect);
    }
    if (!std::exchange(m_isRunning, true))
        m_patience->start(Patience);
    startRound();
}

void MotorStop::tellAll()
{
    for (int i = 0; i < TimesToTellAll; ++i) {
        for (const Dialect &dialect : Dialects)
            tell(wire::BroadcastId, dialect);
    }
}

void MotorStop::end()
{
    m_isRunning = false;
    m_patience->stop();
    m_pause->stop();
    withdraw();
}

void MotorStop::startRound()
{
    m_pause->stop();
    withdraw();
    m_unread = static_cast<int>(m_dialects.size());
    for (const Dialect &dialect : m_dialects)
        tell(m_servoId, dialect);
    for (const Dialect &dialect : m_dialects)
        look(dialect);
}

void MotorStop::withdraw()
{
    ++m_round;
    for (const ServoBus::Ticket ticket : std::exchange(m_tickets, {}))
        m_bus.withdraw(ticket);
}

void MotorStop::tell(quint8 id, const Dialect &dialect)
{
    const quint8 address = dialect.family->motorSwitch().address;
    const BusRequest request{Operation::Tell, id, address, 0, QByteArray(1, Off), dialect.framing};
    m_bus.request(request, nullptr, Urgency::Urgent);
}

void MotorStop::look(const Dialect &dialect)
{
    const model::Field &motor = dialect.family->motorSwitch();
    const BusRequest request{Operation::Read, m_servoId, motor.address, motor.size, {}, dialect.framing};
    const auto take = [self = QPointer<MotorStop>(this), round = m_round, dialect](const BusResult &result) {
        if (self && self->m_round == round)
            self->onRead(dialect, result);
    };
    m_tickets.push_back(m_bus.request(request, take, Urgency::Urgent));
}

void MotorStop::onRead(const Dialect &dialect, const BusResult &result)
{
    if (result.outcome == BusResult::Outcome::Answered) {
        if (result.data.at(0) == Off) {
            end();
            Q_EMIT proved();
            return;
        }
        m_dialects = {dialect}; // it has told which family it is
    }
    if (--m_unread == 0)
        m_pause->start(Pause);
}

} // namespace session
