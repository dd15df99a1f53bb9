#pragma once

#include "recording/decimation.h"

#include <optional>

namespace plot {

/** From where to where the axis of a strip goes. */
class ValueRange
{
public:
    double lower() const { return m_lower; }
    double upper() const { return m_upper; }
    bool isFixed() const { return m_isFixed; }

    /** Stays as it is until setAutomatic(). REQUIRES: @p lower < @p upper. */
    void fix(double lower, double upper);
    void setAutomatic();
    /**
     * Follows the values unless it is fixed: becomes larger as soon as they do not fit, with some room to spare, and
     * smaller only once they would fit into a third, so that it stands still while they do what values do.
     * @param leastSpan of what is shown, so that the noise of a value at rest does not fill the strip.
     */
    void follow(const recording::Extent &values, double leastSpan);

private:
    double m_lower = 0.0;
    double m_upper = 1.0;
    bool m_isFixed = false;
    bool m_isKnown = false; ///< whether there have been values
};

} // namespace plot
