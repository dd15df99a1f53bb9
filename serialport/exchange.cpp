#include "serialport/exchange.h"

#include "serialport/busoperation.h"
#include "serialport/replylayout.h"

#include <algorithm>
#include <utility>

using wire::Framing;

namespace {

constexpr int BitsPerByte = 10; // start bit, 8 data bits, stop bit
/** Longest acknowledge time that a servo can be set to: 254 steps of 2 µs. */
constexpr Exchange::Duration AcknowledgeDelay{254 * 2};
/** How long USB adapters hold received bytes back: their latency timer's default. */
constexpr Exchange::Duration AdapterLatency = std::chrono::milliseconds(16);
constexpr Exchange::Duration Margin = std::chrono::milliseconds(2);
/** A request to everybody who is there is answered in turn; a silent id takes so long. */
constexpr Exchange::Duration TurnOfAnId = std::chrono::milliseconds(3);
constexpr int EveryId = wire::MaximumId + 1;

Exchange::Duration wireTime(int bytes, int baudRate)
{
    return Exchange::Duration(static_cast<qint64>(bytes) * BitsPerByte * 1000000 / baudRate);
}

Framing other(Framing framing)
{
    return framing == Framing::Protocol1 ? Framing::Protocol2 : Framing::Protocol1;
}

/** Bytes that stuffing adds to @p size bytes at most. */
int worstStuffing(int size)
{
    return size / 3;
}

} // namespace

Exchange::Exchange(const BusRequest &request, Framing first, std::optional<Framing> known, int baudRate)
    : m_request(request), m_operation(BusOperation::of(request.operation)), m_first(first),
      m_known(request.framing ? request.framing : known), m_baudRate(baudRate)
{
}

Exchange::Transmission Exchange::begin()
{
    m_parser1.clear();
    m_parser2.clear();
    m_listensTo1 = m_listensTo2 = false;
    m_windowExtended = false;
    m_waited = Duration(0);
    m_stage = mayTryOtherFraming() ? Stage::FirstFraming : Stage::LastFraming;
    return transmit(m_known.value_or(m_first));
}

Exchange::Progress Exchange::take(const QByteArray &bytes)
{
    m_strayBytes += bytes.size(); // until a packet is made of them
    if (m_listensTo2) {
        m_parser2.append(bytes);
        while (auto packet = m_parser2.next()) {
            if (const auto progress = examine(std::move(*packet)))
                return *progress;
        }
    }
    if (m_listensTo1) {
        m_parser1.append(bytes);
        while (auto packet = m_parser1.next()) {
            if (const auto progress = examine(std::move(*packet)))
                return *progress;
        }
    }
    return Progress::Waiting;
}

std::optional<Exchange::Transmission> Exchange::timeOut()
{
    if (m_stage == Stage::LastFraming)
        return std::nullopt;
    if (isInsideFirstAnswer() && !m_windowExtended) {
        m_windowExtended = true;
        const Duration wait = patience(0, replySize(m_first), m_baudRate);
        m_waited += wait;
        return Transmission{QByteArray(), wait};
    }
    m_stage = Stage::LastFraming;
    return transmit(other(m_first));
}

Exchange::Duration Exchange::longestAnswer() const
{
    if (m_operation.isForWhoeverAnswers)
        return patienceToFind(m_known.value_or(m_first), encoded(m_known.value_or(m_first)).size());
    const Duration inFirst = answerTime(m_known.value_or(m_first));
    if (!mayTryOtherFraming())
        return inFirst;
    const Duration window = answerWindow(encoded(m_first).size(), replySize(m_first), m_baudRate);
    return std::max(inFirst, window + answerTime(other(m_first)));
}

Exchange::Duration Exchange::patience(int requestSize, int replySize, int baudRate)
{
    return wireTime(requestSize + replySize, baudRate) + AcknowledgeDelay + 2 * AdapterLatency + Margin;
}

Exchange::Duration Exchange::answerWindow(int requestSize, int replySize, int baudRate)
{
    return wireTime(requestSize + replySize, baudRate) + Margin;
}

Exchange::Transmission Exchange::transmit(Framing framing)
{
    const QByteArray packet = encoded(framing);
    if (framing == Framing::Protocol1) {
        m_listensTo1 = true;
        m_unseenEcho = packet;
    } else {
        m_listensTo2 = true;
    }
    const Duration wait = patienceFor(framing, packet.size());
    m_waited += wait;
    return {packet, wait};
}

