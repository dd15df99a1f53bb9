#pragma once

#include <QSize>

/** Large enough for each tab to show everything that it has; the program itself keeps to the size of the screen. */
constexpr QSize WindowSize(1400, 1250);

/** Of the plot in a window of its own. */
constexpr QSize PlotSize(1300, 700);
