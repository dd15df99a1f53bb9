#include "recording/stepresponse.h"

#include <algorithm>
#include <cmath>

namespace recording {

namespace {

constexpr double RiseFrom = 0.1;
constexpr double RiseTo = 0.9;
constexpr double Band = 0.02;

/** The time at which the line from @p before to @p after, shares of the way, is at @p share. */
double crossing(const TimedValue &before, const TimedValue &after, double share)
{
    const double part = (share - before.value) / (after.value - before.value);
    return before.seconds + part * (after.seconds - before.seconds);
}

/** When @p shares first reach @p share. */
std::optional<double> reached(const std::vector<TimedValue> &shares, double share)
{
    for (std::size_t i = 1; i < shares.size(); ++i) {
        if (shares[i].value >= share)
            return crossing(shares[i - 1], shares[i], share);
    }
    return std::nullopt;
}

bool isSettled(const TimedValue &share)
{
    return std::abs(share.value - 1.0) <= Band;
}

/** When @p shares come into the band that the last one is in; nothing if that is outside. */
std::optional<double> settled(const std::vector<TimedValue> &shares)
{
    const auto lastOutside = std::find_if_not(shares.rbegin(), shares.rend(), isSettled);
    if (lastOutside == shares.rbegin())
        return std::nullopt;
    const auto inside = lastOutside.base(); // there is an outside: the way begins there
    const TimedValue &outside = *(inside - 1);
    return crossing(outside, *inside, outside.value < 1.0 ? 1.0 - Band : 1.0 + Band);
}

} // namespace

std::optional<StepFigures> stepFigures(const std::vector<TimedValue> &values, double target)
{
    if (values.size() < 2 || values.front().value == target)
        return std::nullopt;
    const double from = values.front().value;
    std::vector<TimedValue> shares;
    shares.reserve(values.size());
    for (const TimedValue &value : values)
        shares.push_back({std::max(0.0, value.seconds), (value.value - from) / (target - from)});

    StepFigures figures;
    const auto begin = reached(shares, RiseFrom);
    const auto end = reached(shares, RiseTo);
    if (begin && end)
        figures.riseTime = *end - *begin;
    const auto furthest = std::max_element(shares.begin(), shares.end(),
                                           [](const auto &one, const auto &other) { return one.value < other.value; });
    figures.overshoot = std::max(0.0, furthest->value - 1.0) * 100.0;
    figures.settlingTime = settled(shares);
    figures.remaining = target - values.back().value;
    return figures;
}

} // namespace recording
