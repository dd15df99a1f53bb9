#include "device/conversionhelper.h"

#include "model/units.h"

double ConversionHelper::toDisplay(double value, qint32 fieldId, qint32 unitIndex) const
{
    return model::unit(model::FieldKind(fieldId), unitIndex).fromBase(value);
}

double ConversionHelper::fromDisplay(double value, qint32 fieldId, qint32 unitIndex) const
{
    return model::unit(model::FieldKind(fieldId), unitIndex).toBase(value);
}
