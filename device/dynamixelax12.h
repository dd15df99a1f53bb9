#pragma once

#include "device/devicebase.h"

/** The AX-12: a few fields with limits, no register map. */
class DynamixelAx12 : public DeviceBase
{
public:
    DynamixelAx12();

    unsigned controlTableSize() const override;
    std::optional<RegisterDescription> registerDescription(quint16 address) const override;
    unsigned registerCount(quint32 bank) const override;
    bool hasRegisterMap() const override;
};
