#include "plot/valuerange.h"

#include <algorithm>
#include <cmath>

namespace plot {

namespace {

constexpr double Room = 0.1;         ///< above and below, of the values' extent
constexpr double LeastUse = 1 / 3.0; ///< of the range, by the values
constexpr double StepsShown = 10;

/** The least of 1, 2 and 5 times a power of ten that is not less than @p step. */
double roundStep(double step)
{
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= step)
            return factor * power;
    }
    return 10.0 * power;
}

} // namespace

void ValueRange::fix(double lower, double upper)
{
    m_lower = lower;
    m_upper = upper;
    m_isFixed = true;
}

void ValueRange::setAutomatic()
{
    m_isFixed = false;
    m_isKnown = false;
}

void ValueRange::follow(const recording::Extent &values, double leastSpan)
{
    const double extent = std::max(values.greatest - values.least, leastSpan);
    const bool fits = values.least >= m_lower && values.greatest <= m_upper;
    const bool isUsed = extent >= (m_upper - m_lower) * LeastUse;
    if (m_isFixed || (m_isKnown && fits && isUsed))
        return;
    m_isKnown = true;
    const double middle = (values.least + values.greatest) / 2;
    const double half = extent * (0.5 + Room);
    const double step = roundStep(2 * half / StepsShown);
    m_lower = std::floor((middle - half) / step) * step;
    m_upper = std::ceil((middle + half) / step) * step;
}

} // namespace plot
