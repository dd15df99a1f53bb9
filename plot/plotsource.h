#pragma once

#include "recording/mark.h"
#include "recording/samplestore.h"

#include <QStringList>

#include <deque>
#include <memory>

namespace plot {

/** What is shown: the samples of connections, or of a file. */
struct PlotSource
{
    std::shared_ptr<const recording::SampleStore> samples; ///< null before the first one
    const std::deque<recording::Mark> *marks = nullptr;    ///< never null while it is shown
    recording::TimePoint origin;                           ///< where seconds are counted from
    recording::UnitChoice unitOf;
    QStringList keys; ///< of the fields that it has; empty: all

    const model::Family *family() const { return samples ? &samples->family() : nullptr; }
    bool has(const model::Field &field) const { return keys.isEmpty() || keys.contains(QLatin1String(field.key)); }
    bool isEmpty() const { return !samples || samples->isEmpty(); }

    double seconds(recording::TimePoint when) const { return std::chrono::duration<double>(when - origin).count(); }
    recording::TimePoint timeAt(double seconds) const
    {
        const std::chrono::duration<double> since(seconds);
        return origin + std::chrono::duration_cast<recording::TimePoint::duration>(since);
    }
};

} // namespace plot
