#pragma once

#include "serialport/busrequest.h"
#include "serialport/clock.h"
#include "serialport/serialportexport.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class BusLine;
class Exchange;

/**
 * A serial bus of smart servos for any number of users: carries requests out one at a time, and each ends in a
 * completion and a result of its own.
 *
 * - Requests go out in the order they were made, urgent ones ahead of all others that wait.
 * - A read is sent three times at most until it is answered, a write six times, a reboot, a factory reset, what is
 *   told and who is there once. Then it ends with NoAnswer, and what comes next goes out in spite of it.
 * - An answer counts as long as its request may be repeated, also while the line is drained for that.
 * - A servo's framing is learned from its first answer and remembered until the port is closed.
 *
 * A completion is called exactly once, and never from within request(), withdraw(), open() or close(): it comes from
 * the event loop, from within carryOut(), or, for what is still unfinished then, from the destructor, where new
 * requests are forgotten. So it must not count on whoever made the request, unless that is known to live longer.
 * Completions and slots may do anything: make requests, close and reopen the port, and destroy the bus.
 *
 * Usable from the one thread it was made in; everything is called there. It may be destroyed in another thread once it
 * is closed and its completions have been called.
 */
class ZELVAR_SERIALPORT_EXPORT ServoBus : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(const BusResult &)>;
    /** Names one request of one bus. */
    enum class Ticket : quint64 {
        None = 0, ///< no request's
    };
    enum class Urgency {
        Normal,
        /**
         * Ahead of everything that waits but for earlier urgent requests. A normal request that is under way is not
         * repeated any more: it ends with its present attempt, whatever that brings.
         */
        Urgent,
    };

    /** @param protocolGeneration the framing to speak first to a servo that has not answered yet: 1 or 2. */
    explicit ServoBus(QObject *parent = nullptr, unsigned char protocolGeneration = 2);
    /** Talks on @p line in place of a serial port, by @p clock, which must outlive the bus. */
    ServoBus(std::unique_ptr<BusLine> line, Clock &clock, QObject *parent = nullptr,
             unsigned char protocolGeneration = 2);
    ~ServoBus() override;

    /**
     * Longest time that a healthy servo takes to answer @p request, the first one to it since the port was opened at
     * @p baudRate bits per second, on a port that holds no bytes back. REQUIRES: the request can be sent to a servo;
     * the baud rate is greater than 0.
     */
    static std::chrono::microseconds longestAnswer(const BusRequest &request, int baudRate,
                                                   unsigned char protocolGeneration = 2);

    /**
     * Opens @p portName (a name of the port list, or a path) with 8 data bits, no parity, 1 stop bit at @p baudRate
     * bits per second; a port that is open is closed first.
     * @return an empty text, or what went wrong and what to do about it, for the user.
     */
    QString open(const QString &portName, int baudRate);
    /** Closes the port. What is unfinished ends with Withdrawn. */
    void close();
    bool isOpen() const { return m_state != State::Closed; }
    /** Whether @p request would be carried out; if not, it ends with PortLost or Withdrawn without being sent. */
    bool accepts(const BusRequest &request) const;

    /** Queues @p request; @p completion may be empty. */
    Ticket request(const BusRequest &request, Completion completion, Urgency urgency = Urgency::Normal);
    /**
     * A request that waits ends with Withdrawn without being sent. One that is under way is not repeated: an answer
     * still counts, and without one it ends with Withdrawn. One that has ended stays as it is.
     */
    void withdraw(Ticket ticket);
    /** Withdraws the requests that wait and that @p isUnwanted holds for. @return those, in their order. */
    std::vector<BusRequest> withdrawWaiting(const std::function<bool(const BusRequest &)> &isUnwanted);
    /**
     * Takes the withdrawal of a request under way back, so that its answer can serve who asks for the same once more.
     * @return whether it can: false when it is not under way, or when something that changes a servo was asked for
     * since, which its answer would not show.
     */
    bool reclaim(Ticket ticket);
    /**
     * Carries out everything that waits and then @p request without returning to the event loop, completions included:
     * the one of @p request is called before this returns.
     * @return whether the request was sent.
     */
    bool carryOut(const BusRequest &request, const Completion &completion);

Q_SIGNALS:
    /** The port was lost while open, and is closed now. Emitted once; @p reason is a text for the user. */
    void connectionLost(const QString &reason);
    /** A request of any user has ended; its own completion has been called. */
    void requestFinished(const BusRequest &request, const BusResult &result);

private:
    enum class State {
        Closed,
        Idle,
        Exchanging,
        Draining, ///< after a failed attempt; of the current job if there is an exchange still
    };

    struct Job
    {
        BusRequest request;
        Completion completion;
        Ticket ticket = Ticket::None;
        Urgency urgency = Urgency::Normal;
        bool isWithdrawn = false;
        int attempts = 0;
    };

    struct EndedJob
    {
        Job job;
        BusResult result;
    };

    void useLine(std::unique_ptr<BusLine> line);
    void insert(Job job);
    void startNext();
    void startAttempt();
    void transmit(const QByteArray &packet, Clock::Duration patience);
    void waitFor(Clock::Duration duration);
    void receive();
    void onAlarm();
    void attemptFailed();
    void drainEnded();
    bool mayRepeat() const;
    BusResult::Outcome withoutAnswer() const;
    void finish(BusResult::Outcome outcome, State next);
    void onLineLost(const QString &reason);
    void reset(BusResult::Outcome outcome);
    void endLater(Job job, BusResult::Outcome outcome);
    void callEnded();
    void complete(const Job &job, const BusResult &result);

    const wire::Framing m_first;
    Clock &m_clock;
    std::unique_ptr<Clock::Alarm> m_alarm;
    std::unique_ptr<BusLine> m_line;
    int m_baudRate = 0;
    State m_state = State::Closed;
    quint64 m_lastTicket = 0;
    std::deque<Job> m_waiting;
    Job m_current; ///< meaningful while there is an exchange
    std::unique_ptr<Exchange> m_exchange;
    Clock::TimePoint m_deadline;
    int m_drainRounds = 0;
    QByteArray m_unasked;                       ///< came since the last exchange
    std::map<quint8, wire::Framing> m_framings; ///< what the servos of this session answered in
    std::vector<EndedJob> m_ended;              ///< whose completions are called from the event loop
    quint64 m_session = 0;                      ///< counts openings, so that a late report knows its port is gone
};
