#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

// What a poll costs the GUI thread, from the tick to the painted window: processor time of that thread, so that nobody
// else's work counts. Bare controls that show the same are the measure.

/** "Unit fields" is shown, and only the six realtime values change. */
Figures realtimeValuesShown(const Rounds &rounds);
/** "Unit fields" is shown, and nothing changes. */
Figures nothingShown(const Rounds &rounds);
/** "Unit fields" is shown, and all registers change. */
Figures everythingShown(const Rounds &rounds);
/** "Register fields" is shown, and all registers change. */
Figures registersShown(const Rounds &rounds);
