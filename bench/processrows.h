#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** Time from starting the program until its window is painted, against the bare twin and an empty window. */
Figures startTime(const Rounds &rounds);
/** Instructions of the program from its start to the first picture, and to its end, against the bare twin. */
Figures startInstructions(const Rounds &rounds);
/**
 * Processor time of the program while it polls for itself at its shortest interval, for each tab, and its memory
 * afterwards against the bare twin and a program with an empty window.
 */
Figures liveProgram(const Rounds &rounds);

class DrivenServo;

/** Share of one core, in percent, that the program uses while it polls @p servo and shows "Unit fields". */
double unitFieldsShare(const DrivenServo &servo, int polls);
