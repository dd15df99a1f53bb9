#pragma once

#include "model/field.h"

namespace model {

/**
 * The straight line between raw register values and physical values (base units). Always gives a finite
 * number: a scale without a range, as a default-constructed one, maps everything to one end.
 */
class RawScale
{
public:
    RawScale() = default;
    /** rawMin is at physicalMin, rawMax at physicalMax. */
    explicit RawScale(const Range &range);
    /**
     * As the constructor's, but raw 0 is at physicalMin whatever rawMin is; the integer spin boxes count so.
     */
    static RawScale fromZero(const Range &range);

    double toPhysical(qint32 raw) const;
    /** Truncated toward zero, and held inside the 32-bit range. */
    qint32 toRaw(double physical) const;

private:
    RawScale(const Range &range, qint32 rawOrigin);

    qint32 m_rawOrigin = 0;
    qint32 m_rawSpan = 0;
    double m_physicalOrigin = 0.0;
    double m_physicalSpan = 0.0;
};

/** Decimals that show each step of @p range, nine at most. */
int stepDecimals(const Range &range);

} // namespace model
