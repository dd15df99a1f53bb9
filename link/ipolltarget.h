#pragma once

#include "link/registeritemhelper.h"

#include <QByteArray>

/**
 * What a poll needs from above the link and where its values go. The scheduler knows the program only through
 * this; the application implements it over the register bindings, the device model, the register view and the
 * status decoding. GUI thread only. Must remain live while a scheduler uses it.
 */
class IPollTarget
{
public:
    virtual ~IPollTarget() = default;

    /** The poll map. */
    virtual const RegisterBindings &registerBindings() const = 0;
    /** Bytes to read from address 0 to have the whole table of the connected servo. */
    virtual quint8 readLength() const = 0;
    /**
     * Keeps the registers that a reply brought, from address 0 on; called before the values in them are passed on.
     * A target that only shows values has nothing to keep.
     */
    virtual void take(const QByteArray &) {}
    /** Shows the raw @p value of the @p size registers from @p address, little-endian. */
    virtual void updateRegister(quint16 address, quint8 size, quint32 value) = 0;
    /** Shows the error byte of the reply just taken apart. */
    virtual void updateStatus(qint8 errorByte) = 0;
};
