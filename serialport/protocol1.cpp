#include "serialport/protocol1.h"

namespace wire::protocol1 {

namespace {

constexpr char HeaderByte = '\xFF';
const QByteArray Header = QByteArrayLiteral("\xFF\xFF");

/** The inverted low byte of the sum from the id at index 2 up to and not including @p end. */
quint8 checksum(const QByteArray &packet, int start, int end)
{
    unsigned sum = 0;
    for (int i = start + HeaderSize; i < end; ++i)
        sum += static_cast<quint8>(packet[i]);
    return static_cast<quint8>(~sum);
}

} // namespace

QByteArray encode(quint8 id, quint8 instructionOrError, const QByteArray &parameters)
{
    Q_ASSERT(parameters.size() <= MaximumParameters);
    QByteArray packet = Header;
    packet.append(static_cast<char>(id));
    packet.append(static_cast<char>(parameters.size() + MinimumLength));
    packet.append(static_cast<char>(instructionOrError));
    packet.append(parameters);
    packet.append(static_cast<char>(checksum(packet, 0, packet.size())));
    return packet;
}

QByteArray readParameters(quint8 address, quint8 length)
{
    QByteArray parameters(1, static_cast<char>(address));
    return parameters + static_cast<char>(length);
}

QByteArray writeParameters(quint8 address, const QByteArray &data)
{
    return QByteArray(1, static_cast<char>(address)) + data;
}

std::optional<Packet> Parser::next()
{
    int start = 0;
    for (;; ++start) {
        start = m_buffer.indexOf(Header, start);
        if (start < 0) {
            m_buffer = m_buffer.endsWith(HeaderByte) ? QByteArray(1, HeaderByte) : QByteArray();
            return std::nullopt;
        }
        const int available = m_buffer.size() - start;
        if (available < HeaderSize + 1)
            break;
        if (m_buffer[start + HeaderSize] == HeaderByte)
            continue; // FF is nobody's id: the header is one byte further on
        if (available < PrefixSize)
            break;
        const int length = static_cast<quint8>(m_buffer[start + HeaderSize + 1]);
        if (length < MinimumLength)
            continue;
        const int size = PrefixSize + length;
        if (available < size)
            break;
        const int checksumIndex = start + size - 1;
        if (checksum(m_buffer, start, checksumIndex) != static_cast<quint8>(m_buffer[checksumIndex]))
            continue;

        Packet packet;
        packet.framing = Framing::Protocol1;
        packet.id = static_cast<quint8>(m_buffer[start + HeaderSize]);
        packet.instruction = static_cast<quint8>(m_buffer[start + PrefixSize]);
        packet.parameters = m_buffer.mid(start + PrefixSize + 1, length - MinimumLength);
        packet.raw = m_buffer.mid(start, size);
        m_buffer.remove(0, start + size);
        return packet;
    }
    m_buffer.remove(0, start);
    return std::nullopt;
}

bool Parser::isInsidePacket() const
{
    return m_buffer.startsWith(Header);
}

} // namespace wire::protocol1
