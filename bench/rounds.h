#pragma once

/** How often each measurement is repeated. */
struct Rounds
{
    int polls;          ///< single polls over the link, each way
    int warmUp;         ///< polls before any of them counts
    int batches;        ///< batches of paced polls, each way
    int batchSize;      ///< polls in such a batch
    int shownPolls;     ///< polls shown in the window, each way
    int starts;         ///< program starts, each way
    int livePolls;      ///< polls of a program that runs for itself
    int silentIds;      ///< ids of a scan
    int stops;          ///< of the motor, each way
    int frames;         ///< of the plot
    int codecRounds;    ///< repetitions of the codec's work, each way
    bool scansAllRates; ///< whether a scan of all baud rates, half a minute, is among them
};

constexpr Rounds FullRounds{3000, 200, 10, 200, 400, 25, 1000, 253, 200, 50, 400, true};
/** Enough to see that everything works; the figures mean nothing. */
constexpr Rounds QuickRounds{50, 5, 2, 20, 20, 2, 100, 10, 5, 3, 20, false};
