#pragma once

#include "recording/decimation.h"
#include "recording/mark.h"
#include "recording/samplestore.h"
#include "recording/stepresponse.h"

#include <deque>
#include <optional>
#include <vector>

namespace recording {

/** A new target that was applied, and how the servo has followed it. */
struct Step
{
    Column target;
    Column actual;   ///< what follows the target
    TimeSpan span;   ///< from the Apply until the next one, ten seconds at most
    double from = 0; ///< the value at the Apply
    double to = 0;   ///< the new target in its unit; of what has no direction, its magnitude
    std::optional<StepFigures> figures;
    std::vector<session::AppliedField> gains; ///< what they were: their bits are in "wanted"
};

/** The latest @p count steps of which there are samples, the newest first. */
std::vector<Step> latestSteps(const SampleStore &samples, const std::deque<Mark> &marks, const UnitChoice &unitOf,
                              std::size_t count);

} // namespace recording
