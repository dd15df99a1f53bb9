#pragma once

#include <QString>

class QCheckBox;

/** How the check boxes of the edit view look: text at the left edge of the group, indicator at the right one. */
namespace checkboxlook {

/** The style of a box with caption @p text that raises an alarm: red, whether it can be used or not. */
QString alarm(const QCheckBox &box, const QString &text);
/** The style of a box with caption @p text whose indicator shows nothing but its colour. */
QString quiet(const QCheckBox &box, const QString &text);
/** The style of a box with caption @p text that the user can check. */
QString checkable(const QCheckBox &box, const QString &text);
/** alarm(), but for a box that becomes white when it can be used. */
QString checkableAlarm(const QCheckBox &box, const QString &text);

} // namespace checkboxlook
