#pragma once

#include "simulator/clientwatch.h"

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

namespace simulator {

/**
 * The simulated adapter: a pseudo terminal whose device file a client opens like a serial port.
 *
 * It outlives its clients: it keeps the device file open itself, so that a client's leaving is no end of file.
 */
class PtyPort : public QObject
{
    Q_OBJECT

public:
    explicit PtyPort(QObject *parent = nullptr);
    ~PtyPort() override;
    Q_DISABLE_COPY(PtyPort)

    /** @return an empty text on success, otherwise what went wrong. */
    QString open();
    /** Path of the device file for the client. */
    QString devicePath() const { return m_devicePath; }
    /** Bits per second that the client has set; 0 if unknown. */
    int baudRate() const;
    /** Sends @p bytes to the client. What does not fit because it does not read them is lost, as on a wire. */
    void write(const QByteArray &bytes);

Q_SIGNALS:
    void received(const QByteArray &bytes);
    /** A client came or left; the bytes of the one before are gone. Comes before received() of the new one's
     * bytes. */
    void clientChanged();
    /** The pseudo terminal is of no use any more. */
    void failed(const QString &error);

private:
    void readAvailable();
    void dropUnreadBytes();
    void onClosed();
    void makeRaw();

    int m_master = -1;
    int m_device = -1; ///< this process's own hold on the device file
    QString m_devicePath;
    ClientWatch m_watch;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace simulator
