#pragma once

#include "serialport/packet.h"

/** The bytes that the fixed interface hands over for a status packet: one layout, whatever the servo's framing. */
namespace replylayout {

/**
 * The error byte of @p status in the own family's numbering. Of several 1.0 error bits the most basic one gives the
 * number; the bits about the hardware give the alert bit.
 */
quint8 errorByte(const wire::Packet &status);

/**
 * The reply to a read, unstuffed, laid out as replybytes.h says. For 2.0 a status packet whose length and CRC agree
 * with the unstuffed bytes; for 1.0 bytes 0 to 6 are the packet's own first bytes, and the rest is laid out as for 2.0.
 */
QByteArray readReply(const wire::Packet &status);

/** The reply to a write, reboot or reset: FF FF, id, 02, @p error, checksum. */
QByteArray shortReply(quint8 id, quint8 error);

} // namespace replylayout
