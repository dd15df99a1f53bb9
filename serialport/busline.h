#pragma once

#include "serialport/clock.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <utility>

/**
 * The line that a bus talks on: bytes out, bytes in, and the loss of it. Whoever keeps the bus's rules takes one, so
 * that a test can hand in a line of its own. To be used in the thread that it was made in.
 */
class BusLine
{
public:
    virtual ~BusLine() = default;

    /**
     * @param onReceived called from the event loop when bytes have arrived; it may destroy the line.
     * @param onLost called when the line is gone, with a text for the user, also from within the operations below; it
     * closes the line.
     */
    void listen(std::function<void()> onReceived, std::function<void(const QString &)> onLost)
    {
        m_onReceived = std::move(onReceived);
        m_onLost = std::move(onLost);
    }

    /** Opens a line that is closed. @return an empty text, or what went wrong and what to do about it. */
    virtual QString open(const QString &name, int baudRate) = 0;
    virtual void close() = 0;
    /** Hands bytes over to be sent, without waiting until they are. */
    virtual void send(const QByteArray &bytes) = 0;
    /** Returns and removes what has arrived. */
    virtual QByteArray takeReceived() = 0;
    /** Throws away what has arrived, down to what the system still keeps. */
    virtual void discardReceived() = 0;
    /** Waits without returning to the event loop, and without calling onReceived. @return whether bytes came. */
    virtual bool waitForReceived(Clock::Duration limit) = 0;

protected:
    void reportReceived() const { m_onReceived(); }
    void reportLost(const QString &reason) const { m_onLost(reason); }

private:
    std::function<void()> m_onReceived;
    std::function<void(const QString &)> m_onLost;
};
