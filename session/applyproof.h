#pragma once

#include "model/registerimage.h"
#include "session/applyreport.h"
#include "session/connection.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

namespace session {

/** Bytes for the registers from one on. */
struct Block
{
    quint8 address = 0;
    QByteArray data;
};

/**
 * What gives the servo the bits that @p fields want, and leaves the registers between them as they are in @p image.
 * REQUIRES: there are fields, by ascending address.
 */
Block blockOf(const model::RegisterImage &image, const std::vector<AppliedField> &fields);

/**
 * Proves that applied blocks have taken: reads the servo as soon as a block was acknowledged or given up, holds the
 * block against what it has, and reports. GUI thread only.
 *
 * A block after which the same registers were written once more, before they could be read, is proved with the later
 * one.
 *
 * Not held against a block: what the servo changes by itself, and, unless the servo is still where it was, its id and
 * baud rate, which the connection tells of.
 */
class ApplyProof : public QObject
{
    Q_OBJECT

public:
    /** @param connection, @param bus must outlive this object. @param image what polls keep. */
    ApplyProof(Connection &connection, ServoBus &bus, std::shared_ptr<const model::RegisterImage> image,
               Clock &clock = SystemClock::instance());
    ~ApplyProof() override;

    /** Whether a block is on its way to being proved. */
    bool isPending() const { return !m_pending.empty(); }
    /** What the last block that was proved has changed; empty when there is none since the connection was made. */
    const std::vector<AppliedField> &lastApplied() const { return m_lastApplied; }
    /** Whether the servo still has what was applied last, as far as the image knows, so that it can be undone. */
    bool canUndo() const;
    /** What takes the last block that was proved back, but for the motor being switched on. REQUIRES: canUndo(). */
    Block undo() const;

    /** @p data, which was expected, is not going to be written any more. @return what it was to change. */
    std::vector<AppliedField> takeBack(quint8 address, const QByteArray &data);
    /** The motor has been stopped: what was written before is not to be found on any more, which is as it should be. */
    void motorStopped() { ++m_stops; }

public Q_SLOTS:
    /** @p data is going to be written from register @p address on. To be called before the image takes it for written.
     */
    void expect(quint8 address, const QByteArray &data);

Q_SIGNALS:
    void reported(const session::ApplyReport &report);
    /** What a proof has read, the servo's whole table. */
    void read(const QByteArray &registers);

private:
    struct Pending
    {
        quint64 number; ///< later blocks have greater ones
        quint8 address;
        QByteArray data;
        std::vector<AppliedField> fields; ///< all that the block writes
        ApplyReport report;
        bool isSent = false;
        Clock::TimePoint writtenAt{}; ///< acknowledged or given up
        int stops = 0;                ///< of the motor, before it

        bool isWrite(quint8 writtenAddress, const QByteArray &writtenData) const
        {
            return address == writtenAddress && data == writtenData;
        }
    };

    void onWriteSent(quint8 address, const QByteArray &data);
    void onWritten(const WriteOutcome &outcome);
    void onStateChanged(State state);
    void readBack(Pending &pending, quint8 servoId);
    void onRead(quint64 number, quint8 servoId, const BusResult &result);
    bool isSuperseded(const Pending &pending) const;
    void absorbSuperseded(quint64 number);
    static void absorb(const AppliedField &field, Pending &later);
    void forgetMotor(Pending &pending) const;
    void judge(Pending &pending, const QByteArray &registers, bool isWhereItWas) const;
    bool isHeld(const AppliedField &field, const Pending &pending, bool isWhereItWas) const;
    bool movesBaudRate() const;
    std::vector<AppliedField> undoable() const;
    Pending *find(quint64 number);
    void report(quint64 number);

    Connection &m_connection;
    ServoBus &m_bus;
    Clock &m_clock;
    std::shared_ptr<const model::RegisterImage> m_image;
    std::vector<Pending> m_pending; ///< oldest first
    quint64 m_lastNumber = 0;
    int m_stops = 0; ///< of the motor
    std::vector<AppliedField> m_lastApplied;
};

} // namespace session
