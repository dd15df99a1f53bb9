#pragma once

#include "model/registerimage.h"
#include "process/terminationsignals.h"
#include "serialport/servobus.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>

namespace cli {

/** A servo that has answered, and its registers. */
struct Servo
{
    int id = 0;
    wire::Framing framing = wire::Framing::Protocol2;
    model::RegisterImage image;
    quint8 alarms = 0; ///< 1.0: the hardware error bits of its last answer, which its registers do not have

    const model::Family &family() const { return image.family(); }
};

/** The hardware errors that @p servo reports, by their labels. */
QStringList hardwareErrors(const Servo &servo);

/**
 * The bus, for a program that does one thing after the other: each operation returns when it is through, while the
 * event loop runs. Throws Failures, and Interrupted once the user has pressed Ctrl+C.
 */
class BusClient : public QObject
{
    Q_OBJECT

public:
    /** @param timeout how long a silent servo is asked. */
    BusClient(QString portName, std::chrono::milliseconds timeout);
    ~BusClient() override;

    const QString &portName() const { return m_portName; }
    /** How long a silent servo is asked. */
    std::chrono::milliseconds timeout() const { return m_timeout; }
    /** Bits per second; 0 before the first open(). */
    int baudRate() const { return m_baudRate; }
    ServoBus &bus() { return m_bus; }

    /** Opens the port at @p baudRate bits per second, unless it is. */
    void open(int baudRate);
    /** Asks once, as often as the bus repeats it. */
    BusResult ask(const BusRequest &request);
    /** Asks a servo to read @p length registers from @p address on until it answers or the time is over. */
    BusResult read(int id, int address, int length, std::optional<wire::Framing> framing);
    /** Finds out what servo @p id is and reads its whole table. */
    Servo load(int id);
    /** Reads @p size registers of @p servo from @p address on into its image. */
    void refresh(Servo &servo, int address, int size);
    /** Whether somebody answers with @p id at the present baud rate. */
    bool isTaken(int id);
    /** Runs the event loop until @p isOver, which is asked again whenever something has woken(). */
    void runUntil(const std::function<bool()> &isOver);
    /** Whether the user has pressed Ctrl+C. */
    bool isInterrupted() const { return m_isInterrupted; }
    /** Runs the event loop until @p moment. */
    void waitUntil(Clock::TimePoint moment);

    /** "servo 3 on zelvar-sim", for what is told of one. */
    QString nameOf(int id) const;
    [[noreturn]] void failWithoutAnswer(int id) const;
    /** What a servo means by @p result, a refusal, and what to do about it. */
    static QString refusal(const BusResult &result) { return refusal(result.error); }
    /** The same of an error byte. */
    static QString refusal(quint8 errorByte);

Q_SIGNALS:
    /** What waits goes on or ends: a request has ended, a time is over, or the user has pressed Ctrl+C. */
    void woken();

private:
    Servo identified(int id, const BusResult &result) const;
    void checkAnswer(int id, const BusResult &result) const;

    const QString m_portName;
    const std::chrono::milliseconds m_timeout;
    process::TerminationSignals m_signals;
    bool m_isInterrupted = false;
    QString m_lossReason;
    int m_baudRate = 0;
    ServoBus m_bus; ///< last, since its completions reach into this object
};

} // namespace cli
