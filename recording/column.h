#pragma once

#include "model/registerimage.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

namespace recording {

/** One column of a recording: a field in one of the units of its kind. A value. */
struct Column
{
    const model::Field *field;
    int unit = 0; ///< which one of model::unit()

    /** The field's key and its unit in ASCII, for example "actual_position [rad]"; the key alone without a unit. */
    QByteArray title() const;
    /** @p raw, a value of the field, in the unit. */
    double value(qint32 raw) const;
    /** The value that the field has in @p image; nothing unless its registers are known. */
    std::optional<double> value(const model::RegisterImage &image) const;
    /** The raw value that comes nearest to @p value: the inverse of value(). */
    qint32 rawAt(double value) const;

    bool operator==(const Column &other) const { return field == other.field && unit == other.unit; }
};

/** Which unit, 0 or 1, the values of a kind are to be told in. */
using UnitChoice = std::function<int(model::FieldKind)>;

/** A column for each field of @p family, by ascending address. */
std::vector<Column> allColumns(const model::Family &family, const UnitChoice &unitOf);

} // namespace recording
