#pragma once

#include <QtGlobal>

#include <cstddef>

namespace wire {

/**
 * The CRC-16 of 2.0 packets: polynomial 0x8005, initial value 0, not reflected, no final XOR
 * (CRC-16/UMTS in the catalogue of parametrised CRC algorithms; "123456789" gives 0xFEE8).
 */
quint16 crc16(const char *bytes, std::size_t size);

} // namespace wire
