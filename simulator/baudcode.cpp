#include "simulator/baudcode.h"

#include <algorithm>
#include <cmath>

namespace simulator::baudcode {

namespace {

constexpr double BaseRate = 2000000.0;
/** Two UARTs lose the stop bit when they drift by half a bit in ten; with sampling jitter, 3 % is what works. */
constexpr double Tolerance = 0.03;

} // namespace

double nominalRate(quint8 code)
{
    return BaseRate / (code + 1);
}

std::optional<quint8> nearestCode(int rate)
{
    if (rate <= 0)
        return std::nullopt;
    const double ideal = std::round(BaseRate / rate) - 1;
    const auto code = static_cast<quint8>(std::clamp(ideal, 0.0, double{MaximumCode}));
    return understands(code, rate) ? std::optional<quint8>(code) : std::nullopt;
}

bool understands(quint8 code, int rate)
{
    const double nominal = nominalRate(code);
    return std::abs(rate - nominal) <= Tolerance * nominal;
}

} // namespace simulator::baudcode
