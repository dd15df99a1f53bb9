#pragma once

#include "model/registerimage.h"

#include <QByteArray>
#include <QDateTime>

#include <optional>
#include <vector>

/** The parameters of servos as files, their comparison, and the way back into a servo. No widgets, no port. */
namespace profile {

/** A field and its raw value. */
struct Value
{
    const model::Field *field;
    qint32 raw;
};

/** Registers that lie side by side. */
struct Span
{
    int address; ///< of the first one
    int size;
};

/** The non-volatile parameters of one servo, all of them or, when partial, some. A value. */
struct Profile
{
    quint16 model = 0;
    std::optional<quint8> firmware; ///< this and the next two are always there unless it is partial
    std::optional<quint8> id;
    QDateTime time; ///< in UTC: when the servo had them
    bool isPartial = false;
    std::vector<Value> values; ///< by ascending address
    QByteArray bytes;          ///< of nonVolatileRegisters(); empty when partial

    const model::Family &family() const;
    /** The value of @p field; nothing when it is not among them. */
    std::optional<qint32> raw(const model::Field &field) const;

    /** What a servo has. REQUIRES: all registers of @p image have been read. */
    static Profile of(const model::RegisterImage &image, const QDateTime &time);
};

/** The fields of @p family that are kept without a supply, by ascending address. */
std::vector<const model::Field *> nonVolatileFields(const model::Family &family);
/** The registers from the first one to the last one of these fields; what lies between is in it, too. */
Span nonVolatileRegisters(const model::Family &family);

/** Whether @p field says where the servo is found on the bus: its id or its baud rate. */
bool isAddress(const model::Field &field);
/** Whether @p field has a meaning for one servo alone, so that no other one is given it: its address, its zero. */
bool belongsToOneServo(const model::Field &field);

} // namespace profile
