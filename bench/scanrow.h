#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** A scan of ids that nobody has, against the time that servos are given to answer. */
Figures silentScan(const Rounds &rounds);
