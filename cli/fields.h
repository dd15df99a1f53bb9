#pragma once

#include "model/family.h"

#include <QStringList>

#include <vector>

namespace cli {

/** All families that there are, for what can be said without a servo. */
const std::vector<const model::Family *> &families();

/**
 * The fields of @p family that @p patterns name, keys with "*" and "?" standing for anything, in their order and each
 * once; all fields without a pattern. Throws a Failure for a pattern that names none.
 */
std::vector<const model::Field *> chosenFields(const model::Family &family, const QStringList &patterns);

/** The same without those patterns that name none. */
std::vector<const model::Field *> matchingFields(const model::Family &family, const QStringList &patterns);

/** Throws a Failure for the first of @p patterns that names no field of any family. */
void checkPatterns(const QStringList &patterns);

/** What to say about @p key, which is none of the keys of @p among, and what was probably meant. */
QString unknownField(const QString &key, const std::vector<const model::Family *> &among);

} // namespace cli
