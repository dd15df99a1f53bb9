#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** From the key that stops the motor until the servo has been told, beside a bare write of the same packet. */
Figures keyToWire(const Rounds &rounds);
