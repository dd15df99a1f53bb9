#pragma once

#include <QtGlobal>

#include <optional>

class QString;

/** Where a field's value is in the own family's control table. */
struct FieldRegisters
{
    /** Of the lowest byte. */
    quint8 address = 0;
    /** Bytes of the value. */
    quint8 size = 0;
    /** Set for a field that is one bit of the value. */
    std::optional<int> bit;
};

/** The registers that the poll map has for the field @p objectName; nothing for a control without registers. */
std::optional<FieldRegisters> registersOf(const QString &objectName);
