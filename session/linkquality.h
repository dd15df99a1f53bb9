#pragma once

#include "serialport/busrequest.h"

#include <chrono>
#include <deque>

namespace session {

/** How well the polls of a connection get through: a value that is fed with each that has ended. */
class LinkQuality
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /** Of the last hundred polls. */
    struct Shares
    {
        int atOnce = 0;   ///< answered when first asked, in percent
        int repeated = 0; ///< answered when asked again
        int lost = 0;     ///< not answered at all
    };

    /** A poll that ended in @p result at @p when. Those that were withdrawn say nothing. */
    void add(const BusResult &result, TimePoint when);
    void reset() { *this = LinkQuality(); }

    /** Whether there is anything to tell of. */
    bool isKnown() const { return !m_polls.empty(); }
    Shares shares() const;
    double pollsPerSecond() const;
    /** Weak from a share answered at once of less than 98 % on, until it is more than 99 % again. */
    bool isWeak() const { return m_isWeak; }

private:
    enum class Fate { AtOnce, Repeated, Lost };

    struct Poll
    {
        Fate fate;
        TimePoint when;
    };

    int count(Fate fate) const;

    std::deque<Poll> m_polls; ///< oldest first
    bool m_isWeak = false;
};

} // namespace session
