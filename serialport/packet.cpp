#include "serialport/packet.h"

namespace wire {

QByteArray littleEndian16(quint16 value)
{
    QByteArray bytes(2, Qt::Uninitialized);
    bytes[0] = static_cast<char>(value & 0xFF);
    bytes[1] = static_cast<char>(value >> 8);
    return bytes;
}

quint16 fromLittleEndian16(const QByteArray &bytes, int index)
{
    return static_cast<quint16>(static_cast<quint8>(bytes[index]) | static_cast<quint8>(bytes[index + 1]) << 8);
}

} // namespace wire
