#pragma once

#include "bench/figure.h"
#include "bench/rounds.h"

/** Reading a whole table with zelvar-servo, against an empty program that does the bare exchange. */
Figures shellGet(const Rounds &rounds);
/** What zelvar-servo monitor needs of a core at 100 samples a second, and how late the latest of them is. */
Figures shellMonitor(const Rounds &rounds);
/** How long zelvar-servo scan takes for all ids in both framings. */
Figures shellScan(const Rounds &rounds);
