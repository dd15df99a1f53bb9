#pragma once

#include "simulator/buspublication.h"
#include "simulator/faultinjector.h"
#include "simulator/lineschedule.h"
#include "simulator/ptyport.h"
#include "simulator/replyqueue.h"
#include "simulator/simulatedbus.h"
#include "simulator/simulatoroptions.h"
#include "simulator/statefile.h"

#include <QObject>
#include <QTimer>

#include <optional>

namespace simulator {

/** A simulated bus at work: behind its pseudo terminal, published, in real time, with the faults asked for. */
class Simulator : public QObject
{
    Q_OBJECT

public:
    explicit Simulator(const SimulatorOptions &options, QObject *parent = nullptr);

    /** @return an empty text on success, otherwise one line for the user. May send noticed(). */
    QString start();
    /** Name of the bus in the list of ports. */
    QString name() const { return m_publication.name(); }
    /** The serial device file of the bus. */
    QString devicePath() const { return m_port.devicePath(); }
    const SimulatedBus::Servos &servos() const { return m_bus.servos(); }

Q_SIGNALS:
    /** Something that the user should know, in one line, while the bus goes on. */
    void noticed(const QString &text);
    /** The port is to go away. @p error is empty when that was asked for. */
    void finished(const QString &error);

private:
    SimulationTime now() const;
    void onReceived(const QByteArray &bytes);
    void onClientChanged();
    void queueReply(const BusReply &reply, int baudRate, SimulationTime received);
    QString claimName();
    QString openStateFile();
    bool keepState();
    void keepMoving();
    void setInMotion(const SelfMotionChoice &choice);

    SimulatorOptions m_options;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    SimulatedBus m_bus;
    FaultInjector m_faults;
    std::optional<StateFile> m_stateFile;
    bool m_hasMemoryFailed = false; ///< the last time that it was written to
    PtyPort m_port;
    BusPublication m_publication; ///< goes before the port, so that it never leads nowhere
    LineSchedule m_schedule;
    ReplyQueue m_replies;
    QTimer m_motionTimer;
};

} // namespace simulator
