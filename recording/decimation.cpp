#include "recording/decimation.h"

#include <algorithm>
#include <utility>

namespace recording {

namespace {

using Microseconds = std::chrono::microseconds;
using Number = SampleStore::Number;

struct RawPoint
{
    qint64 time; ///< microseconds
    qint32 raw;
};

/** Collects the samples of one column of pixels and hands on what of them can be seen. */
class Collector
{
public:
    /** @param width of a column of pixels, in microseconds. */
    Collector(Polylines &lines, const Column &column, qint64 origin, qint64 width)
        : m_lines(lines), m_column(column), m_origin(origin), m_width(width)
    {
    }

    void add(const RawPoint &point)
    {
        if (m_hasBin && point.time >= m_binEnd)
            endBin();
        if (!m_hasBin) {
            m_binEnd = (point.time / m_width + 1) * m_width;
            m_hasBin = true;
            m_first = m_least = m_greatest = point;
        }
        m_last = point;
        if (point.raw < m_least.raw)
            m_least = point;
        if (point.raw > m_greatest.raw)
            m_greatest = point;
    }

    void beginLine()
    {
        endBin();
        m_lines.starts.push_back(m_lines.points.size());
        m_inLine = 0;
    }

    void endBin()
    {
        if (!m_hasBin)
            return;
        m_hasBin = false;
        const bool isLeastFirst = m_least.time < m_greatest.time;
        for (const RawPoint &point :
             {m_first, isLeastFirst ? m_least : m_greatest, isLeastFirst ? m_greatest : m_least, m_last})
            emitPoint(point);
    }

private:
    void emitPoint(const RawPoint &point)
    {
        if (m_inLine > 0 && point.time == m_emitted[1].time)
            return;
        // Only the ends of a level stretch are needed, unless each sample is to be seen.
        const bool isLevel =
            m_inLine > 1 && !m_lines.isSparse && m_emitted[0].raw == point.raw && m_emitted[1].raw == point.raw;
        if (isLevel)
            m_lines.points.pop_back();
        else
            m_emitted[0] = m_emitted[1];
        m_emitted[1] = point;
        ++m_inLine;
        constexpr double PerSecond = Microseconds::period::den;
        m_lines.points.emplace_back(double(point.time - m_origin) / PerSecond, m_column.value(point.raw));
    }

    Polylines &m_lines;
    const Column &m_column;
    qint64 m_origin;
    qint64 m_width;
    bool m_hasBin = false;
    qint64 m_binEnd = 0;
    RawPoint m_first{};
    RawPoint m_least{};
    RawPoint m_greatest{};
    RawPoint m_last{};
    RawPoint m_emitted[2] = {}; ///< the last two points of the line
    int m_inLine = 0;           ///< points so far
};

qint64 microseconds(TimePoint when)
{
    return std::chrono::floor<Microseconds>(when.time_since_epoch()).count();
}

} // namespace

Polylines decimated(const SampleStore &store, const Column &column, const TimeSpan &span, int pixels, TimePoint origin)
{
    Polylines lines;
    const Number begin = std::max(store.first(), store.lowerBound(span.from) - 1);
    const Number end = std::min(store.end(), store.lowerBound(span.to) + 1);
    const qint64 width = std::max<qint64>(1, (microseconds(span.to) - microseconds(span.from)) / std::max(1, pixels));
    lines.isSparse = (end - begin) * SparseDistance <= pixels;
    Collector collector(lines, column, microseconds(origin), width);
    bool isFirst = true;
    store.visit(begin, end, *column.field, [&](const SampleStore::Visited &sample) {
        if (std::exchange(isFirst, false) || sample.followsGap)
            collector.beginLine();
        collector.add({sample.microseconds, sample.raw});
    });
    collector.endBin();
    return lines;
}

std::optional<Extent> extentOf(const Polylines &lines)
{
    if (lines.points.empty())
        return std::nullopt;
    const auto isLower = [](const QPointF &one, const QPointF &other) { return one.y() < other.y(); };
    const auto [least, greatest] = std::minmax_element(lines.points.begin(), lines.points.end(), isLower);
    return Extent{least->y(), greatest->y()};
}

} // namespace recording
