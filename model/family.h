#pragma once

#include "model/field.h"

#include <QLatin1String>

namespace model {

/** Registers that are polled like a value although no field is there. */
struct Gap
{
    quint8 address;
    quint8 size; ///< bytes
};

/** Servos that have one table of registers. Lives as long as the program. */
struct Family
{
    const char *name;
    int tableSize;        ///< bytes, from address 0
    Rows<Field> fields;   ///< by ascending address; what no field covers is a gap
    Rows<Gap> gaps;       ///< may reach past the table
    const char *motorKey; ///< of the field that switches the motor on with 1 and off with 0

    /** The field @p key; null when there is none. */
    const Field *field(QLatin1String key) const;
    /** The field that the register @p address belongs to; null for a gap. */
    const Field *fieldAt(int address) const;
    /** The field that switches the motor. */
    const Field &motorSwitch() const { return (*this)[motorKey]; }
    /** As field(), for a field that the family has for certain: asserted. */
    const Field &operator[](const char *key) const;
};

/** Whether @p fields can be a family's table: in order, none over another, all inside @p tableSize bytes. */
constexpr bool isTable(Rows<Field> fields, int tableSize)
{
    int end = 0;
    for (const Field &field : fields) {
        if (field.address < end || (field.size != 1 && field.size != 2 && field.size != 4))
            return false;
        end = field.end();
    }
    return end <= tableSize;
}

} // namespace model
