#include "serialport/crc16.h"

#include <array>

namespace wire {

namespace {

constexpr quint16 Polynomial = 0x8005;

/** Bytes that are taken at once: their parts of the CRC do not wait for one another. */
constexpr std::size_t StepSize = 8;

using Table = std::array<quint16, 256>;

/** Table n has what a byte makes of the CRC once n more bytes, all 0, have followed it. */
constexpr std::array<Table, StepSize> makeTables()
{
    std::array<Table, StepSize> tables{};
    for (unsigned byte = 0; byte < tables[0].size(); ++byte) {
        unsigned remainder = byte << 8;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 0x8000) ? (remainder << 1) ^ Polynomial : remainder << 1;
        tables[0][byte] = static_cast<quint16>(remainder);
    }
    for (std::size_t n = 1; n < tables.size(); ++n) {
        for (unsigned byte = 0; byte < tables[n].size(); ++byte) {
            const quint16 before = tables[n - 1][byte];
            tables[n][byte] = static_cast<quint16>((before << 8) ^ tables[0][before >> 8]);
        }
    }
    return tables;
}

constexpr std::array<Table, StepSize> Tables = makeTables();

quint16 afterStep(quint16 crc, const quint8 *bytes)
{
    quint16 next = Tables[StepSize - 1][bytes[0] ^ (crc >> 8)] ^ Tables[StepSize - 2][bytes[1] ^ (crc & 0xFF)];
    for (std::size_t i = 2; i < StepSize; ++i)
        next ^= Tables[StepSize - 1 - i][bytes[i]];
    return next;
}

quint16 afterByte(quint16 crc, quint8 byte)
{
    return static_cast<quint16>((crc << 8) ^ Tables[0][(crc >> 8) ^ byte]);
}

} // namespace

quint16 crc16(const char *bytes, std::size_t size)
{
    const auto *next = reinterpret_cast<const quint8 *>(bytes);
    const quint8 *const end = next + size;
    quint16 crc = 0;
    for (; end - next >= static_cast<std::ptrdiff_t>(StepSize); next += StepSize)
        crc = afterStep(crc, next);
    for (; next != end; ++next)
        crc = afterByte(crc, *next);
    return crc;
}

} // namespace wire
