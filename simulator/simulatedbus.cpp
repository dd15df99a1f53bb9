#include "simulator/simulatedbus.h"

#include "serialport/crc16.h"
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
        for (BusReply &reply : answer(*packet, {baudRate, now}))
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

std::vector<BusReply> SimulatedBus::answer(const wire::Packet &request, const Moment &moment)
{
    const bool isStatusPacket = request.framing == wire::Framing::Protocol2 && request.instruction == wire::Status;
    if (isStatusPacket)
        return {}; // another servo's reply, or an echo
    std::vector<BusReply> replies;
    if (const auto group = groupRequest(request)) {
        replies = answerToGroup(*group, moment);
    } else {
        BusReply reply = answerOfOne(request, moment);
        if (!reply.bytes.isEmpty() && request.id != wire::BroadcastId)
            replies.push_back(std::move(reply));
    }
    if (!replies.empty())
        replies.front().requestSize = request.raw.size();
    return replies;
}

std::vector<BusReply> SimulatedBus::answerToGroup(const GroupRequest &request, const Moment &moment)
{
    std::vector<BusReply> replies;
    if (request.replies == GroupReplies::Together) {
        replies.push_back(answerTogether(request, moment));
    } else {
        for (const wire::Packet &part : request.parts)
            replies.push_back(answerOfOne(part, moment));
    }
    const auto isNone = [&request](const BusReply &reply) {
        return request.replies == GroupReplies::None || reply.bytes.isEmpty();
    };
    replies.erase(std::remove_if(replies.begin(), replies.end(), isNone), replies.end());
    return replies;
}

BusReply SimulatedBus::answerTogether(const GroupRequest &request, const Moment &moment)
{
    constexpr int SizeBesideData = 1 + 1 + wire::protocol2::CrcSize; // error, id
    int length = 1;
    for (const wire::Packet &part : request.parts)
        length += wire::fromLittleEndian16(part.parameters, 2) + SizeBesideData;

    BusReply reply;
    QByteArray bytes = QByteArrayLiteral("\xFF\xFF\xFD\x00\xFE");
    bytes.append(wire::littleEndian16(static_cast<quint16>(length))).append(static_cast<char>(wire::Status));
    for (const wire::Packet &part : request.parts) {
        const BusReply single = answerOfOne(part, moment);
        wire::protocol2::Parser parser;
        parser.append(single.bytes);
        const auto status = parser.next();
        // Each goes on where the one before ended: after one that keeps silent, nobody knows that it is his turn.
        if (!status || status->parameters.size() != wire::fromLittleEndian16(part.parameters, 2))
            break;
        bytes.append(static_cast<char>(status->error)).append(static_cast<char>(status->id)).append(status->parameters);
        bytes.append(wire::littleEndian16(wire::crc16(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
        reply.bytes = bytes;
        reply.acknowledgeTime = std::max(reply.acknowledgeTime, single.acknowledgeTime);
    }
    return reply;
}

BusReply SimulatedBus::answerOfOne(const wire::Packet &request, const Moment &moment)
{
    BusReply reply;
    for (ISimulatedServo *servo : addressed(request, moment.baudRate)) {
        servo->advance(moment.time);
        const auto acknowledgeTime = servo->acknowledgeTime();
        const QByteArray status = servo->execute(request);
        if (status.isEmpty())
            continue;
        reply.bytes = reply.bytes.isEmpty() ? status : collided(reply.bytes, status);
        reply.acknowledgeTime = std::max(reply.acknowledgeTime, acknowledgeTime);
    }
    return reply;
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
