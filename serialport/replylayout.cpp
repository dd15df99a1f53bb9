#include "serialport/replylayout.h"

#include "serialport/crc16.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/replybytes.h"

namespace replylayout {

namespace {

constexpr quint8 Protocol1HardwareBits =
    wire::VoltageErrorBit | wire::AngleLimitErrorBit | wire::OverheatingErrorBit | wire::OverloadErrorBit;
/** Bytes of a 1.0 status packet that stand where they stood on the wire: all before the status code and the error. */
constexpr int Protocol1OwnBytes = replybytes::ReadError - 1;

QByteArray prefix2(quint8 id, int dataSize)
{
    QByteArray prefix = QByteArrayLiteral("\xFF\xFF\xFD\x00");
    prefix.append(static_cast<char>(id));
    prefix.append(wire::littleEndian16(static_cast<quint16>(dataSize + 1 + 1 + wire::protocol2::CrcSize)));
    return prefix;
}

QByteArray prefix1(const QByteArray &raw)
{
    return raw.left(Protocol1OwnBytes).leftJustified(Protocol1OwnBytes, '\0');
}

} // namespace

quint8 errorByte(const wire::Packet &status)
{
    if (status.framing == wire::Framing::Protocol2)
        return status.error;
    const quint8 bits = status.instruction;
    quint8 number = wire::NoError;
    if (bits & wire::ChecksumErrorBit)
        number = wire::ChecksumError;
    else if (bits & wire::RangeErrorBit)
        number = wire::DataRangeError;
    else if (bits & wire::InstructionErrorBit)
        number = wire::InstructionError;
    return (bits & Protocol1HardwareBits) ? number | wire::AlertBit : number;
}

QByteArray readReply(const wire::Packet &status)
{
    const QByteArray &data = status.parameters;
    const bool isFramedSo = status.framing == wire::Framing::Protocol2 &&
                            status.raw.size() == data.size() + wire::protocol2::StatusOverhead; // nothing was stuffed
    if (isFramedSo)
        return status.raw;
    QByteArray reply =
        status.framing == wire::Framing::Protocol2 ? prefix2(status.id, data.size()) : prefix1(status.raw);
    reply.append(static_cast<char>(wire::Status));
    reply.append(static_cast<char>(errorByte(status)));
    reply.append(data);
    reply.append(wire::littleEndian16(wire::crc16(reply.constData(), static_cast<std::size_t>(reply.size()))));
    return reply;
}

QByteArray shortReply(quint8 id, quint8 error)
{
    return wire::protocol1::encode(id, error, {});
}

} // namespace replylayout
