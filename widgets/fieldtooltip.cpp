#include "widgets/fieldtooltip.h"

#include "device/fieldregisters.h"
#include "device/idevice.h"

#include <QRegularExpression>

namespace {

QString addressText(const FieldRegisters &registers)
{
    if (registers.size == 1)
        return QString::number(registers.address);
    return QStringLiteral("%1\u2013%2").arg(registers.address).arg(registers.address + registers.size - 1);
}

/** @p description of one byte of several without what tells the bytes apart: "(lower)", "(byte 0)". */
QString withoutByte(const QString &description)
{
    static const QRegularExpression byteSuffix(QStringLiteral("\\s*\\([^()]*\\)$"));
    return QString(description).remove(byteSuffix);
}

} // namespace

QString FieldToolTip::registerText(const IDevice &device, const QString &objectName)
{
    const auto registers = registersOf(objectName);
    const auto described = registers ? device.registerDescription(registers->address) : std::nullopt;
    if (!described)
        return {};
    const QString addresses = addressText(*registers);
    const QString text = registers->size == 1 ? described->description : withoutByte(described->description);
    if (registers->bit)
        return tr("Register %1, bit %2: %3").arg(addresses).arg(*registers->bit).arg(text);
    return tr("Register %1: %2").arg(addresses, text);
}

QString FieldToolTip::rangeText(const QString &minimum, const QString &maximum, const QString &unit)
{
    if (unit.isEmpty())
        return tr("Range: %1 to %2").arg(minimum, maximum);
    return tr("Range: %1 to %2 %3").arg(minimum, maximum, unit);
}
