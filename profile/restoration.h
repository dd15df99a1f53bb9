#pragma once

#include "model/servoaddress.h"
#include "profile/restoreplan.h"
#include "serialport/clock.h"
#include "serialport/servobus.h"

#include <QObject>

#include <chrono>
#include <functional>

namespace profile {

/** What keeps a restore from beginning, or from being proved. */
enum class Obstacle {
    None,
    NoAnswer,     ///< the servo does not answer, or not any more
    Refused,      ///< the servo refuses to be read
    OtherModel,   ///< the servo is of another model than the parameters
    OtherValues,  ///< the servo has other values than those that the user has seen
    MotorOn,      ///< and nobody has agreed to switching it off
    MotorStaysOn, ///< although it was told to switch it off
    Locked,       ///< an AX-12 keeps its parameters until its supply is switched off and on
    Unreadable,   ///< the servo could not be read any more with the status return level that it is to get
    AddressTaken, ///< another servo is where this one is to go
    PortLost,     ///< or the port could not be opened
    PortTaken,    ///< somebody else has closed it, or opened it anew
    Stopped,      ///< by stop()
};

/** What has become of a field that was compared. */
struct RestoredField
{
    enum class Fate {
        Equal,   ///< the servo had the value
        Written, ///< and read back
        Refused, ///< by the servo, with an error
        LeftOut, ///< not written, since not everything before it was taken
        NotKept, ///< acknowledged or not, the servo has something else
    };

    Pair now; ///< as read back
    Fate fate = Fate::Equal;
    quint8 error = 0; ///< the error byte of a refusal, in the own family's numbering

    bool isRestored() const { return fate == Fate::Equal || fate == Fate::Written; }
};

/** What has become of a restore. */
struct RestoreReport
{
    Obstacle obstacle = Obstacle::None;
    QString portError;                         ///< for the user; of a port that could not be opened
    bool hasWritten = false;                   ///< whether the servo may have been given anything
    bool isMotorSwitchedOff = false;           ///< it was on before
    model::ServoAddress address;               ///< where the servo is
    model::ServoAddress wantedAddress;         ///< where it was to be
    std::vector<RestoredField> fields;         ///< by ascending address; empty when there was an obstacle
    std::vector<const model::Field *> missing; ///< wanted, but not among the parameters

    int count(RestoredField::Fate fate) const;
    /** Fields that the servo has not got. */
    int refusedCount() const;
    /** Whether the servo has all that was wanted; read back, not assumed. */
    bool isRestored() const;
};

/** What a restore is to do. */
struct RestoreWish
{
    Profile file;
    std::vector<const model::Field *> fields; ///< by ascending address
    bool mayStopMotor = false;                ///< which frees the shaft
    /**
     * What the user was shown of the servo. Nothing is written when a field has by now neither that value nor the one
     * that it is to get: another servo may have come to the id. Without it the user is taken to have seen nothing.
     */
    std::optional<Profile> seen = std::nullopt;
};

/**
 * Gives one servo the parameters of a profile: reads it, writes what differs in the order of restorePlan(), follows it
 * to a new address, and reads it back. Whenever it ends early, each field has the value it had or the one it was to
 * get, and the same restore again does the rest.
 *
 * To be used alone on its bus: whoever polls the servo would be in its way when it moves. Carries out one restore in
 * its life. GUI thread only.
 */
class Restoration : public QObject
{
    Q_OBJECT

public:
    /** Opens the port at a baud rate, in bits per second, unless it is; returns an empty text or what is wrong. */
    using Opener = std::function<QString(int baudRate)>;

    /**
     * @param bus, @param clock must outlive this object.
     * @param patience for how long a silent servo is asked to be read again and again.
     */
    Restoration(ServoBus &bus, Opener open, std::chrono::milliseconds patience, Clock &clock = SystemClock::instance());
    ~Restoration() override;

    /** Restores what @p wish says into the servo at @p address. The port may be open or not. */
    void begin(const model::ServoAddress &address, RestoreWish wish);
    /** Ends it, as soon as what is under way is through. Where the servo is then is known, unless it is silent. */
    void stop() { m_isStopped = true; }
    bool isEnded() const { return m_isEnded; }
    /** Meaningless before the end. */
    const RestoreReport &report() const { return m_report; }

    /** Where a servo at @p address is once it has the file's values of @p pairs. */
    static model::ServoAddress addressAfter(const model::ServoAddress &address, const std::vector<Pair> &pairs);

Q_SIGNALS:
    /** Emitted once, from the event loop or from within begin(). */
    void ended();

private:
    using Step = void (Restoration::*)(const BusResult &);

    bool openAt(const model::ServoAddress &address);
    void ask(const BusRequest &request, Step next);
    void readPatiently(int id, int address, int size, Step next);
    void write(int address, const QByteArray &bytes, Step next);
    void repeatOrGoOn(const BusRequest &request, Step next, const BusResult &result);

    void onServoRead(const BusResult &result);
    Obstacle obstacle() const;
    bool isAsSeen() const;
    void onNewAddressAsked(const BusResult &result);
    void stopMotor();
    void onMotorTold(const BusResult &result);
    void onMotorRead(const BusResult &result);
    void sendNext();
    void onBlockSent(const BusResult &result);
    void onBlockRead(const BusResult &result);
    void noteRest();
    void note(const Block &block, RestoredField::Fate fate, quint8 error);
    void readBack();
    void onReadBack(const BusResult &result);
    void onReadAtHome(const BusResult &result);
    void judge(const BusResult &result);
    void end(Obstacle obstacle);

    const model::Family &family() const { return m_wish.file.family(); }
    bool isMotorOn() const { return m_image.raw(family().motorSwitch()).value_or(0) != 0; }

    ServoBus &m_bus;
    const Opener m_open;
    const std::chrono::milliseconds m_patience;
    Clock &m_clock;
    Clock::TimePoint m_deadline;
    RestoreWish m_wish;
    model::ServoAddress m_home;             ///< where the servo was asked for
    std::optional<wire::Framing> m_framing; ///< in which it answered
    model::RegisterImage m_image;
    Comparison m_before;
    std::vector<Block> m_plan;
    std::size_t m_next = 0;              ///< in the plan
    std::vector<RestoredField> m_failed; ///< what is known before the servo is read back
    RestoreReport m_report;
    bool m_isStopped = false;
    bool m_isEnded = false;
};

} // namespace profile
