#pragma once

#include "app/applytext.h"
#include "session/connection.h"
#include "session/motorstop.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

class LinkLine;
class QAction;
class QMenu;
class QMessageBox;
class QWidget;
class UiRegisterHelper;
class UiScheduler;

namespace session {
class ApplyProof;
struct AppliedField;
} // namespace session

/**
 * What stops the motor or holds it, from the key to the box that tells of a stop that is not proved, and the motor's
 * state in the link line. The key works in the whole program, whatever is open. GUI thread only.
 */
class MotorControl : public QObject
{
    Q_OBJECT

public:
    /** The port while no connection has it. */
    struct Port
    {
        std::function<QString()> open; ///< opens the stored one; returns an empty text, or what went wrong
        std::function<void()> close;
        std::function<quint8()> servoId; ///< of the servo that a connection would be made to
    };

    /** What a connection is made of; all must outlive this object. */
    struct Link
    {
        const session::Connection &connection;
        session::ApplyProof &proof;
        ServoBus &bus;
        UiRegisterHelper &registers;
    };

    /** @param window gets the box and owns the actions. @param view has the lists whose entries are told. Both must
     * outlive this object. */
    MotorControl(QWidget &window, const QWidget &view, LinkLine &line, const Link &link, Port port);
    ~MotorControl() override;

    /** The writes of the connections that follow wait in @p scheduler. */
    void setScheduler(const std::shared_ptr<UiScheduler> &scheduler) { m_scheduler = scheduler; }
    /** Whether a stop without a connection is using the port, which nobody may open anew then. */
    bool isUsingPort() const { return m_isWaiting; }
    /** Puts the actions into @p menu. */
    void addTo(QMenu &menu);

    void stopMotor();
    void stopAll();
    /** Keeps the shaft where it is. Does nothing in a mode without a position or velocity to hold. */
    void holdHere();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /** The servo's whole table, read after a stop. */
    void read(const QByteArray &registers);

private:
    enum class Motor { Unknown, On, Off };

    struct HoldRow;
    static const HoldRow HoldRows[];

    void stop();
    void stopWithoutConnection();
    void beginStop(quint8 servoId);
    void takeBackSwitchingOn();
    using IsUnwanted = std::function<bool(quint8 address, const QByteArray &data)>;
    std::vector<session::AppliedField> takeBack(const IsUnwanted &isUnwanted);
    using TakeRegisters = std::function<void(const QByteArray &registers)>;
    void readAgain(const TakeRegisters &take);
    void onProved();
    void onOverdue();
    void tellMayBeOn(const QString &more);
    void onPolled(const model::RegisterImage &image);
    void onProofRead(const QByteArray &registers);
    void onStateChanged(session::State state);
    void setMotor(Motor motor);
    void showMotor();
    QString motorText() const;
    const HoldRow *holdRow() const;
    QString whyNotHeld() const;
    void refreshHold();
    void writeHold(const model::Field &field, quint32 bits);
    void onHoldWritten(const model::Field &field, quint32 bits, const BusResult &result);
    void judgeHold(const model::Field &field, quint32 bits, const QByteArray &registers);

    QWidget &m_window;
    LinkLine &m_line;
    Link m_link;
    Port m_port;
    ApplyText m_text;
    session::MotorStop m_stop;
    std::weak_ptr<UiScheduler> m_scheduler;
    QAction *m_stopAction; ///< as the others the window's
    QAction *m_holdAction;
    QAction *m_stopAllAction;
    Motor m_motor = Motor::Unknown; ///< as it was read last
    bool m_isStale = false;         ///< that reading: the servo has not answered since
    bool m_isForAll = false;        ///< the latest stop
    bool m_isOverdue = false;       ///< the stop that is running
    bool m_isWaiting = false;       ///< for a stop without a connection
    QString m_takenBack;            ///< what the latest stop has taken back, as it is told; empty if nothing
    QPointer<QMessageBox> m_box;
};
