#pragma once

#include <optional>
#include <vector>

namespace recording {

/** A value at a time. */
struct TimedValue
{
    double seconds; ///< since the step
    double value;
};

/**
 * How a value has followed a step of its target, from what it was at the step to the new target.
 *
 * Each figure is there as soon as the samples tell it, and may change while more of them come.
 */
struct StepFigures
{
    /** From where the value has gone 10 % of the way to where it has gone 90 %, in seconds. */
    std::optional<double> riseTime;
    /** How far it has gone past the target at most, in percent of the way. */
    double overshoot = 0;
    /** From the step until it is within 2 % of the way around the target for good, in seconds. */
    std::optional<double> settlingTime;
    /** What is left of the way to the target at the last sample, in the value's unit. */
    double remaining = 0;
};

/**
 * The figures of a step to @p target at second 0. @param values by ascending time; the first one, at or before the
 * step, is where it begins. @return nothing unless there is a way to go and a sample after the step.
 */
std::optional<StepFigures> stepFigures(const std::vector<TimedValue> &values, double target);

} // namespace recording
