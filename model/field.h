#pragma once

#include "model/fieldkind.h"
#include "model/rows.h"

#include <QtGlobal>

/** What a servo is: its fields, what their bytes mean, and the bytes last read. No widgets, no port. */
namespace model {

/** How the bytes of a field make its value. */
struct Encoding
{
    enum class Form : quint8 {
        Unsigned,
        Signed,   ///< two's complement
        Directed, ///< a magnitude, and a bit that is set for clockwise, which counts as negative
        Flags,    ///< bits that each mean something of their own
    };

    Form form = Form::Unsigned;
    quint8 directionBit = 0; ///< of a directed value
};

/** A straight line from raw values to physical ones in the base unit of their kind. */
struct Range
{
    qint32 rawMin = 0;
    qint32 rawMax = 0;
    double physicalMin = 0.0; ///< at rawMin
    double physicalMax = 0.0; ///< at rawMax
};

enum class Access : quint8 {
    ReadOnly,
    NonVolatile, ///< kept without a supply; written while the motor is off
    Volatile,
};

/** One bit of a field of flags. */
struct Flag
{
    quint8 bit;
    const char *key;
    const char *label;             ///< English
    const char *control = nullptr; ///< object name of the control that shows it; null when none does
};

/** Object names of what shows a field in the window; null where there is nothing. */
struct Shown
{
    const char *control = nullptr;
    const char *caption = nullptr;   ///< when the caption tells the field's unit
    const char *direction = nullptr; ///< the control of the direction bit; the other one has the magnitude then
};

/** One row of a family's table. */
struct Field
{
    const char *key; ///< stable: files and scripts carry it. Lower case with underscores, alone in its family.
    quint8 address;  ///< of the lowest byte
    quint8 size;     ///< bytes: 1, 2 or 4, the lowest first
    Encoding encoding;
    FieldKind kind;
    Access access;
    Range range;       ///< of the magnitude when the value is directed
    const char *label; ///< English; translated in the context named like the family
    Shown shown = {};
    Rows<Flag> flags = {};

    bool clearsItself = false; ///< the servo takes it back once it has done what it asks for

    constexpr int end() const { return address + size; }
    constexpr bool isWritable() const { return access != Access::ReadOnly; }
    constexpr bool isDirected() const { return encoding.form == Encoding::Form::Directed; }
    /** The direction bit alone, or 0. */
    constexpr quint32 directionMask() const { return isDirected() ? quint32(1) << encoding.directionBit : 0; }
};

} // namespace model
