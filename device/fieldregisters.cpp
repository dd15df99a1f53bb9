#include "device/fieldregisters.h"

#include "device/pollmap.h"

#include <QLatin1String>
#include <QString>

namespace {

// A row without a control has no name; its comparison must not match an empty one.
bool isNamed(const char *field, const QString &objectName)
{
    return field && objectName == QLatin1String(field);
}

} // namespace

std::optional<FieldRegisters> registersOf(const QString &objectName)
{
    for (const pollmap::Item &item : pollmap::Items) {
        if (isNamed(item.field, objectName))
            return FieldRegisters{item.address, item.size, std::nullopt};
        if (isNamed(item.directionField, objectName))
            return FieldRegisters{item.address, item.size, pollmap::DirectionBit};
    }
    for (const pollmap::HardwareError &error : pollmap::HardwareErrors) {
        if (isNamed(error.field, objectName))
            return FieldRegisters{pollmap::HardwareErrorRegister, 1, error.bit};
    }
    return std::nullopt;
}
