#pragma once

#include "model/field.h"

namespace model {

/** @p raw, a value of @p field, in unit @p unit (0 or 1) of its kind: see model::unit(). */
double valueIn(const Field &field, qint32 raw, int unit);
/** The raw value that comes nearest to @p value in unit @p unit: the inverse of valueIn(). It may be out of range. */
qint32 nearestRaw(const Field &field, double value, int unit);
/** As many decimals, nine at most, as tell each step of @p field in unit @p unit from the next. */
int stepDecimals(const Field &field, int unit);

} // namespace model
