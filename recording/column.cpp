#include "recording/column.h"

#include "model/units.h"

#include <cmath>

namespace recording {

QByteArray Column::title() const
{
    const QByteArray text = model::asciiUnit(field->kind, unit);
    return text.isEmpty() ? QByteArray(field->key) : QByteArray(field->key) + " [" + text + ']';
}

double Column::value(qint32 raw) const
{
    return model::unit(field->kind, unit).fromBase(model::physicalValue(*field, raw));
}

std::optional<double> Column::value(const model::RegisterImage &image) const
{
    const auto raw = image.raw(*field);
    return raw ? std::optional<double>(value(*raw)) : std::nullopt;
}

qint32 Column::rawAt(double wanted) const
{
    // The way back truncates, so that a value that is a hair too small gives the raw value before.
    const qint32 truncated = model::rawAt(*field, model::unit(field->kind, unit).toBase(wanted));
    qint32 nearest = truncated;
    for (const qint32 candidate : {truncated - 1, truncated + 1}) {
        if (std::abs(value(candidate) - wanted) < std::abs(value(nearest) - wanted))
            nearest = candidate;
    }
    return nearest;
}

std::vector<Column> allColumns(const model::Family &family, const UnitChoice &unitOf)
{
    std::vector<Column> columns;
    columns.reserve(family.fields.size());
    for (const model::Field &field : family.fields)
        columns.push_back({&field, unitOf(field.kind)});
    return columns;
}

} // namespace recording
