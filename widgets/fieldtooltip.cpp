#include "widgets/fieldtooltip.h"

#include "device/fieldbinding.h"
#include "device/zelvarv1.h"

#include <algorithm>
#include <iterator>

namespace {

struct Remark
{
    const char *objectName;
    const char *text; ///< %1 is the unit that the control shows
};

constexpr char ProfileRemark[] =
    QT_TRANSLATE_NOOP("FieldToolTip", "This number is in rad/s, also where the caption tells another unit.");

// clang-format off
constexpr Remark Remarks[] = {
    {"overloadStatusCheckBox",     QT_TRANSLATE_NOOP("FieldToolTip", "The load is more than the motor can move or hold. Take it off, then reboot the servo.")},
    {"overheatingStatusCheckBox",  QT_TRANSLATE_NOOP("FieldToolTip", "The servo is hotter than its temperature limit. Turn the motor off and let it cool down.")},
    {"angleLimitStatusCheckBox",   QT_TRANSLATE_NOOP("FieldToolTip", "The position, or the target, is beyond the angle limits. Choose a target within them.")},
    {"inputVoltageStatusCheckBox", QT_TRANSLATE_NOOP("FieldToolTip", "The supply voltage is below the minimum or above the maximum voltage. Check the supply and these two limits.")},
    {"encoderStatusCheckBox",      QT_TRANSLATE_NOOP("FieldToolTip", "The position sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.")},
    {"hallStatusCheckBox",         QT_TRANSLATE_NOOP("FieldToolTip", "The motor's rotation sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.")},
    {"processStatusCheckBox",      QT_TRANSLATE_NOOP("FieldToolTip", "The servo could not carry out the last request. If this stays, reboot the servo.")},
    {"instructionStatusCheckBox",  QT_TRANSLATE_NOOP("FieldToolTip", "The servo does not know the last instruction. Check that it is a model that this program supports.")},
    {"checksumStatusCheckBox",     QT_TRANSLATE_NOOP("FieldToolTip", "The last request arrived damaged. Check cable and adapter, or choose a lower baud rate.")},
    {"rangeStatusCheckBox",        QT_TRANSLATE_NOOP("FieldToolTip", "A value was beyond what its register takes. Check what was applied last.")},
    {"dataLengthStatusCheckBox",   QT_TRANSLATE_NOOP("FieldToolTip", "The last request had more or fewer bytes than its registers. Check that the servo is a model that this program supports.")},
    {"dataLimitStatusCheckBox",    QT_TRANSLATE_NOOP("FieldToolTip", "A value was beyond a limit that is set in the servo. Check the limits among the non-volatile parameters.")},
    {"accessStatusCheckBox",       QT_TRANSLATE_NOOP("FieldToolTip", "A register cannot be written, or not now. Turn the motor off before you change non-volatile parameters.")},
    {"alertStatusCheckBox",        QT_TRANSLATE_NOOP("FieldToolTip", "The servo reports a hardware error. The boxes under \"Hardware error status\" tell which.")},
    {"quadratureCurrentLimitDoubleSpinBox",    QT_TRANSLATE_NOOP("FieldToolTip", "This limit is a torque: its number is in %1, not in the unit of the caption.")},
    {"defAngularVelocityProfileDoubleSpinBox", ProfileRemark},
    {"angularVelocityProfileDoubleSpinBox",    ProfileRemark},
};
// clang-format on

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

QString FieldToolTip::remarkText(const QString &objectName, const QString &unit)
{
    const auto *const end = std::end(Remarks);
    const auto *const remark = std::find_if(std::begin(Remarks), end, [&](const Remark &candidate) {
        return objectName == QLatin1String(candidate.objectName);
    });
    return remark == end ? QString() : tr(remark->text).replace(QLatin1String("%1"), unit);
}

QString FieldToolTip::noNumberText(const QString &typed)
{
    return tr("\"%1\" is no number and is not applied.").arg(typed);
}

QString FieldToolTip::correctedText(const QString &typed)
{
    return tr("%1 was beyond the range and has been corrected.").arg(typed);
}

QString FieldToolTip::changedText(const QString &value)
{
    return tr("Changed, not applied. The servo has: %1").arg(value);
}

QString FieldToolTip::changedAgainText(const QString &value)
{
    return tr("Changed, not applied. Applied before, and not read back from the servo yet: %1").arg(value);
}

QString FieldToolTip::pendingText()
{
    return tr("Pending: this was applied and has not been read back from the servo yet.");
}
