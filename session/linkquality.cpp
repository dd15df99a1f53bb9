#include "session/linkquality.h"

#include <algorithm>
#include <cmath>

namespace session {

namespace {

constexpr std::size_t Window = 100;
/** So few polls are no measure: the first one that is repeated would be a weak link. */
constexpr std::size_t LeastPolls = 20;
constexpr double WeakBelow = 0.98;
constexpr double GoodAbove = 0.99;

} // namespace

void LinkQuality::add(const BusResult &result, TimePoint when)
{
    using Outcome = BusResult::Outcome;
    if (result.outcome == Outcome::Withdrawn || result.outcome == Outcome::PortLost)
        return;
    const bool isLost = result.outcome == Outcome::NoAnswer;
    m_polls.push_back({isLost ? Fate::Lost : result.attempts > 1 ? Fate::Repeated : Fate::AtOnce, when});
    if (m_polls.size() > Window)
        m_polls.pop_front();
    const double share = double(count(Fate::AtOnce)) / double(m_polls.size());
    if (m_polls.size() >= LeastPolls)
        m_isWeak = m_isWeak ? share <= GoodAbove : share < WeakBelow;
}

LinkQuality::Shares LinkQuality::shares() const
{
    if (m_polls.empty())
        return {};
    const auto percent = [this](Fate fate) { return int(std::lround(100.0 * count(fate) / double(m_polls.size()))); };
    return {percent(Fate::AtOnce), percent(Fate::Repeated), percent(Fate::Lost)};
}

double LinkQuality::pollsPerSecond() const
{
    if (m_polls.size() < 2)
        return 0;
    const std::chrono::duration<double> span = m_polls.back().when - m_polls.front().when;
    return span.count() > 0 ? double(m_polls.size() - 1) / span.count() : 0;
}

int LinkQuality::count(Fate fate) const
{
    return int(std::count_if(m_polls.begin(), m_polls.end(), [fate](const Poll &poll) { return poll.fate == fate; }));
}

} // namespace session
