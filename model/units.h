#pragma once

#include "model/fieldkind.h"

namespace model {

/** One unit of a quantity. */
struct Unit
{
    const char *text;  ///< UTF-8; translated in the context "UnitsHelper"
    const char *ascii; ///< for files
    int decimals;      ///< to show
    double singleStep;
    quint64 flag; ///< set for the default of a quantity that offers a choice; nothing asks for it yet
    // From the base unit of the kind: multiplied first, then divided, since the last digit depends on the order.
    double multiplier = 1.0;
    double divisor = 1.0;
    double offset = 0.0;

    bool isOffered() const { return *text != '\0'; }
    double fromBase(double value) const { return value * multiplier / divisor + offset; }
    double toBase(double value) const { return (value - offset) * divisor / multiplier; }
};

/**
 * Unit @p index (0 or 1) of @p kind. A unit that is not offered, and that of a kind which is no quantity, has no text
 * and leaves values as they are.
 */
const Unit &unit(FieldKind kind, int index);
/**
 * What files write for unit @p index (0 or 1) of @p kind, in ASCII: "rad/s^2". Empty for a kind whose values are plain
 * numbers or codes.
 */
const char *asciiUnit(FieldKind kind, int index);

} // namespace model
