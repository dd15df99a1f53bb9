#include "serialport/crc16.h"

#include <array>

namespace wire {

namespace {

constexpr quint16 Polynomial = 0x8005;

constexpr std::array<quint16, 256> makeTable()
{
    std::array<quint16, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned remainder = byte << 8;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 0x8000) ? (remainder << 1) ^ Polynomial : remainder << 1;
        table[byte] = static_cast<quint16>(remainder);
    }
    return table;
}

constexpr std::array<quint16, 256> Table = makeTable();

} // namespace

quint16 crc16(const char *bytes, std::size_t size)
{
    quint16 crc = 0;
    for (std::size_t i = 0; i < size; ++i)
        crc = static_cast<quint16>((crc << 8) ^ Table[(crc >> 8) ^ static_cast<quint8>(bytes[i])]);
    return crc;
}

} // namespace wire