Exchange::Duration Exchange::answerTime(Framing framing) const
{
    return wireTime(encoded(framing).size() + replySize(framing), m_baudRate) + AcknowledgeDelay;
}

Exchange::Duration Exchange::patienceFor(Framing framing, int packetSize) const
{
    if (m_operation.isForWhoeverAnswers)
        return patienceToFind(framing, packetSize);
    const bool isLimited = m_operation.patience > Duration(0);
    if (m_stage == Stage::LastFraming && isLimited)
        return std::max(m_operation.patience - m_waited, Duration(0));
    if ((m_stage == Stage::FirstFraming || m_operation.mayGoToAll) && !isLimited)
        return answerWindow(packetSize, replySize(framing), m_baudRate);
    const int stuffing = framing == Framing::Protocol2 ? worstStuffing(dataSize(framing)) : 0;
    return patience(packetSize, replySize(framing) + stuffing, m_baudRate);
}

Exchange::Duration Exchange::patienceToFind(Framing framing, int packetSize) const
{
    const bool isForAll = m_request.id == wire::BroadcastId;
    const int answers = isForAll ? EveryId * replySize(framing) : replySize(framing);
    const Duration delay = isForAll ? EveryId * TurnOfAnId : AcknowledgeDelay;
    return wireTime(packetSize + answers, m_baudRate) + delay + m_request.linger;
}

QByteArray Exchange::encoded(Framing framing) const
{
    const BusOperation::Wire &form = m_operation.in(framing);
    const QByteArray parameters = form.parameters(m_request);
    return framing == Framing::Protocol2 ? wire::protocol2::encodeInstruction(m_request.id, form.code, parameters)
                                         : wire::protocol1::encode(m_request.id, form.code, parameters);
}

int Exchange::dataSize(Framing framing) const
{
    return m_operation.in(framing).answerSize(m_request);
}

int Exchange::replySize(Framing framing) const
{
    return dataSize(framing) +
           (framing == Framing::Protocol2 ? wire::protocol2::StatusOverhead : wire::protocol1::StatusOverhead);
}

bool Exchange::mayTryOtherFraming() const
{
    return m_operation.isFramingGuessed && !m_known;
}

bool Exchange::isInsideFirstAnswer() const
{
    return m_first == Framing::Protocol2 ? m_parser2.isInsidePacket() : m_parser1.isInsidePacket();
}

std::optional<Exchange::Progress> Exchange::examine(wire::Packet &&packet)
{
    if (m_operation.isForWhoeverAnswers)
        return hear(std::move(packet));
    if (packet.framing == Framing::Protocol1 && packet.raw == m_unseenEcho) {
        m_unseenEcho.clear();
        return std::nullopt;
    }
    if (packet.framing == Framing::Protocol2 && packet.instruction != wire::Status)
        return std::nullopt; // an echo, or another client's request
    if (packet.id != m_request.id)
        return std::nullopt;

    const quint8 number = replylayout::errorByte(packet) & ~wire::AlertBit;
    const int size = packet.parameters.size();
    const bool isWhole = size == dataSize(packet.framing);
    const bool isRefusal = size == 0 && number != wire::NoError;
    if (!isWhole && !isRefusal)
        return std::nullopt; // the late answer to another request
    m_answer = std::move(packet);
    if (!isRefusal)
        return Progress::Answered;
    const bool isWorthRepeating = number == wire::ChecksumError && m_operation.attempts > 1;
    return isWorthRepeating ? Progress::Garbled : Progress::Refused;
}

/** Takes the answer of anybody; the exchange is over when it is for certain that of the one who was asked. */
std::optional<Exchange::Progress> Exchange::hear(wire::Packet &&packet)
{
    m_strayBytes -= packet.raw.size();
    if (packet.framing == Framing::Protocol2 && packet.instruction != wire::Status) {
        m_hasEcho = true;
        return std::nullopt;
    }
    if (packet.parameters.size() != dataSize(packet.framing))
        return std::nullopt;
    m_heard.push_back(packet);
    const bool mayBeEcho = packet.framing == Framing::Protocol1 && packet.raw == encoded(Framing::Protocol1);
    if (packet.id != m_request.id || mayBeEcho)
        return std::nullopt;
    m_answer = std::move(packet);
    return Progress::Answered;
}
