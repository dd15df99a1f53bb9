#pragma once

#include <QCoreApplication>
#include <QString>

class IDevice;

/** What the tool tips of the bound controls say, put together from the tables of the connected device. */
class FieldToolTip
{
    Q_DECLARE_TR_FUNCTIONS(FieldToolTip)

public:
    /**
     * The registers of the field @p objectName and what they hold, for example "Register 78–81: Target
     * position"; empty when @p device does not describe them.
     */
    static QString registerText(const IDevice &device, const QString &objectName);
    /** For example "Range: -1602.211 to 1602.211 radians". @param unit empty for a field without one. */
    static QString rangeText(const QString &minimum, const QString &maximum, const QString &unit);
    /**
     * What the caption of the control @p objectName does not say: of a status what it means and what to do, of a number
     * whose caption has another unit the right one. Empty for most. @param unit the unit that the control shows.
     */
    static QString remarkText(const QString &objectName, const QString &unit = QString());
    /** That @p typed is no number. */
    static QString noNumberText(const QString &typed);
    /** That @p typed was beyond the range and has been corrected. */
    static QString correctedText(const QString &typed);
    /** That the field was changed and the servo still has @p value. */
    static QString changedText(const QString &value);
    /** That the field was changed once more while @p value, applied before, is not proved yet. */
    static QString changedAgainText(const QString &value);
    /** That what the field shows was applied and is not proved yet. */
    static QString pendingText();
};
