#pragma once

#include "device/izelvarfield.h"

#include <QtGlobal>

/** A field whose kind of value, and with it its unit, is known. */
class IUnitField : public IZelvarField
{
public:
    /** The field id: which kind of value is shown (see fieldIdOf()). */
    virtual qint32 fieldId() const = 0;
};
