#pragma once

#include "link/queuerequest.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class IPollTarget;
class SerialHelper;

/**
 * The clock of a live connection: each tick of its timer sends one request, the oldest queued write if there is one,
 * else a read of the servo's whole register table, whose reply it takes apart for the poll target.
 *
 * One is made per connection; the queue goes with it. GUI thread only.
 */
class UiScheduler : public QObject
{
    Q_OBJECT

public:
    /**
     * @param servoId servo to poll and write, for the scheduler's whole life.
     * @param target gives the poll map and takes the values; must remain live while the scheduler does.
     * @param writeSource object whose signal addQueueRequest(uint8_t, const QByteArray &) queues writes.
     */
    UiScheduler(uint8_t servoId, std::shared_ptr<SerialHelper> serialHelper, IPollTarget &target, QObject *writeSource);
    ~UiScheduler() override;

    uint8_t servoId() const { return m_servoId; }

    /**
     * Takes the queued writes back that @p isUnwanted holds for; the others keep their order. What was asked for before
     * is out of date then, as it is when a write is queued. @return those that were taken back, oldest first.
     */
    std::vector<std::shared_ptr<QueueRequest>> takeBack(const std::function<bool(const QueueRequest &)> &isUnwanted);

    /** Passes each value of @p registers, which were read from address 0 on, to @p target. */
    static void passOn(const QByteArray &registers, IPollTarget &target);

Q_SIGNALS:
    /** A poll's reply has been taken apart. */
    void replyReceived();
    /** The link has taken a write of @p data from register @p address; replies that follow come after it. */
    void writeSent(uint8_t address, const QByteArray &data);

public Q_SLOTS:
    /** Queues a write of @p data from register @p address, behind all others. */
    void addQueueRequest(uint8_t address, const QByteArray &data);
    /** Starts polling every @p pollingInterval milliseconds; a timer that runs already is replaced. */
    void startScheduler(int pollingInterval);
    /** Stops polling; queued writes stay. */
    void stopScheduler();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void sendOldestWrite();
    void poll();
    void groupCallback(const QByteArray &reply);

    uint8_t m_servoId;
    int m_pollCursor = 0; ///< walks the poll map, 0 to 119; each poll reads the whole table, wherever it stands
    std::shared_ptr<SerialHelper> m_serialHelper;
    std::vector<std::shared_ptr<QueueRequest>> m_queue;
    quint64 m_changes = 0; ///< of what the servo is to have, so far
    int m_timerId = 0;
    IPollTarget &m_target;
};
