#pragma once

#include "model/field.h"

#include <QJsonValue>
#include <QString>

#include <optional>

namespace profile {

/** The unit of model::unit() that files tell values of @p kind in. */
int fileUnit(model::FieldKind kind);
/** @p raw, a value of @p field, as files tell it: a number in the unit @p unit, a name, or a list of flags. */
QJsonValue fileValue(const model::Field &field, qint32 raw, int unit);
/** The raw value that comes nearest to what @p value tells of @p field; nothing when it is no value of it. */
std::optional<qint32> rawOf(const model::Field &field, const QJsonValue &value, int unit);
/** @p value as it stands in a file. */
QString jsonText(const QJsonValue &value);

} // namespace profile
