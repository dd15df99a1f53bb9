#pragma once

/** Where things stand in the replies that ZelvarSerialPortInterface hands over, whatever the servo's framing. */
namespace replybytes {

constexpr int ReadError = 8;     ///< a read's error byte
constexpr int ReadData = 9;      ///< the first register of a read
constexpr int ReadOverhead = 11; ///< bytes of a read's reply beside its data
/**
 * The low and the high byte that tell the family in the reply to a read of two bytes from register 0: a 1.0 packet has
 * its first parameters there, which are the model number, a 2.0 packet its length.
 */
constexpr int ReadFamily = 5;

constexpr int ShortId = 2;    ///< the servo's id in the reply to a write, reboot or reset
constexpr int ShortError = 4; ///< the error byte in such a reply
constexpr int ShortSize = 6;  ///< bytes of such a reply

} // namespace replybytes
