#pragma once

#include "serialport/busline.h"

#include <QSerialPort>

#include <memory>

/**
 * A serial port of the system, or a simulated bus, as a line.
 *
 * Two things make QSerialPort's errors and signals delicate. It must not be destroyed while it emits readyRead(), so it
 * outlives a line that is destroyed then. And it reports a read error when it was told of bytes that somebody has taken
 * meanwhile: this line itself, which does no harm, or another program.
 */
class SerialLine final : public BusLine
{
public:
    /** @param owner object that the port follows into another thread; must outlive the line. */
    explicit SerialLine(QObject &owner);
    ~SerialLine() override;
    Q_DISABLE_COPY(SerialLine)

    QString open(const QString &name, int baudRate) override;
    void close() override;
    void send(const QByteArray &bytes) override;
    QByteArray takeReceived() override;
    void discardReceived() override;
    bool waitForReceived(Clock::Duration limit) override;

private:
    QString whyNotOpened(const QString &name, int baudRate);
    void onReadyRead();
    void onError(QSerialPort::SerialPortError error);

    QSerialPort *m_port; ///< a child of the owner
    QString m_name;
    bool m_isWaiting = false;
    /** Whether bytes were taken that Qt may be about to look for. */
    bool m_tookAhead = false;
    /** How many of the port's signals are being answered; kept by each of them, since the line may go meanwhile. */
    std::shared_ptr<int> m_signalDepth = std::make_shared<int>(0);
};
