#include "device/conversionhelper.h"

namespace {

// Twelve decimals, not the full precision: the servo's own scale is built on this value.
constexpr double TwoPi = 6.283185307178;

struct Conversion
{
    qint32 fieldId;
    /** The one unit of the quantity that is not the base unit. */
    qint32 unitIndex;
    double multiplier;
    double divisor;
    double offset;
};

// The base unit of currents is the second unit, mA, so there the first one converts.
// clang-format off
constexpr Conversion Conversions[] = {
    {0, 1, 60.0,     TwoPi,  0.0},  // rad/s to rpm
    {1, 1, 360.0,    TwoPi,  0.0},  // radians to degrees
    {3, 1, 10.19716, 1.0,    0.0},  // N·m to kg-cm
    {5, 0, 1.0,      1000.0, 0.0},  // mA to A
    {6, 1, 1.8,      1.0,    32.0}, // °C to °F
};
// clang-format on

const Conversion *conversionOf(qint32 fieldId, qint32 unitIndex)
{
    for (const Conversion &conversion : Conversions) {
        if (conversion.fieldId == fieldId && conversion.unitIndex == unitIndex)
            return &conversion;
    }
    return nullptr;
}

} // namespace

// Multiply first, then divide: the last digit depends on the order.
double ConversionHelper::toDisplay(double value, qint32 fieldId, qint32 unitIndex) const
{
    const Conversion *conversion = conversionOf(fieldId, unitIndex);
    if (!conversion)
        return value;
    return value * conversion->multiplier / conversion->divisor + conversion->offset;
}

double ConversionHelper::fromDisplay(double value, qint32 fieldId, qint32 unitIndex) const
{
    const Conversion *conversion = conversionOf(fieldId, unitIndex);
    if (!conversion)
        return value;
    return (value - conversion->offset) * conversion->divisor / conversion->multiplier;
}
