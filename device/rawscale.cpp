#include "device/rawscale.h"

#include <cmath>
#include <limits>

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

RawScale::RawScale(const FieldLimits &limits) : RawScale(limits, limits.rawMin) {}

RawScale RawScale::fromZero(const FieldLimits &limits)
{
    return RawScale(limits, 0);
}

RawScale::RawScale(const FieldLimits &limits, qint32 rawOrigin)
    : m_rawOrigin(rawOrigin), m_rawSpan(difference(limits.rawMax, limits.rawMin)), m_physicalOrigin(limits.physicalMin),
      m_physicalSpan(limits.physicalMax - limits.physicalMin)
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
