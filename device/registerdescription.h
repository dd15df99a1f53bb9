#pragma once

#include <QString>

/** What the register view shows of one register, beside its value. */
struct RegisterDescription
{
    /** 0 and 1: the non-volatile banks; 2 and 3: the volatile ones. */
    quint32 bank = 0;
    /** Row inside the bank's table, from 0. */
    quint16 row = 0;
    /** 1 when the user may write the register, 0 when it is read-only. */
    quint32 writable = 0;
    QString description;
};
