#pragma once

#include "recording/column.h"
#include "recording/samplestore.h"
#include "session/applyreport.h"

#include <QString>

#include <deque>
#include <functional>
#include <vector>

namespace recording {

/** Something that happened beside the samples. */
struct Mark
{
    enum class Kind {
        Applied,    ///< a block that the servo has taken
        NotApplied, ///< a block that it has not, or of which nobody knows
        Fault,      ///< a hardware error has come or gone
        Gap,        ///< polls have been lost
        Link,       ///< of connection and port
    };

    Kind kind = Kind::Link;
    TimePoint when;
    QString detail;                             ///< may be empty
    std::vector<session::AppliedField> applied; ///< what a block was to change

    /** What files have for it: the kind and the detail, for example "applied: target_position 2.5 rad". English, like
     *  the keys. */
    QString fileText() const;
    /** The inverse, but for what was applied. */
    static Mark fromFileText(TimePoint when, const QString &text);
};

/** What @p fields were to become, as files have it: "target_position 2.5 rad, torque_limit 1 Nm". */
QString appliedText(const std::vector<session::AppliedField> &fields, const UnitChoice &unitOf);

/** A stretch of time. */
struct TimeSpan
{
    TimePoint from;
    TimePoint to;
};

/**
 * Hands the samples and marks of @p span on in the order of their times, until one of the two returns false.
 * @param marks in any order.
 */
void goThrough(const SampleStore &samples, const std::deque<Mark> &marks, const TimeSpan &span,
               const std::function<bool(const Mark &)> &takeMark,
               const std::function<bool(const model::RegisterImage &)> &takeSample);

} // namespace recording
