#pragma once

#include "model/registerimage.h"
#include "model/servoaddress.h"
#include "serialport/busrequest.h"
#include "serialport/clock.h"
#include "session/linkquality.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <cstdint>
#include <memory>

class ServoBus;
class UiScheduler;

namespace session {

/** What became of a write. */
struct WriteOutcome
{
    quint8 address; ///< first register
    QByteArray data;
    BusResult result;
};

enum class State {
    Disconnected,
    Identifying, ///< the port is open, and the servo has not told its model yet
    Unanswered,  ///< nobody has answered for a second; the servo is asked for its model each second
    Connected,   ///< polls are answered
    Silent,      ///< no poll has been answered for three intervals and at least a second
    Refusing,    ///< the servo answers polls with an error in place of its registers
    Moved,       ///< a block that was applied has given the servo another id or baud rate
    PortClosed,  ///< the port was closed although the user wants the connection
};

/**
 * One connection to one servo: the state it is in, what its polls bring, and what becomes of what is written. Knows no
 * widgets; whoever wants the servo's values or fate listens here. GUI thread only.
 */
class Connection : public QObject
{
    Q_OBJECT

public:
    /**
     * @param image what the polls keep; handed on with each poll.
     * @param bus tells what becomes of polls and writes; without one nobody does. Must live as long.
     * @param clock must outlive the connection.
     */
    explicit Connection(std::shared_ptr<const model::RegisterImage> image, ServoBus *bus = nullptr,
                        Clock &clock = SystemClock::instance());
    ~Connection() override;

    State state() const { return m_state; }
    /** Whether the user has asked for a connection and not ended it since, whatever has become of it. */
    bool isUp() const { return m_state != State::Disconnected; }
    /** The connected servo's; null until it has told its model. */
    const model::Family *family() const { return m_family; }
    /** Where the connection was made to. */
    const model::ServoAddress &address() const { return m_address; }
    /** Where the servo listens now, as far as it is known. */
    const model::ServoAddress &servoAddress() const { return m_servoAddress; }

    /** The port is open, and the servo at @p address is asked for its model. */
    void begin(const model::ServoAddress &address);
    /** The servo is of @p family, and @p scheduler polls it every @p pollingInterval milliseconds from now on. */
    void follow(UiScheduler &scheduler, const model::Family &family, int pollingInterval);
    /** The port has been closed for an earlier connection's sake. */
    void portClosed();
    /** The user has ended the connection, or the port is lost. */
    void end();

    /** Hardware errors that the servo reports in its answers and in no register: bits of the family's alarms. */
    quint8 reportedAlarms() const { return m_reportedAlarms; }
    /** How well the polls get through. */
    const LinkQuality &quality() const { return m_quality; }

Q_SIGNALS:
    void stateChanged(session::State state, session::State before);
    /** Nobody has told a model for a second: time to ask once more. */
    void identificationDue();
    /** A poll of any fate has ended. */
    void qualityChanged();
    /** A poll was answered: @p image has what it brought, and the controls show it. */
    void polled(const model::RegisterImage &image);
    /** A poll was not answered, however often it was sent. */
    void pollLost();
    /** A block that was applied is on its way. */
    void writeSent(quint8 address, const QByteArray &data);
    /** A write to the servo has ended, whoever made it; it may be over after the connection. */
    void written(const session::WriteOutcome &outcome);

private:
    void enter(State state);
    void stopFollowing();
    void onReply();
    void onAlarm();
    void onRequestFinished(const BusRequest &request, const BusResult &result);
    void onPollEnded(const BusResult &result);
    void onWriteSent(uint8_t address, const QByteArray &data);
    model::ServoAddress addressAfter(uint8_t address, const QByteArray &data) const;

    std::shared_ptr<const model::RegisterImage> m_image;
    State m_state = State::Disconnected;
    model::ServoAddress m_address;
    model::ServoAddress m_servoAddress;
    const model::Family *m_family = nullptr;
    QPointer<UiScheduler> m_scheduler;
    LinkQuality m_quality;
    quint8 m_reportedAlarms = 0;
    std::chrono::milliseconds m_patience{0};
    Clock &m_clock;
    std::unique_ptr<Clock::Alarm> m_alarm; ///< of an answer that is missing
};

} // namespace session
