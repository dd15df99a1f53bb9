#pragma once

#include "device/fieldlimits.h"
#include "device/registerdescription.h"
#include "model/family.h"

#include <QString>

#include <optional>

/** What the rest of the program knows about a connected servo's model. Immutable once built. */
class IDevice
{
public:
    /** Bytes of the control table, from address 0. */
    virtual unsigned controlTableSize() const = 0;
    /**
     * The limits of the control @p objectName. @throws std::out_of_range when the model does not define it.
     */
    virtual FieldLimits limits(const QString &objectName) const = 0;
    /** What the register at @p address is; nothing for a gap, or when the model has no register map. */
    virtual std::optional<RegisterDescription> registerDescription(quint16 address) const = 0;
    /** Described registers of @p bank (0 to 3). */
    virtual unsigned registerCount(quint32 bank) const = 0;
    /** Whether the own family's register map and poll map apply to the servo. */
    virtual bool hasRegisterMap() const = 0;
    /** Whether limits() knows @p objectName. */
    virtual bool definesField(const QString &objectName) const = 0;
    /** The servo's registers; they live as long as the program. */
    virtual const model::Family &family() const = 0;

    virtual ~IDevice() = default;
};
