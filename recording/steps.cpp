#include "recording/steps.h"

#include <algorithm>
#include <cmath>

namespace recording {

namespace {

using Number = SampleStore::Number;

constexpr std::chrono::seconds LongestResponse{10};

/** A target and what follows it. */
struct Pair
{
    const char *target;
    const char *actual;
};

constexpr Pair Pairs[] = {
    {"target_position", "actual_position"},
    {"target_angular_velocity", "actual_angular_velocity"},
    {"target_torque", "actual_torque"},
    {"goal_position", "present_position"},
};

bool isGain(const model::Field &field)
{
    using Kind = model::FieldKind;
    const Kind kinds[] = {Kind::PositionGain, Kind::VelocityFeedforward, Kind::CurrentFeedforward, Kind::VelocityGain,
                          Kind::VelocityIntegralGain};
    return field.access == model::Access::Volatile &&
           std::find(std::begin(kinds), std::end(kinds), field.kind) != std::end(kinds);
}

const Pair *pairOf(const session::AppliedField &field)
{
    const auto isTarget = [&field](const Pair &pair) { return qstrcmp(pair.target, field.field->key) == 0; };
    const auto *pair = std::find_if(std::begin(Pairs), std::end(Pairs), isTarget);
    return pair == std::end(Pairs) ? nullptr : pair;
}

std::vector<session::AppliedField> gainsAt(const SampleStore &samples, Number number)
{
    const model::RegisterImage image = samples.image(number);
    std::vector<session::AppliedField> gains;
    for (const model::Field &field : samples.family().fields) {
        if (isGain(field))
            gains.push_back({&field, image.bits(field).value_or(0), std::nullopt, std::nullopt});
    }
    return gains;
}

std::vector<TimedValue> valuesOf(const SampleStore &samples, const Step &step, Number begin, Number end)
{
    std::vector<TimedValue> values;
    for (Number number = begin; number < end; ++number) {
        const std::chrono::duration<double> since = samples.timeOf(number) - step.span.from;
        values.push_back({since.count(), step.actual.value(samples.raw(number, *step.actual.field))});
    }
    return values;
}

/** The step that @p applied has begun at @p from; nothing when no samples tell of it. */
std::optional<Step> stepOf(const SampleStore &samples, const session::AppliedField &applied, const TimeSpan &span,
                           const UnitChoice &unitOf)
{
    const Pair *pair = pairOf(applied);
    const Number begin = samples.lowerBound(span.from) - 1;
    const Number end = samples.lowerBound(span.to);
    if (!pair || begin < samples.first() || end - begin < 2)
        return std::nullopt;
    const model::Field &actual = samples.family()[pair->actual];
    Step step{{applied.field, unitOf(applied.field->kind)}, {&actual, unitOf(actual.kind)}, span, 0, 0, {}, {}};
    step.to = step.target.value(model::rawValue(*applied.field, applied.wanted));
    const bool hasDirection = actual.isDirected() || actual.encoding.form == model::Encoding::Form::Signed;
    if (applied.field->isDirected() && !hasDirection)
        step.to = std::abs(step.to);
    const std::vector<TimedValue> values = valuesOf(samples, step, begin, end);
    step.from = values.front().value;
    step.figures = stepFigures(values, step.to);
    step.gains = gainsAt(samples, end - 1);
    return step;
}

} // namespace

std::vector<Step> latestSteps(const SampleStore &samples, const std::deque<Mark> &marks, const UnitChoice &unitOf,
                              std::size_t count)
{
    std::vector<Step> steps;
    TimePoint next = TimePoint::max();
    for (auto mark = marks.rbegin(); mark != marks.rend() && steps.size() < count; ++mark) {
        if (mark->kind != Mark::Kind::Applied)
            continue;
        const TimeSpan span{mark->when, std::min(next, mark->when + LongestResponse)};
        for (const session::AppliedField &applied : mark->applied) {
            auto step = stepOf(samples, applied, span, unitOf);
            if (step && step->figures) {
                steps.push_back(std::move(*step));
                break;
            }
        }
        next = mark->when;
    }
    return steps;
}

} // namespace recording
