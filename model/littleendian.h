#pragma once

#include <QtEndian>

namespace model {

/** The number that the @p size bytes (1 to 4) from @p bytes on make, lowest first. */
inline quint32 littleEndian(const quint8 *bytes, int size)
{
    quint8 padded[sizeof(quint32)] = {};
    for (int i = 0; i < size; ++i)
        padded[i] = bytes[i];
    return qFromLittleEndian<quint32>(padded);
}

/** Puts the lowest @p size bytes (1 to 4) of @p number to @p bytes, lowest first. */
inline void putLittleEndian(quint32 number, int size, quint8 *bytes)
{
    quint8 all[sizeof(quint32)];
    qToLittleEndian(number, all);
    for (int i = 0; i < size; ++i)
        bytes[i] = all[i];
}

} // namespace model
