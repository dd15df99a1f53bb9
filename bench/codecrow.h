#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** The packets of a poll, encoded and taken apart again, against copying them and computing their CRC. */
Figures codecTime(const Rounds &rounds);
