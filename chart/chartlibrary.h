#pragma once

#include "chart/chart.h"

namespace chart {

/** The charts, or why there are none. */
struct LoadResult
{
    const Charts *charts = nullptr; ///< stays until the process ends
    QString error;                  ///< for the user; empty with charts
};

/** Loads the library that draws charts, unless that was done before. GUI thread only. */
LoadResult load();

} // namespace chart
