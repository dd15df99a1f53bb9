#pragma once

#include "device/conversionhelper.h"
#include "device/physicalquantities.h"
#include "model/units.h"

#include <QString>

#include <memory>

/**
 * The display units that a control was connected with. The choices are a copy of the user's, so that value
 * and caption stay in the same unit until the next connection. Field ids outside 0 to 7 have no unit.
 */
class UnitsHelper
{
public:
    /** Without @p quantities every quantity has its first unit. */
    explicit UnitsHelper(std::shared_ptr<const PhysicalQuantities> quantities);

    /**
     * @p value in the quantity's base unit to the chosen display unit; unchanged for a field without a unit.
     */
    double toDisplay(double value, qint32 fieldId) const;
    /** The inverse of toDisplay(). */
    double fromDisplay(double value, qint32 fieldId) const;

    /** 0 or 1; 0 for a field without a unit and for a choice that the quantity does not offer. */
    qint32 unitIndex(qint32 fieldId) const;
    /** The chosen unit's text; empty for a field without a unit. */
    QString unitName(qint32 fieldId) const;
    /** Decimals to show in the chosen unit; 0 for a field without a unit. */
    int decimals(qint32 fieldId) const;
    /** Step of a spin box in the chosen unit; 0 for a field without a unit. */
    double singleStep(qint32 fieldId) const;

private:
    const model::Unit &unit(qint32 fieldId) const;

    std::shared_ptr<const PhysicalQuantities> m_quantities;
    std::shared_ptr<const ConversionHelper> m_conversion;
};
