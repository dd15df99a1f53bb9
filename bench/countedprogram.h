#pragma once

#include <QString>

/** How far a program whose instructions are counted runs. */
enum class RunUntil {
    Painted, ///< its first window
    Ended,   ///< by closing that window
};

/**
 * Millions of instructions of the program @p path, its libraries included and the kernel left out, as valgrind's
 * callgrind counts them: the same from run to run within a thousandth. A program that cannot be counted ends this one.
 */
double millionInstructions(const QString &path, RunUntil until);
