#include "recording/mark.h"

#include "model/units.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace recording {

namespace {

struct KindRow
{
    Mark::Kind kind;
    QLatin1String word;
};

// clang-format off
const KindRow Kinds[] = {
    {Mark::Kind::Applied,    QLatin1String("applied")    },
    {Mark::Kind::NotApplied, QLatin1String("not applied")},
    {Mark::Kind::Fault,      QLatin1String("fault")      },
    {Mark::Kind::Gap,        QLatin1String("gap")        },
    {Mark::Kind::Link,       QLatin1String("link")       },
};
// clang-format on

const QString Separator = QStringLiteral(": ");
constexpr int Digits = 6;

QString valueText(const session::AppliedField &field, const UnitChoice &unitOf)
{
    const Column column{field.field, unitOf(field.field->kind)};
    const double value = column.value(model::rawValue(*field.field, field.wanted));
    const QString number = QString::number(value, 'g', Digits);
    const QString unit = QLatin1String(model::asciiUnit(field.field->kind, column.unit));
    const QString text = QLatin1String(field.field->key) + QLatin1Char(' ') + number;
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

} // namespace

QString Mark::fileText() const
{
    for (const KindRow &row : Kinds) {
        if (row.kind == kind)
            return detail.isEmpty() ? QString(row.word) : row.word + Separator + detail;
    }
    return detail;
}

Mark Mark::fromFileText(TimePoint when, const QString &text)
{
    const int end = text.indexOf(Separator);
    const QString word = text.left(end);
    for (const KindRow &row : Kinds) {
        if (word == row.word)
            return {row.kind, when, end < 0 ? QString() : text.mid(end + Separator.size()), {}};
    }
    return {Kind::Link, when, text, {}};
}

QString appliedText(const std::vector<session::AppliedField> &fields, const UnitChoice &unitOf)
{
    QStringList texts;
    for (const session::AppliedField &field : fields)
        texts.append(valueText(field, unitOf));
    return texts.join(QLatin1String(", "));
}

void goThrough(const SampleStore &samples, const std::deque<Mark> &marks, const TimeSpan &span,
               const std::function<bool(const Mark &)> &takeMark,
               const std::function<bool(const model::RegisterImage &)> &takeSample)
{
    std::vector<Mark> sorted;
    std::copy_if(marks.begin(), marks.end(), std::back_inserter(sorted),
                 [&span](const Mark &mark) { return mark.when >= span.from && mark.when <= span.to; });
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Mark &one, const Mark &other) { return one.when < other.when; });
    auto mark = sorted.begin();
    for (auto number = samples.lowerBound(span.from); number < samples.end() && samples.timeOf(number) <= span.to;
         ++number) {
        for (; mark != sorted.end() && mark->when <= samples.timeOf(number); ++mark) {
            if (!takeMark(*mark))
                return;
        }
        if (!takeSample(samples.image(number)))
            return;
    }
    for (; mark != sorted.end(); ++mark) {
        if (!takeMark(*mark))
            return;
    }
}

} // namespace recording
