#pragma once

#include "device/izelvarfield.h"
#include "device/tracked.h"

#include <QObjectList>
#include <QString>

#include <unordered_map>

/**
 * Finds the fields of a view by object name, and knows the field id of every bound control. GUI thread only.
 */
class FieldHelper
{
public:
    /** Collects every field among @p children and below them; they stay their owners'. */
    explicit FieldHelper(const QObjectList &children);
    Q_DISABLE_COPY(FieldHelper)

    /**
     * Which kind of value the control @p objectName shows: 0 to 7 the quantities of the unit table, 8 to 23
     * kinds without unit conversion. @throws std::out_of_range for a name that no field has.
     */
    static qint32 fieldIdOf(const QString &objectName);

    /** The field @p name; null when there is none or when its widget has been destroyed since. */
    IZelvarField *field(const QString &name) const;

private:
    void collect(const QObjectList &children);

    std::unordered_map<QString, Tracked<IZelvarField>> m_fields; // the mode locks look up most fields with each poll
};
