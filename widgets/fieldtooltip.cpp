#include "widgets/fieldtooltip.h"

#include "device/fieldbinding.h"
#include "device/zelvarv1.h"

namespace {

QString addressText(const model::Field &field)
{
    if (field.size == 1)
        return QString::number(field.address);
    return QStringLiteral("%1\u2013%2").arg(field.address).arg(field.end() - 1);
}

} // namespace

QString FieldToolTip::registerText(const IDevice &device, const QString &objectName)
{
    const FieldBinding *binding = device.hasRegisterMap() ? fieldBinding(objectName) : nullptr;
    if (!binding)
        return {};
    const QString addresses = addressText(*binding->field);
    const QString text = ZelvarV1::fieldLabel(*binding->field);
    const bool isOneBit = binding->part == FieldBinding::Part::Direction || binding->part == FieldBinding::Part::Flag;
    if (isOneBit)
        return tr("Register %1, bit %2: %3").arg(addresses).arg(binding->bit).arg(text);
    return tr("Register %1: %2").arg(addresses, text);
}

QString FieldToolTip::rangeText(const QString &minimum, const QString &maximum, const QString &unit)
{
    if (unit.isEmpty())
        return tr("Range: %1 to %2").arg(minimum, maximum);
    return tr("Range: %1 to %2 %3").arg(minimum, maximum, unit);
}
