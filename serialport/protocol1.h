#pragma once

#include "serialport/packet.h"

#include <optional>

/** The framing of the AX-12: FF FF, id, length, instruction or error bits, parameters, checksum. */
namespace wire::protocol1 {

constexpr int HeaderSize = 2;
constexpr int PrefixSize = HeaderSize + 1 + 1;          ///< header, id, length
constexpr int StatusOverhead = PrefixSize + 1 + 1;      ///< bytes of a packet beside its parameters
constexpr int MinimumLength = 2;                        ///< least value of the length field: code and checksum
constexpr int MaximumParameters = 0xFF - MinimumLength; ///< the length field is one byte

/** The packet for servo @p id with an instruction, or with error bits when it is a status packet. REQUIRES: at most
 *  MaximumParameters bytes of @p parameters. */
QByteArray encode(quint8 id, quint8 instructionOrError, const QByteArray &parameters);

/** Parameters of a read: @p address and @p length, one byte each. */
QByteArray readParameters(quint8 address, quint8 length);
/** Parameters of a write: @p address, one byte, and the data. */
QByteArray writeParameters(quint8 address, const QByteArray &data);

/** Takes packets out of a stream of bytes; as wire::protocol2::Parser. */
class Parser
{
public:
    void append(const QByteArray &bytes) { m_buffer.append(bytes); }
    /** The next whole, checked packet; nothing until more bytes come. */
    std::optional<Packet> next();
    /** Whether the bytes taken so far end in the beginning of a packet. Meaningful once next() gave nothing. */
    bool isInsidePacket() const;
    /** Forgets the bytes of an unfinished packet. */
    void clear() { m_buffer.clear(); }

private:
    QByteArray m_buffer;
};

} // namespace wire::protocol1
