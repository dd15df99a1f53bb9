#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QMutex>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

class SerialHelper;

/**
 * One probe of a bus: asks a servo at one baud rate whether it is there.
 *
 * Made in the GUI thread and moved into a worker thread, where the port is opened, used and closed; once closePort()
 * ran there it may be destroyed in any thread. Good for one probe.
 */
class SearchHelper : public QObject
{
    Q_OBJECT

public:
    /** How long a servo has to answer, opening the port included. */
    static constexpr std::chrono::milliseconds AnswerTime{20};
    /** Whether each servo at @p baudRate, in bits per second, can answer within AnswerTime. */
    static bool isInTime(int baudRate);

    /** @param serialPortName a name of the port list, or a path. */
    explicit SearchHelper(const QString &serialPortName);
    ~SearchHelper() override;

    /**
     * The process-wide lock at which the two threads of a probe meet. Whoever asks for a probe takes it beforehand:
     * the worker can then report nothing until waitForReply() listens, so no reply is lost however fast it comes.
     */
    static QMutex &probeMutex();

    /**
     * Waits until the probe has ended or @p deadline is over. REQUIRES: probeMutex() is held.
     * @return the reply of 15 bytes to a read of 4 registers from 0 (data from byte 9); empty when nothing answered
     *         or the port could not be opened.
     */
    QByteArray waitForReply(QDeadlineTimer deadline);

    /**
     * Why the port could not be opened, a text for the user; empty when it could. REQUIRES: the worker thread has
     * ended, since opening may take longer than anybody waits for a reply.
     */
    QString openError() const { return m_openError; }

    /** Closes the port, in the thread that opened it. */
    void closePort();

public Q_SLOTS:
    /** Opens the port at @p baudRate (bits per second) and reads the model of servo @p id. */
    void scanServo(int id, int baudRate);

private:
    void endProbe(const QByteArray &reply);

    std::shared_ptr<SerialHelper> m_serialHelper; ///< null before the probe and after closePort()
    const QString m_serialPortName;
    QString m_openError;
    QByteArray m_replyBuffer;   ///< guarded by probeMutex()
    bool m_isProbeOver = false; ///< guarded by probeMutex(); the condition may wake for no reason
};
