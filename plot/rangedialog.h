#pragma once

#include "recording/decimation.h"

#include <optional>

class QWidget;

namespace plot {

/** Lets the user type the ends of a range; waits for it. @return nothing when there is none, or it was cancelled. */
std::optional<recording::Extent> askForRange(QWidget *parent, const recording::Extent &shown);

} // namespace plot
