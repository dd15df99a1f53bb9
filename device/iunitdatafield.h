#pragma once

#include "device/iunitfield.h"

/** A field that shows a register's value. GUI thread only. */
class IUnitDataField : public IUnitField
{
public:
    /** A raw value from the servo; shown only while the control is connected. */
    virtual void setValue(int raw) = 0;
    /** The raw value that a save writes, except for the list of baud rates: the index of its code. */
    virtual int value() const = 0;
    /** Looks up the field id of @p name and takes the name. @throws std::out_of_range when there is none. */
    virtual void setObjectName(const QString &name) = 0;
    /** Runs what depends on this field, before a new value is shown; most fields have nothing that does. */
    virtual void applyDependency() = 0;
};
