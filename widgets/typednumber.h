#pragma once

#include <QLocale>
#include <QString>

#include <optional>

/** Numbers as users type and paste them. */
namespace typednumber {

/**
 * Makes point and comma in @p text the decimal sign of @p locale: both mean it, since group separators are never shown.
 * Of several the last one counts and the others go. @p position, the cursor's, moves with its place.
 */
void adoptDecimalSign(QString &text, int &position, const QLocale &locale);
/** The number that @p text is, with point or comma as its decimal sign; nothing when it is none. */
std::optional<double> parsed(QString text, const QLocale &locale);

} // namespace typednumber
