#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** A poll through the link against a bare serial port, without pacing. */
Figures pollLatency(const Rounds &rounds);
/** Polls a second through the link against a bare serial port, on a wire of 1 Mbit/s. */
Figures pacedPolls(const Rounds &rounds);
