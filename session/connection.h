#pragma once

#include "model/registerimage.h"
#include "serialport/clock.h"
#include "session/servoaddress.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <cstdint>
#include <memory>

class UiScheduler;

namespace session {

enum class State {
    Disconnected,
    Identifying, ///< the port is open, and the servo has not told its model yet
    Connected,   ///< polls are answered
    Silent,      ///< no poll has been answered for three intervals and at least a second
    Refusing,    ///< the servo answers polls with an error in place of its registers
    Moved,       ///< a block that was applied has given the servo another id or baud rate
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
     * @param clock must outlive the connection.
     */
    explicit Connection(std::shared_ptr<const model::RegisterImage> image, Clock &clock = SystemClock::instance());
    ~Connection() override;

    State state() const { return m_state; }
    /** Whether the user has asked for a connection and not ended it since, whatever has become of it. */
    bool isUp() const { return m_state != State::Disconnected; }
    /** Where the connection was made to. */
    const ServoAddress &address() const { return m_address; }
    /** Where the servo listens now, as far as it is known. */
    const ServoAddress &servoAddress() const { return m_servoAddress; }

    /** The port is open, and the servo at @p address is asked for its model. */
    void begin(const ServoAddress &address);
    /** The servo is of @p family, and @p scheduler polls it every @p pollingInterval milliseconds from now on. */
    void follow(UiScheduler &scheduler, const model::Family &family, int pollingInterval);
    /** The user has ended the connection, or the port is lost. */
    void end();

Q_SIGNALS:
    void stateChanged(session::State state, session::State before);
    /** A poll was answered: @p image has what it brought, and the controls show it. */
    void polled(const model::RegisterImage &image);

private:
    void enter(State state);
    void stopFollowing();
    void onReply();
    void onSilence();
    void onWriteSent(uint8_t address, const QByteArray &data);
    ServoAddress addressAfter(uint8_t address, const QByteArray &data) const;

    std::shared_ptr<const model::RegisterImage> m_image;
    State m_state = State::Disconnected;
    ServoAddress m_address;
    ServoAddress m_servoAddress;
    const model::Family *m_family = nullptr;
    QPointer<UiScheduler> m_scheduler;
    std::chrono::milliseconds m_patience{0};
    std::unique_ptr<Clock::Alarm> m_silence;
};

} // namespace session
