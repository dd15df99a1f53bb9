#include "serialport/protocol2.h"

#include "serialport/crc16.h"

namespace wire::protocol2 {

namespace {

const QByteArray Header = QByteArrayLiteral("\xFF\xFF\xFD\x00");
const QByteArray StuffingPattern = QByteArrayLiteral("\xFF\xFF\xFD");
constexpr char StuffingByte = '\xFD';

QByteArray framed(quint8 id, const QByteArray &body)
{
    const QByteArray stuffedBody = stuffed(body);
    QByteArray packet;
    packet.reserve(PrefixSize + stuffedBody.size() + CrcSize);
    packet.append(Header);
    packet.append(static_cast<char>(id));
    packet.append(littleEndian16(static_cast<quint16>(stuffedBody.size() + CrcSize)));
    packet.append(stuffedBody);
    packet.append(littleEndian16(crc16(packet.constData(), static_cast<std::size_t>(packet.size()))));
    return packet;
}

/** The packet that the whole frame @p raw carries; nothing when its CRC, stuffing or size is wrong. */
std::optional<Packet> decoded(const QByteArray &raw)
{
    const int crcIndex = raw.size() - CrcSize;
    if (crc16(raw.constData(), static_cast<std::size_t>(crcIndex)) != fromLittleEndian16(raw, crcIndex))
        return std::nullopt;
    const auto body = unstuffed(raw.mid(PrefixSize, crcIndex - PrefixSize));
    if (!body)
        return std::nullopt;

    Packet packet;
    packet.framing = Framing::Protocol2;
    packet.id = static_cast<quint8>(raw[HeaderSize]);
    packet.instruction = static_cast<quint8>(body->at(0));
    int parametersAt = 1;
    if (packet.instruction == Status) {
        if (body->size() < 2)
            return std::nullopt; // a status packet always has an error byte
        packet.error = static_cast<quint8>(body->at(1));
        parametersAt = 2;
    }
    packet.parameters = body->mid(parametersAt);
    packet.raw = raw;
    return packet;
}

} // namespace

QByteArray encodeInstruction(quint8 id, quint8 instruction, const QByteArray &parameters)
{
    Q_ASSERT(parameters.size() <= MaximumParameters);
    return framed(id, QByteArray(1, static_cast<char>(instruction)) + parameters);
}

QByteArray encodeStatus(quint8 id, quint8 error, const QByteArray &parameters)
{
    Q_ASSERT(parameters.size() <= MaximumParameters);
    return framed(id, QByteArray(1, static_cast<char>(Status)) + static_cast<char>(error) + parameters);
}

QByteArray readParameters(quint16 address, quint16 length)
{
    return littleEndian16(address) + littleEndian16(length);
}

QByteArray writeParameters(quint16 address, const QByteArray &data)
{
    return littleEndian16(address) + data;
}

QByteArray stuffed(const QByteArray &bytes)
{
    if (!bytes.contains(StuffingPattern))
        return bytes;
    QByteArray result;
    result.reserve(bytes.size() + bytes.size() / StuffingPattern.size());
    int copied = 0;
    for (int at = bytes.indexOf(StuffingPattern); at >= 0; at = bytes.indexOf(StuffingPattern, copied)) {
        const int end = at + StuffingPattern.size();
        result.append(bytes.constData() + copied, end - copied);
        result.append(StuffingByte);
        copied = end;
    }
    result.append(bytes.constData() + copied, bytes.size() - copied);
    return result;
}

std::optional<QByteArray> unstuffed(const QByteArray &bytes)
{
    if (!bytes.contains(StuffingPattern))
        return bytes;
    QByteArray result;
    result.reserve(bytes.size());
    int copied = 0;
    for (int at = bytes.indexOf(StuffingPattern); at >= 0; at = bytes.indexOf(StuffingPattern, copied)) {
        const int end = at + StuffingPattern.size();
        if (end >= bytes.size() || bytes[end] != StuffingByte)
            return std::nullopt;
        result.append(bytes.constData() + copied, end - copied);
        copied = end + 1;
    }
    result.append(bytes.constData() + copied, bytes.size() - copied);
    return result;
}

std::optional<Packet> Parser::next()
{
    int start = 0;
    for (;; ++start) {
        start = m_buffer.indexOf(Header, start);
        if (start < 0) {
            // The last bytes may be the beginning of a header.
            m_buffer = m_buffer.right(HeaderSize - 1);
            return std::nullopt;
        }
        const int available = m_buffer.size() - start;
        if (available < PrefixSize)
            break;
        const int length = fromLittleEndian16(m_buffer, start + HeaderSize + 1);
        if (length < MinimumLength || length > MaximumLength)
            continue;
        const int size = PrefixSize + length;
        // Stuffing keeps a header out of every body: one that stands there belongs to the next packet, and this
        // one was cut short. (Its last byte does not matter: a body that ends in FF FF FD would be stuffed too.)
        const int nextHeader = m_buffer.indexOf(Header, start + PrefixSize);
        if (nextHeader >= 0 && nextHeader + StuffingPattern.size() <= start + size - CrcSize)
            continue;
        if (available < size)
            break;
        if (auto packet = decoded(m_buffer.mid(start, size))) {
            m_buffer.remove(0, start + size);
            return packet;
        }
    }
    m_buffer.remove(0, start);
    return std::nullopt;
}

bool Parser::isInsidePacket() const
{
    return m_buffer.startsWith(Header);
}

} // namespace wire::protocol2
