#pragma once

#include "serialport/packet.h"

#include <optional>

/** The framing of the own family: FF FF FD 00, id, length, instruction, parameters, CRC-16; low bytes first. */
namespace wire::protocol2 {

constexpr int HeaderSize = 4;
constexpr int PrefixSize = HeaderSize + 1 + 2; ///< header, id, length
constexpr int CrcSize = 2;
constexpr int StatusOverhead = PrefixSize + 1 + 1 + CrcSize; ///< bytes of a status packet beside its parameters
constexpr int MinimumLength = 1 + CrcSize;                   ///< least value of the length field: instruction and CRC
/** Parameters of the longest packet that the bus carries: a 16-bit address and 255 bytes of data. */
constexpr int MaximumParameters = 2 + 255;
/** Greatest value of the length field: instruction, error, all parameters stuffed, CRC. */
constexpr int MaximumLength = 1 + 1 + MaximumParameters + (2 + MaximumParameters) / 3 + CrcSize;

/** The instruction packet for servo @p id. REQUIRES: at most MaximumParameters bytes of @p parameters. */
QByteArray encodeInstruction(quint8 id, quint8 instruction, const QByteArray &parameters);
/** The status packet of servo @p id. REQUIRES: at most MaximumParameters bytes of @p parameters. */
QByteArray encodeStatus(quint8 id, quint8 error, const QByteArray &parameters);

/** Parameters of a read: @p address and @p length, 16 bits each. */
QByteArray readParameters(quint16 address, quint16 length);
/** Parameters of a write: @p address, 16 bits, and the data. */
QByteArray writeParameters(quint16 address, const QByteArray &data);

/** @p bytes with an FD after every FF FF FD. */
QByteArray stuffed(const QByteArray &bytes);
/** The reverse of stuffed(); nothing when @p bytes hold a bare FF FF FD, which no sender can have stuffed. */
std::optional<QByteArray> unstuffed(const QByteArray &bytes);

/**
 * Takes packets out of a stream of bytes, however it is sliced.
 *
 * Whatever is no packet (noise, a bad length, a wrong CRC, a packet cut short by the next header) is passed over
 * byte by byte, so that a good packet right behind it is found.
 */
class Parser
{
public:
    /** One that takes packets whose length field is at most @p maximumLength. */
    explicit Parser(int maximumLength = MaximumLength) : m_maximumLength(maximumLength) {}

    void append(const QByteArray &bytes) { m_buffer.append(bytes); }
    /** The next whole, checked packet; nothing until more bytes come. */
    std::optional<Packet> next();
    /** Whether the bytes taken so far end in the beginning of a packet. Meaningful once next() gave nothing. */
    bool isInsidePacket() const;
    /** Forgets the bytes of an unfinished packet. */
    void clear() { m_buffer.clear(); }

private:
    void removeBytes(int count);

    int m_maximumLength;
    QByteArray m_buffer;
};

} // namespace wire::protocol2
