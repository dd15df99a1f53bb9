#pragma once

#include <QtGlobal>

#include <optional>

/** The baud-rate register of the servos: 2000000 / (code + 1) bits per second. */
namespace simulator::baudcode {

constexpr quint8 MaximumCode = 254;
constexpr quint8 DefaultCode = 1; ///< 1000000 bits per second

/** The rate of @p code, in bits per second; not rounded, so 57142.9 for what is sold as 57600. */
double nominalRate(quint8 code);

/** The code whose rate is nearest to @p rate; nothing when even that one is too far off to understand each
 * other. */
std::optional<quint8> nearestCode(int rate);

/** Whether a servo set to @p code understands a line at @p rate bits per second. */
bool understands(quint8 code, int rate);

} // namespace simulator::baudcode
