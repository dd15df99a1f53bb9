#pragma once

#include "recording/column.h"
#include "recording/mark.h"

#include <QPointF>

#include <vector>

namespace recording {

/** What is left of a curve to draw: points by ascending time, and where lines begin anew. */
struct Polylines
{
    std::vector<QPointF> points;     ///< seconds from an origin, and the value in its unit
    std::vector<std::size_t> starts; ///< index of each line's first point; lost polls lie before all but the first
    bool isSparse = false;           ///< whether the points are all the samples, with some pixels between them
};

/** Pixels between two samples from which on they can be told apart. */
inline constexpr int SparseDistance = 6;

/**
 * The samples of @p column in @p span, and one on each side, as lines that look the same at @p pixels columns of
 * pixels: of the samples in one column the first, the least, the greatest and the last are left, so that the spike of a
 * single sample is there at every zoom. Columns of pixels begin at multiples of their width, so that nothing flickers
 * as the span moves on. @param origin where time is counted from.
 */
Polylines decimated(const SampleStore &store, const Column &column, const TimeSpan &span, int pixels, TimePoint origin);

/** The least and the greatest value of a column. */
struct Extent
{
    double least;
    double greatest;
};
/** Of @p lines; nothing when there is no point. */
std::optional<Extent> extentOf(const Polylines &lines);

} // namespace recording
