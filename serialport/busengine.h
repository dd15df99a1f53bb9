#pragma once

#include "serialport/exchange.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QSerialPort>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>

/**
 * Owns the port and carries requests out one exchange at a time.
 *
 * - A write, reboot or factory reset that was accepted is never dropped while the port is open and never reordered. A
 *   write is repeated until it is answered, a reboot or factory reset is sent once.
 * - At most one read waits, behind all writes made before it: a newer read takes its place, and an equal one joins the
 *   read under way unless a write was made in between, which the reader must see.
 * - A reply is handed over only while its request is the newest one made, since the caller keeps one callback.
 * - After a time-out the line is drained before the next packet goes out, since replies carry no sequence number.
 *
 * Usable from the one thread it was made in; destroy it there, or anywhere once it is closed.
 */
class BusEngine : public QObject
{
    Q_OBJECT

public:
    using Notification = std::function<void()>;

    /** @param first framing to speak first to a servo that has not answered yet. */
    explicit BusEngine(wire::Framing first);
    ~BusEngine() override;

    /** @return an empty text, or what went wrong and what to do about it. */
    QString open(const QString &portName, int baudRate);
    /** Closes the port and forgets every request; nothing is called back afterwards. */
    void close();
    bool isOpen() const { return m_state != State::Closed; }

    /** Queues @p request. @p onReply is called when its reply can be taken. False on a closed port or a bad request. */
    bool submit(const BusRequest &request, Notification onReply);
    /**
     * Carries out everything that was accepted and then @p request, without returning to the event loop, and calls
     * @p onReply before returning.
     * @return whether the request was sent.
     */
    bool runToEnd(const BusRequest &request, Notification onReply);

    /** Returns and removes the reply that waits. */
    QByteArray takeReply();

Q_SIGNALS:
    /** The port was lost and is closed now; @p reason is a text for the user. Never emitted from within a call. */
    void connectionLost(const QString &reason);

private:
    enum class State {
        Closed,
        Idle,
        Exchanging,
        Draining,
    };

    struct Job
    {
        BusRequest request;
        Notification onReply;
        quint64 number = 0; ///< position among all requests made
    };

    QString whyNotOpened(const QString &portName, int baudRate);
    bool isAcceptable(const BusRequest &request) const;
    void enqueue(const BusRequest &request, Notification onReply);
    bool joinReadUnderWay(const BusRequest &request, const Notification &onReply);
    void startNext();
    void startAttempt();
    void transmit(const Exchange::Transmission &transmission);
    void waitFor(Exchange::Duration duration);
    void onReadyRead();
    void receive();
    void onDeadline();
    void attemptFailed();
    void drainEnded();
    bool mayRepeat() const;
    void finish(std::optional<QByteArray> reply);
    void onPortError(QSerialPort::SerialPortError error);
    void reset();

    const wire::Framing m_first;
    QSerialPort m_port;
    QString m_portName;
    int m_baudRate = 0;
    QTimer m_timer;
    QDeadlineTimer m_deadline;
    State m_state = State::Closed;
    std::deque<Job> m_waiting;
    Job m_current;
    std::unique_ptr<Exchange> m_exchange;
    int m_attempts = 0;
    int m_drainRounds = 0;
    quint64 m_newest = 0;
    quint64 m_session = 0; ///< counts openings, so that a late notification knows its port is gone
    bool m_synchronous = false;
    QByteArray m_reply;
    std::map<quint8, wire::Framing> m_framings; ///< what the servos of this session answered in
};
