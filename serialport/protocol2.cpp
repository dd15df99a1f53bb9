#include "serialport/protocol2.h"

#include "serialport/crc16.h"

#include <algorithm>
#include <cstring>

namespace wire::protocol2 {

namespace {

const QByteArray Header = QByteArrayLiteral("\xFF\xFF\xFD\x00");
const QByteArray StuffingPattern = QByteArrayLiteral("\xFF\xFF\xFD");
constexpr char StuffingByte = '\xFD';

/** Where the stuffing pattern stands in @p bytes between @p from and @p end; -1 when it does not stand there. */
int patternAt(const QByteArray &bytes, int from, int end)
{
    const int lastOfPattern = StuffingPattern.size() - 1;
    const char *const begin = bytes.constData();
    // Its last byte is the rarest one: looking for that passes over nearly everything at once.
    for (int at = from + lastOfPattern; at < end; ++at) {
        const void *found = std::memchr(begin + at, StuffingByte, static_cast<std::size_t>(end - at));
        if (!found)
            return -1;
        at = static_cast<int>(static_cast<const char *>(found) - begin);
        if (std::memcmp(begin + at - lastOfPattern, StuffingPattern.constData(), lastOfPattern) == 0)
            return at - lastOfPattern;
    }
    return -1;
}

/** Where the first whole header from @p from on stands in @p bytes; -1 when there is none. */
int headerAt(const QByteArray &bytes, int from)
{
    const int end = bytes.size() - (HeaderSize - StuffingPattern.size());
    for (int at = patternAt(bytes, from, end); at >= 0; at = patternAt(bytes, at + 1, end)) {
        if (bytes[at + HeaderSize - 1] == Header[HeaderSize - 1])
            return at;
    }
    return -1;
}

void putLittleEndian16(char *place, quint16 value)
{
    place[0] = static_cast<char>(value & 0xFF);
    place[1] = static_cast<char>(value >> 8);
}

/** The packet whose body is @p lead and @p parameters. Polls make one each, so it is built where it stays. */
template <std::size_t LeadSize>
QByteArray framed(quint8 id, const char (&lead)[LeadSize], const QByteArray &parameters)
{
    const int size = PrefixSize + static_cast<int>(LeadSize) + parameters.size() + CrcSize;
    QByteArray packet(size, Qt::Uninitialized);
    char *place = std::copy(Header.begin(), Header.end(), packet.data());
    *place = static_cast<char>(id);
    place = std::copy(std::begin(lead), std::end(lead), packet.data() + PrefixSize);
    std::copy(parameters.begin(), parameters.end(), place);
    if (patternAt(packet, PrefixSize, size - CrcSize) >= 0) {
        const QByteArray body = packet.mid(PrefixSize, size - PrefixSize - CrcSize);
        packet.replace(PrefixSize, body.size(), stuffed(body));
    }
    const int crcIndex = packet.size() - CrcSize;
    char *const bytes = packet.data();
    putLittleEndian16(bytes + HeaderSize + 1, static_cast<quint16>(packet.size() - PrefixSize));
    putLittleEndian16(bytes + crcIndex, crc16(bytes, static_cast<std::size_t>(crcIndex)));
    return packet;
}

/** The packet that the whole frame @p raw carries; nothing when its CRC, stuffing or size is wrong. */
std::optional<Packet> decoded(const QByteArray &raw)
{
    const int crcIndex = raw.size() - CrcSize;
    if (crc16(raw.constData(), static_cast<std::size_t>(crcIndex)) != fromLittleEndian16(raw, crcIndex))
        return std::nullopt;

    Packet packet;
    packet.framing = Framing::Protocol2;
    packet.id = static_cast<quint8>(raw[HeaderSize]);
    packet.instruction = static_cast<quint8>(raw[PrefixSize]);
    int parametersAt = PrefixSize + 1;
    if (packet.instruction == Status) {
        if (crcIndex <= parametersAt)
            return std::nullopt; // a status packet always has an error byte
        packet.error = static_cast<quint8>(raw[parametersAt]);
        ++parametersAt;
    }
    if (patternAt(raw, PrefixSize, crcIndex) < 0) {
        packet.parameters = raw.mid(parametersAt, crcIndex - parametersAt);
    } else {
        // What is removed stands behind three bytes of the body, so never before the parameters.
        const auto body = unstuffed(raw.mid(PrefixSize, crcIndex - PrefixSize));
        if (!body)
            return std::nullopt;
        packet.parameters = body->mid(parametersAt - PrefixSize);
    }
    packet.raw = raw;
    return packet;
}

} // namespace

QByteArray encodeInstruction(quint8 id, quint8 instruction, const QByteArray &parameters)
{
    Q_ASSERT(parameters.size() <= MaximumParameters);
    const char lead[] = {static_cast<char>(instruction)};
    return framed(id, lead, parameters);
}

QByteArray encodeStatus(quint8 id, quint8 error, const QByteArray &parameters)
{
    Q_ASSERT(parameters.size() <= MaximumParameters);
    const char lead[] = {static_cast<char>(Status), static_cast<char>(error)};
    return framed(id, lead, parameters);
}

QByteArray readParameters(quint16 address, quint16 length)
{
    QByteArray parameters(2 + 2, Qt::Uninitialized);
    putLittleEndian16(parameters.data(), address);
    putLittleEndian16(parameters.data() + 2, length);
    return parameters;
}

QByteArray writeParameters(quint16 address, const QByteArray &data)
{
    return littleEndian16(address) + data;
}

QByteArray stuffed(const QByteArray &bytes)
{
    int at = patternAt(bytes, 0, bytes.size());
    if (at < 0)
        return bytes;
    QByteArray result;
    result.reserve(bytes.size() + bytes.size() / StuffingPattern.size());
    int copied = 0;
    for (; at >= 0; at = patternAt(bytes, copied, bytes.size())) {
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
    int at = patternAt(bytes, 0, bytes.size());
    if (at < 0)
        return bytes;
    QByteArray result;
    result.reserve(bytes.size());
    int copied = 0;
    for (; at >= 0; at = patternAt(bytes, copied, bytes.size())) {
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
        start = headerAt(m_buffer, start);
        if (start < 0) {
            // The last bytes may be the beginning of a header.
            m_buffer = m_buffer.right(HeaderSize - 1);
            return std::nullopt;
        }
        const int available = m_buffer.size() - start;
        if (available < PrefixSize)
            break;
        const int length = fromLittleEndian16(m_buffer, start + HeaderSize + 1);
        if (length < MinimumLength || length > m_maximumLength)
            continue;
        const int size = PrefixSize + length;
        // Stuffing keeps a header out of every body: one that stands there belongs to the next packet, and this
        // one was cut short. (Its last byte does not matter: a body that ends in FF FF FD would be stuffed too.)
        const int nextHeader = headerAt(m_buffer, start + PrefixSize);
        if (nextHeader >= 0 && nextHeader + StuffingPattern.size() <= start + size - CrcSize)
            continue;
        if (available < size)
            break;
        if (auto packet = decoded(m_buffer.mid(start, size))) {
            removeBytes(start + size);
            return packet;
        }
    }
    removeBytes(start);
    return std::nullopt;
}

void Parser::removeBytes(int count)
{
    // Mostly it is all of them, and they are shared with a packet then: removing them would copy them first.
    if (count == m_buffer.size())
        m_buffer.clear();
    else
        m_buffer.remove(0, count);
}

bool Parser::isInsidePacket() const
{
    return m_buffer.startsWith(Header);
}

} // namespace wire::protocol2
