#pragma once

#include "serialport/serialportexport.h"
#include "serialport/serialportitem.h"
#include "serialport/servobus.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

/**
 * One user of a serial bus of smart servos who keeps one callback: hands whole, checked replies over in one layout.
 *
 * Requests are queued and go out one at a time. Each request's @c onData is called when its reply waits in
 * readPendingSerialData(), but only while the request is the newest one made here. At most one read waits: a newer
 * request of any kind withdraws it. Reply layout, whatever the servo's framing: a read of n bytes gives n + 11 bytes,
 * byte 8 the error byte and data from byte 9; a write, reboot or reset gives 6 bytes, byte 2 the servo id and byte 4
 * the error byte (serialport/replybytes.h). A read that the servo refuses gives nothing.
 *
 * Usable from the one thread it was made in; every callback and signal comes there. Operations on a closed port
 * return false and do nothing. An @c onData may do anything, destroying this object included. It may be destroyed in
 * another thread once it is closed and the event loop has turned.
 */
class ZELVAR_SERIALPORT_EXPORT ZelvarSerialPortInterface : public QObject
{
    Q_OBJECT

public:
    /** @param protocolGeneration the framing to speak first to a servo that has not answered yet: 1 or 2. */
    explicit ZelvarSerialPortInterface(QObject *parent, unsigned char protocolGeneration);
    /** Works on @p bus in place of one of its own. */
    ZelvarSerialPortInterface(QObject *parent, std::unique_ptr<ServoBus> bus);
    ~ZelvarSerialPortInterface() override;

    /**
     * Opens @p portName (a name of the port list, or a path) with 8 data bits, no parity, 1 stop bit at
     * @p baudRate bits per second; a port that is open is closed first.
     * @return an empty text, or what went wrong and what to do about it, for the user.
     */
    virtual QString openSerialPort(QString portName, int baudRate);
    /** Closes the port and forgets every request; nothing is called back afterwards. */
    virtual void closeSerialPort();
    /** The ports present now: simulated buses first, then the system's. */
    virtual std::vector<std::shared_ptr<SerialPortItem>> getSerialPortList();

    /** Queues a read of @p length registers from @p address. An equal read that waits or is under way is joined. */
    virtual bool readData(unsigned char id, unsigned char address, unsigned char length, std::function<void()> onData);
    /** Queues a write; it is repeated until the servo answers, five times at most. */
    virtual bool writeData(unsigned char id, unsigned char address, const QByteArray &data,
                           std::function<void()> onData);
    /** Reboots a servo. Runs to the end inside the call, @p onData included: 300 ms at most after queued writes. */
    virtual bool reboot(unsigned char id, std::function<void()> onData);
    /** Sets a servo back to its defaults but for id and baud rate; timing as reboot(). */
    virtual bool reset(unsigned char id, std::function<void()> onData);

    /** Returns and removes the reply bytes that wait. */
    virtual QByteArray readPendingSerialData();
    /** Drops reply bytes that nobody took; to be called when a whole reply has been consumed. */
    virtual void cleanUp();

    /** The bus behind all this, for users who want results of their own; its port is this object's. Never null. */
    ServoBus *bus() const { return m_bus.get(); }

Q_SIGNALS:
    /** The port was lost while open, and is closed now. Emitted once; @p reason is a text for the user. */
    void connectionLost(const QString &reason);

private:
    /** Counts the requests made here; an equal read that joins one under way shares its number. */
    using Number = quint64;

    struct Read
    {
        Number number;
        ServoBus::Ticket ticket;
        BusRequest request;
    };

    bool becomesNewest(const BusRequest &request, std::function<void()> onData);
    bool joinsRead(const BusRequest &request);
    bool carryOut(BusRequest::Operation operation, quint8 id, std::function<void()> onData);
    void endRead(Number number, const BusResult &result);
    void handOver(Number number, const QByteArray &reply);
    void forget();

    std::unique_ptr<ServoBus> m_bus;
    Number m_made = 0;
    Number m_newest = 0;
    std::function<void()> m_onData; ///< of the newest request
    std::vector<Read> m_reads;      ///< whose end has not been heard of
    QByteArray m_reply;
};
