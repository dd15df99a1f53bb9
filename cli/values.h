#pragma once

#include "model/field.h"
#include "recording/column.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

namespace cli {

/** The units named in @p text, as "rad,rpm"; of each other kind its usual one. Throws a Failure. */
recording::UnitChoice unitsIn(const QString &text);
/** The unit that values of @p kind are told in with @p unitOf, in ASCII; empty when they have none. */
QString unitText(model::FieldKind kind, const recording::UnitChoice &unitOf);

/** @p raw, a value of @p field, as rawValueIn() takes it: "90.00deg", "joint", "on". */
QString valueText(const model::Field &field, qint32 raw, const recording::UnitChoice &unitOf);
/** The same as a number, a text, a truth value, or a list of flags. */
QJsonValue valueObject(const model::Field &field, qint32 raw, const recording::UnitChoice &unitOf);
/** That value with its unit and @p raw. */
QJsonObject fieldObject(const model::Field &field, qint32 raw, const recording::UnitChoice &unitOf);
/** What @p field can be set to or has, as "-18.000Nm to 18.000Nm". */
QString rangeText(const model::Field &field, const recording::UnitChoice &unitOf);

/**
 * The raw value that @p text stands for. Throws a Failure that begins with "key=text" when it is no value of @p field,
 * has a unit that does not fit, lacks one where there are several, or is outside the range.
 */
qint32 rawValueIn(const model::Field &field, const QString &text, const recording::UnitChoice &unitOf);

} // namespace cli
