#include "model/rawscale.h"

#include <cmath>
#include <limits>

namespace model {

namespace {

// Differences wrap at 32 bits, as the servo counts; in unsigned arithmetic, where wrapping is defined.
qint32 difference(qint32 minuend, qint32 subtrahend)
{
    return static_cast<qint32>(static_cast<quint32>(minuend) - static_cast<quint32>(subtrahend));
}

qint32 truncated(double value)
{
    using Limits = std::numeric_limits<qint32>;
    if (value <= Limits::min())
        return Limits::min();
    if (value >= Limits::max())
        return Limits::max();
    return static_cast<qint32>(value);
}

} // namespace

RawScale::RawScale(const Range &range) : RawScale(range, range.rawMin) {}

RawScale RawScale::fromZero(const Range &range)
{
    return RawScale(range, 0);
}

RawScale::RawScale(const Range &range, qint32 rawOrigin)
    : m_rawOrigin(rawOrigin), m_rawSpan(difference(range.rawMax, range.rawMin)), m_physicalOrigin(range.physicalMin),
      m_physicalSpan(range.physicalMax - range.physicalMin)
{
}

double RawScale::toPhysical(qint32 raw) const
{
    if (m_rawSpan == 0)
        return m_physicalOrigin;
    return m_physicalSpan * double(difference(raw, m_rawOrigin)) / double(m_rawSpan) + m_physicalOrigin;
}

qint32 RawScale::toRaw(double physical) const
{
    if (m_physicalSpan == 0.0 || std::isnan(physical))
        return m_rawOrigin;
    return truncated(m_rawOrigin + double(m_rawSpan) * (physical - m_physicalOrigin) / m_physicalSpan);
}

int stepDecimals(const Range &range)
{
    constexpr int MaxDecimals = 9;
    // Far below what counts, far above the rounding of double arithmetic.
    constexpr double Noise = 1e-6;
    const double rawSpan = double(range.rawMax) - range.rawMin;
    const double step = rawSpan == 0.0 ? 1.0 : (range.physicalMax - range.physicalMin) / rawSpan;
    int digits = 0;
    for (double scaled = step; digits < MaxDecimals && std::abs(scaled - std::round(scaled)) > Noise; scaled *= 10.0)
        ++digits;
    return digits;
}

} // namespace model
