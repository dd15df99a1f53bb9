#pragma once

#include "recording/column.h"

#include <QPen>
#include <QString>
#include <QStringList>

#include <vector>

namespace plot {

/** One curve: what it shows, and how it looks. */
struct Curve
{
    recording::Column column;
    QPen pen;

    /** For example "Actual position". */
    QString name(const model::Family &family) const;
    /** @p value with the decimals of its unit, in the user's locale. */
    QString text(double value) const;
    /** The unit in the user's language; empty without one. */
    QString unitText() const;
};

/** The curves of one strip: one quantity, or one field that is none. */
struct StripCurves
{
    QString key; ///< stable, for the settings
    std::vector<Curve> curves;
};

/** The keys of what is shown of @p family until the user chooses. */
QStringList defaultKeys(const model::Family &family);
/** Whether @p field can be shown as a curve. */
bool canBeShown(const model::Field &field);
/** The fields with @p keys, strip by strip. */
std::vector<StripCurves> stripsOf(const model::Family &family, const QStringList &keys,
                                  const recording::UnitChoice &unitOf);

} // namespace plot
