#pragma once

#include "model/family.h"
#include "serialport/clock.h"
#include "serialport/packet.h"
#include "serialport/servobus.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <vector>

namespace session {

/**
 * Switches a servo's motor off ahead of everything that waits on the bus, and goes on until a reading shows it off. It
 * needs no connection, only an open port. GUI thread only.
 *
 * Each family is spoken to in its own framing, which servos of the other one do not understand; so both can be told as
 * long as nobody knows which one it is, and none can get the other one's register.
 */
class MotorStop : public QObject
{
    Q_OBJECT

public:
    /** For how long a stop may be unproved before overdue() tells of it. */
    static constexpr std::chrono::milliseconds Patience{1000};

    /** @param bus, @param clock must outlive this object. */
    explicit MotorStop(ServoBus &bus, Clock &clock = SystemClock::instance());
    ~MotorStop() override;

    /**
     * Stops servo @p servoId; again at once, but with no new patience, if it is being stopped.
     * @param family the servo's; null while it is not known.
     */
    void begin(quint8 servoId, const model::Family *family);
    /** Tells everybody on the bus to switch the motor off, some times over, since nobody can answer. */
    void tellAll();
    /** Does not tell the servo any more; what has been sent stays so. */
    void end();
    /** Whether a stop has begun and is neither proved nor ended. */
    bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    /** A reading shows the motor off; the stop is over. */
    void proved();
    /** No reading has shown the motor off in time. The servo is told again and again until end(). */
    void overdue();

private:
    struct Dialect
    {
        const model::Family *family;
        wire::Framing framing;
    };
    static const Dialect Dialects[];

    void startRound();
    void withdraw();
    void tell(quint8 id, const Dialect &dialect);
    void look(const Dialect &dialect);
    void onRead(const Dialect &dialect, const BusResult &result);

    ServoBus &m_bus;
    std::unique_ptr<Clock::Alarm> m_patience;
    std::unique_ptr<Clock::Alarm> m_pause;
    bool m_isRunning = false;
    quint8 m_servoId = 0;
    std::vector<Dialect> m_dialects; ///< what the servo may speak
    std::vector<ServoBus::Ticket> m_tickets;
    quint64 m_round = 0; ///< so that a late result does not count in the next one
    int m_unread = 0;    ///< readings of this round that are still to come
};

} // namespace session
