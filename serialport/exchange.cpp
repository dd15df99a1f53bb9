#include "serialport/exchange.h"

#include "serialport/replylayout.h"

#include <algorithm>

using wire::Framing;

namespace {

constexpr int BitsPerByte = 10; // start bit, 8 data bits, stop bit
/** Longest acknowledge time that a servo can be set to: 254 steps of 2 µs. */
constexpr Exchange::Duration AcknowledgeDelay{254 * 2};
/** How long USB adapters hold received bytes back: their latency timer's default. */
constexpr Exchange::Duration AdapterLatency = std::chrono::milliseconds(16);
constexpr Exchange::Duration Margin = std::chrono::milliseconds(2);

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

bool BusRequest::operator==(const BusRequest &other) const
{
    return operation == other.operation && id == other.id && address == other.address && length == other.length &&
           data == other.data;
}

Exchange::Exchange(const BusRequest &request, Framing first, std::optional<Framing> known, int baudRate)
    : m_request(request), m_first(first), m_known(known), m_baudRate(baudRate)
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
    if (m_listensTo2) {
        m_parser2.append(bytes);
        while (const auto packet = m_parser2.next()) {
            if (const auto progress = examine(*packet))
                return *progress;
        }
    }
    if (m_listensTo1) {
        m_parser1.append(bytes);
        while (const auto packet = m_parser1.next()) {
            if (const auto progress = examine(*packet))
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

Exchange::Duration Exchange::patienceFor(Framing framing, int packetSize) const
{
    if (m_stage == Stage::LastFraming && isOneShot())
        return std::max(OneShotPatience - m_waited, Duration(0));
    if (m_stage == Stage::FirstFraming && !isOneShot())
        return answerWindow(packetSize, replySize(framing), m_baudRate);
    const int stuffing = framing == Framing::Protocol2 ? worstStuffing(m_request.length) : 0;
    return patience(packetSize, replySize(framing) + stuffing, m_baudRate);
}

bool Exchange::isOneShot() const
{
    return m_request.operation == BusRequest::Operation::Reboot ||
           m_request.operation == BusRequest::Operation::FactoryReset;
}

QByteArray Exchange::encoded(Framing framing) const
{
    const bool second = framing == Framing::Protocol2;
    switch (m_request.operation) {
    case BusRequest::Operation::Read:
        return second
                   ? wire::protocol2::encodeInstruction(
                         m_request.id, wire::Read, wire::protocol2::readParameters(m_request.address, m_request.length))
                   : wire::protocol1::encode(m_request.id, wire::Read,
                                             wire::protocol1::readParameters(m_request.address, m_request.length));
    case BusRequest::Operation::Write:
        return second
                   ? wire::protocol2::encodeInstruction(
                         m_request.id, wire::Write, wire::protocol2::writeParameters(m_request.address, m_request.data))
                   : wire::protocol1::encode(m_request.id, wire::Write,
                                             wire::protocol1::writeParameters(m_request.address, m_request.data));
    case BusRequest::Operation::Reboot:
        // There is no 1.0 reboot, but a servo that speaks 1.0 answers the code with an instruction error.
        return second ? wire::protocol2::encodeInstruction(m_request.id, wire::Reboot, {})
                      : wire::protocol1::encode(m_request.id, wire::Reboot, {});
    case BusRequest::Operation::FactoryReset:
        return second ? wire::protocol2::encodeInstruction(
                            m_request.id, wire::FactoryReset,
                            QByteArray(1, static_cast<char>(wire::ResetAllButIdAndBaudRate)))
                      : wire::protocol1::encode(m_request.id, wire::FactoryReset, {});
    }
    Q_UNREACHABLE();
}

int Exchange::replySize(Framing framing) const
{
    const int dataSize = m_request.operation == BusRequest::Operation::Read ? m_request.length : 0;
    return dataSize +
           (framing == Framing::Protocol2 ? wire::protocol2::StatusOverhead : wire::protocol1::StatusOverhead);
}

bool Exchange::mayTryOtherFraming() const
{
    // Registers have other addresses in the other family, so a write must never go out in a guessed framing; a reboot
    // exists in one framing only.
    const bool guessable = m_request.operation == BusRequest::Operation::Read ||
                           m_request.operation == BusRequest::Operation::FactoryReset;
    return guessable && !m_known;
}

bool Exchange::isInsideFirstAnswer() const
{
    return m_first == Framing::Protocol2 ? m_parser2.isInsidePacket() : m_parser1.isInsidePacket();
}

std::optional<Exchange::Progress> Exchange::examine(const wire::Packet &packet)
{
    if (packet.framing == Framing::Protocol1 && packet.raw == m_unseenEcho) {
        m_unseenEcho.clear();
        return std::nullopt;
    }
    if (packet.framing == Framing::Protocol2 && packet.instruction != wire::Status)
        return std::nullopt; // an echo, or another client's request
    if (packet.id != m_request.id)
        return std::nullopt;

    const bool hasError = (replylayout::errorByte(packet) & ~wire::AlertBit) != wire::NoError;
    const bool isRead = m_request.operation == BusRequest::Operation::Read;
    const bool isRefusal = isRead && hasError && packet.parameters.isEmpty();
    if (!isRefusal && packet.parameters.size() != (isRead ? m_request.length : 0))
        return std::nullopt; // the late answer to another request
    return accept(packet);
}

Exchange::Progress Exchange::accept(const wire::Packet &packet)
{
    m_answeredIn = packet.framing;
    const quint8 error = replylayout::errorByte(packet);
    const quint8 number = error & ~wire::AlertBit;
    switch (m_request.operation) {
    case BusRequest::Operation::Read:
        if (packet.parameters.size() == m_request.length && (m_request.length > 0 || number == wire::NoError)) {
            m_reply = replylayout::readReply(packet);
            return Progress::Answered;
        }
        return number == wire::ChecksumError ? Progress::Garbled : Progress::Refused;
    case BusRequest::Operation::Write:
        if (number == wire::ChecksumError)
            return Progress::Garbled;
        m_reply = replylayout::shortReply(packet.id, error);
        return Progress::Answered;
    case BusRequest::Operation::Reboot:
    case BusRequest::Operation::FactoryReset:
        // The alert bit speaks of the hardware's state, which these two are used to get out of, and not of the command.
        m_reply = replylayout::shortReply(packet.id, number);
        return Progress::Answered;
    }
    Q_UNREACHABLE();
}
