#pragma once

#include "model/field.h"

#include <QString>

#include <vector>

/** What a control shows of the own family's registers. */
struct FieldBinding
{
    enum class Part {
        Value,     ///< the whole value
        Magnitude, ///< all bits but the direction
        Direction, ///< the direction bit
        Flag,      ///< one bit of a field of flags
    };

    const char *control; ///< object name
    const model::Field *field;
    Part part = Part::Value;
    int bit = 0; ///< of a direction or a flag

    model::FieldKind kind() const;
    /** The bits of the field's registers that the control stands for. */
    quint32 mask() const;
    /** What the control gets when the field's registers hold @p bits. */
    qint32 shownValue(quint32 bits) const;
};

/** All bindings in the order of their registers. */
const std::vector<FieldBinding> &fieldBindings();
/** Those of @p field, which is one of the own family's. */
model::Rows<FieldBinding> fieldBindings(const model::Field &field);
/** The binding of the control @p objectName; null for a control without registers. */
const FieldBinding *fieldBinding(const QString &objectName);
