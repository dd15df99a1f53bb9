#include "simulator/simulatedbus.h"

#include "simulator/baudcode.h"

#include <algorithm>

namespace simulator {

namespace {

/**
 * Silence after which the rest of a packet does not come any more. A servo on a wire waits 1.5 ms; a client's
 * process may be held up for longer than that between two halves of a packet which a real adapter sends
 * without a break.
 */
constexpr std::chrono::milliseconds PacketPatience(20);

/**
 * What is heard when two servos answer at once: a low level wins, and no two servos are in step to the bit,
 * which one byte of lag stands for.
 */
QByteArray collided(const QByteArray &first, const QByteArray &second)
{
    constexpr char IdleLine = '\xFF';
    QByteArray heard = first.leftJustified(std::max(first.size(), second.size() + 1), IdleLine);
    for (int i = 0; i < second.size(); ++i)
        heard[i + 1] = heard[i + 1] & second[i];
    return heard;
}

} // namespace

SimulatedBus::SimulatedBus(Servos servos) : m_servos(std::move(servos)) {}

void SimulatedBus::forgetPartialPacket()
{
    m_parser1.clear();
    m_parser2.clear();
}

std::vector<BusReply> SimulatedBus::receive(const QByteArray &bytes, int baudRate, SimulationTime now)
{
    if (now - m_lastReception > PacketPatience || baudRate != m_lastBaudRate)
        forgetPartialPacket();
    m_lastReception = now;
    m_lastBaudRate = baudRate;

    // Byte by byte, because a 2.0 packet may look like the beginning of a long 1.0 packet, which would
    // swallow the next real one: what was part of a 2.0 packet is over for the other framing. The reverse
    // cannot happen, as a 2.0 header is no beginning of a 1.0 packet.
    std::vector<BusReply> replies;
    for (const char byte : bytes) {
        m_parser1.append(QByteArray(1, byte));
        m_parser2.append(QByteArray(1, byte));
        auto packet = m_parser2.next();
        if (packet)
            m_parser1.clear();
        else
            packet = m_parser1.next();
        if (!packet)
            continue;
        for (BusReply &reply : answer(*packet, baudRate, now))
            replies.push_back(std::move(reply));
    }
    return replies;
}

std::vector<ISimulatedServo *> SimulatedBus::addressed(const wire::Packet &request, int baudRate) const
{
    std::vector<ISimulatedServo *> servos;
    for (const auto &servo : m_servos) {
        const bool isMeant = request.id == servo->id() || request.id == wire::BroadcastId;
        if (isMeant && servo->framing() == request.framing && baudcode::understands(servo->baudCode(), baudRate))
            servos.push_back(servo.get());
    }
    return servos;
}

std::vector<BusReply> SimulatedBus::answer(const wire::Packet &request, int baudRate, SimulationTime now)
{
    const bool isStatusPacket = request.framing == wire::Framing::Protocol2 && request.instruction == wire::Status;
    if (isStatusPacket)
        return {}; // another servo's reply, or an echo
    BusReply reply;
    reply.requestSize = request.raw.size();
    for (ISimulatedServo *servo : addressed(request, baudRate)) {
        servo->advance(now);
        const auto acknowledgeTime = servo->acknowledgeTime();
        const QByteArray status = servo->execute(request);
        if (status.isEmpty())
            continue;
        reply.bytes = reply.bytes.isEmpty() ? status : collided(reply.bytes, status);
        reply.acknowledgeTime = std::max(reply.acknowledgeTime, acknowledgeTime);
    }
    if (reply.bytes.isEmpty() || request.id == wire::BroadcastId)
        return {};
    return {reply};
}

void SimulatedBus::advance(SimulationTime now)
{
    for (const auto &servo : m_servos) {
        if (servo->isActive())
            servo->advance(now);
    }
}

bool SimulatedBus::isActive() const
{
    return std::any_of(m_servos.begin(), m_servos.end(), [](const auto &servo) { return servo->isActive(); });
}

} // namespace simulator
