#pragma once

#include "serialport/serialportitem.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class ServoBus;
class ZelvarSerialPortInterface;

/**
 * The program's single owner of the serial-port library: turns "bytes are waiting" into one call per complete
 * reply by counting the bytes that each kind of request produces.
 *
 * There is one callback and one counter, so a request made while another is under way takes both over. The counter
 * is a single byte and only exact zero completes a reply. Usable from the thread it was made in.
 */
class SerialHelper : public QObject
{
    Q_OBJECT

public:
    SerialHelper();
    /** Works on @p serialInterface in place of a port of its own; shares its ownership. */
    explicit SerialHelper(std::shared_ptr<ZelvarSerialPortInterface> serialInterface);
    ~SerialHelper() override;

    /** @return an empty text on success, otherwise an error text for the user. @p baudRate in bits per second. */
    QString openSerialPort(QString portName, int baudRate);
    void closeSerialPort();
    std::vector<std::shared_ptr<SerialPortItem>> getSerialPortList();

    /**
     * Reads @p length registers from @p address; @p callback gets the reply of @p length + 11 bytes (error byte at
     * 8, data from 9; serialport/replybytes.h) and must not be empty. @return whether the library took the request.
     */
    bool readData(uint8_t id, uint8_t address, uint8_t length, std::function<void(QByteArray)> callback);
    /** Writes @p data from @p address. @p callback is kept but never called: nobody waits for writes. */
    bool writeData(uint8_t id, uint8_t address, const QByteArray &data, std::function<void(QByteArray)> callback);
    /** Reboots a servo; @p callback gets the 6-byte reply (id at 2, error byte at 4) before this returns. */
    bool reboot(uint8_t id, std::function<void(QByteArray)> callback);
    /** Factory-resets a servo but for its id and baud rate; @p callback as for reboot(). */
    bool reset(uint8_t id, std::function<void(QByteArray)> callback);

    /** The code for the servo's baud-rate register of entry @p index of the baud-rate list; 1 (1 Mbit/s) if unknown. */
    static int baudRateRegisterValue(int index);
    /** The index in the baud-rate list of register code @p registerValue; −1 when no entry has it. */
    static int baudRateIndex(int registerValue);
    /** The baud rate, in bits per second, that register code @p registerValue stands for; 0 when no entry has it. */
    static int baudRateOf(int registerValue);

    /** The bus behind the port, for who wants a result of each request; its port is this object's. Never null. */
    ServoBus *bus() const;

    // Part of the class's fixed interface: they do nothing, and nobody calls them.
    Q_INVOKABLE void queueRequest(uint8_t id, uint8_t address, QByteArray data,
                                  std::function<void(QByteArray)> groupCallback);
    Q_INVOKABLE void startScheduler(int interval);
    Q_INVOKABLE void stopScheduler();

Q_SIGNALS:
    /** The port was lost while open, and is closed now; @p reason is a text for the user. */
    void connectionLost(const QString &reason);

private:
    using Callback = std::function<void(QByteArray)>;

    void connectInterface();
    void expectReply(uint8_t length, Callback callback);
    bool gatherReply();
    void finishReply();
    void onReadyRead();
    void onWriteReady();

    std::shared_ptr<ZelvarSerialPortInterface> m_serialInterface;
    Callback m_replyCallback;
    uint8_t m_remainingBytes = 0;
    QByteArray m_replyBuffer;
};
