#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** What it costs to paint ten minutes of samples, and to keep them while nobody looks. */
Figures paintedPlot(const Rounds &rounds);
/** What the program costs more while it shows the plot. */
Figures livePlot(const Rounds &rounds);
