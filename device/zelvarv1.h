#pragma once

#include "device/devicebase.h"
#include "device/modedependencies.h"

#include <map>

/** The own servo family. */
class ZelvarV1 : public DeviceBase
{
public:
    /** @param dependencies what the two mode combo boxes run; shared with their limits records. */
    explicit ZelvarV1(const ModeDependencies &dependencies = {});

    /** What @p field of the family is called, in the user's language. */
    static QString fieldLabel(const model::Field &field);

    unsigned controlTableSize() const override;
    std::optional<RegisterDescription> registerDescription(quint16 address) const override;
    unsigned registerCount(quint32 bank) const override;
    bool hasRegisterMap() const override;

private:
    void describeRegisters();

    std::map<quint16, RegisterDescription> m_registers;
};
