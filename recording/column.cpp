#include "recording/column.h"

#include "model/fieldvalue.h"
#include "model/units.h"

namespace recording {

QByteArray Column::title() const
{
    const QByteArray text = model::asciiUnit(field->kind, unit);
    return text.isEmpty() ? QByteArray(field->key) : QByteArray(field->key) + " [" + text + ']';
}

double Column::value(qint32 raw) const
{
    return model::valueIn(*field, raw, unit);
}

std::optional<double> Column::value(const model::RegisterImage &image) const
{
    const auto raw = image.raw(*field);
    return raw ? std::optional<double>(value(*raw)) : std::nullopt;
}

qint32 Column::rawAt(double wanted) const
{
    return model::nearestRaw(*field, wanted, unit);
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
