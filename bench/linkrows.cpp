#include "bench/linkrows.h"

#include "link/serialhelper.h"
#include "serialport/protocol2.h"
#include "tests/support/simulatorprocess.h"

#include <QCoreApplication>
#include <QSerialPort>
#include <QTimer>

#include <chrono>

namespace {

constexpr int BaudRate = 1000000;
constexpr quint8 ServoId = 1;
constexpr quint8 TableSize = 118;
const QString Servo = QStringLiteral("zelvar:1");

/** One who polls a simulated bus of its own. */
class Poller
{
public:
    explicit Poller(const QStringList &simulatorArguments)
        : m_simulator(QStringList{QStringLiteral("--servo"), Servo} + simulatorArguments)
    {
        if (m_simulator.name().isEmpty())
            qFatal("the simulator did not start");
        // On a busy machine the simulator may miss a packet, which the port, unlike the link, never repeats.
        m_repeat.setInterval(std::chrono::seconds(1));
        QObject::connect(&m_repeat, &QTimer::timeout, &m_repeat, [this] { request(); });
    }
    virtual ~Poller() = default;
    Q_DISABLE_COPY(Poller)

    /** Polls once. @return microseconds from the call until the whole reply was there. */
    double poll()
    {
        m_isAnswered = false;
        m_repeat.start();
        const double begin = wallTime();
        request();
        while (!m_isAnswered)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_end - begin;
    }

protected:
    virtual void request() = 0;
    void answered()
    {
        m_end = wallTime();
        m_repeat.stop();
        m_isAnswered = true;
    }
    QString name() const { return m_simulator.name(); }
    QString devicePath() const { return m_simulator.readyLine().section(QLatin1Char(' '), -1); }

private:
    SimulatorProcess m_simulator;
    QTimer m_repeat;
    bool m_isAnswered = false;
    double m_end = 0.0;
};

class LinkPoller : public Poller
{
public:
    explicit LinkPoller(const QStringList &simulatorArguments) : Poller(simulatorArguments)
    {
        const QString error = m_link.openSerialPort(name(), BaudRate);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
    }

protected:
    void request() override
    {
        m_link.readData(ServoId, 0, TableSize, [this](const QByteArray &) { answered(); });
    }

private:
    SerialHelper m_link;
};

/** Sends the same packet and waits for as many bytes as the reply has, whatever they are. */
class BarePoller : public Poller
{
public:
    explicit BarePoller(const QStringList &simulatorArguments)
        : Poller(simulatorArguments), m_request(wire::protocol2::encodeInstruction(
                                          ServoId, wire::Read, wire::protocol2::readParameters(0, TableSize)))
    {
        m_port.setPortName(devicePath());
        m_port.setBaudRate(BaudRate);
        if (!m_port.open(QIODevice::ReadWrite))
            qFatal("%s", qPrintable(m_port.errorString()));
        m_port.clear();
        QObject::connect(&m_port, &QSerialPort::readyRead, &m_port, [this] { take(m_port.readAll()); });
    }

protected:
    void request() override
    {
        m_received = 0;
        m_port.write(m_request);
        m_port.flush();
    }

private:
    void take(const QByteArray &bytes)
    {
        m_received += bytes.size();
        if (m_received >= TableSize + wire::protocol2::StatusOverhead)
            answered();
    }

    const QByteArray m_request;
    QSerialPort m_port;
    int m_received = 0;
};

void warmUp(Poller &poller, int polls)
{
    for (int i = 0; i < polls; ++i)
        poller.poll();
}

double pollsPerSecond(Poller &poller, int polls)
{
    constexpr double MicrosecondsPerSecond = 1e6;
    const double begin = wallTime();
    for (int i = 0; i < polls; ++i)
        poller.poll();
    return polls * MicrosecondsPerSecond / (wallTime() - begin);
}

} // namespace

Figures pollLatency(const Rounds &rounds)
{
    LinkPoller link({});
    BarePoller bare({});
    warmUp(link, rounds.warmUp);
    warmUp(bare, rounds.warmUp);
    Comparison time;
    for (int i = 0; i < rounds.polls; ++i) {
        time.ours.add(link.poll());
        time.baseline.add(bare.poll());
    }
    const QString unit = QString::fromUtf8("µs");
    return {Figure::atMost(QStringLiteral("one poll through SerialHelper, median"), time.ours.median(),
                           time.baseline.median(), unit, 1.3),
            Figure::atMost(QStringLiteral("one poll through SerialHelper, p99"), time.ours.percentile(99),
                           time.baseline.percentile(99), unit, 1.5)};
}

Figures pacedPolls(const Rounds &rounds)
{
    const QStringList paced{QStringLiteral("--pace")};
    LinkPoller link(paced);
    BarePoller bare(paced);
    warmUp(link, rounds.warmUp);
    warmUp(bare, rounds.warmUp);
    Comparison rate;
    for (int i = 0; i < rounds.batches; ++i) {
        rate.ours.add(pollsPerSecond(link, rounds.batchSize));
        rate.baseline.add(pollsPerSecond(bare, rounds.batchSize));
    }
    return {Figure::atLeast(QStringLiteral("polls a second at 1 Mbit/s"), rate.ours.median(), rate.baseline.median(),
                            QStringLiteral("1/s"), 0.97)};
}
