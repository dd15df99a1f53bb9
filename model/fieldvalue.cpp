#include "model/fieldvalue.h"

#include "model/registerimage.h"
#include "model/units.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace model {

double valueIn(const Field &field, qint32 raw, int unit)
{
    return model::unit(field.kind, unit).fromBase(physicalValue(field, raw));
}

qint32 nearestRaw(const Field &field, double value, int unit)
{
    using Limits = std::numeric_limits<qint32>;
    // The way back truncates, so that a value that is a hair too small gives the raw value before.
    const qint32 truncated =
        std::clamp(rawAt(field, model::unit(field.kind, unit).toBase(value)), Limits::min() + 1, Limits::max() - 1);
    qint32 nearest = truncated;
    for (const qint32 candidate : {truncated - 1, truncated + 1}) {
        if (std::abs(valueIn(field, candidate, unit) - value) < std::abs(valueIn(field, nearest, unit) - value))
            nearest = candidate;
    }
    return nearest;
}

int stepDecimals(const Field &field, int unit)
{
    constexpr int Most = 9;
    constexpr double Rounding = 1e-9;
    const double step =
        std::abs(valueIn(field, field.range.rawMin + 1, unit) - valueIn(field, field.range.rawMin, unit));
    return step > 0 ? std::clamp(int(std::ceil(-std::log10(step) - Rounding)), 0, Most) : 0;
}

} // namespace model
