// The simulator as a process of its own, over its serial device file.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/simulatedbuses.h"
#include "tests/support/simulatorprocess.h"
#include "tests/support/testenvironment.h"

#include <QSerialPort>

#include <csignal>

namespace {

/** A client's end of the bus. */
class Client
{
public:
    explicit Client(const QString &device, int baudRate = 1000000)
    {
        port.setPortName(device);
        port.setBaudRate(baudRate);
        if (!port.open(QIODevice::ReadWrite))
            qFatal("no %s", qPrintable(device));
    }
    /** What comes back, up to @p size bytes. */
    QByteArray ask(const QByteArray &request, int size)
    {
        port.write(request);
        QByteArray reply;
        while (reply.size() < size && port.waitForReadyRead(10000))
            reply += port.readAll();
        return reply;
    }

    QSerialPort port;
};

QByteArray ping(quint8 id)
{
    return wire::protocol2::encodeInstruction(id, wire::Ping, {});
}

QByteArray pong(quint8 id)
{
    return wire::protocol2::encodeStatus(id, 0, QByteArray::fromHex("020115"));
}

QStringList publishedNames()
{
    QStringList names;
    for (const simulatedbuses::Bus &bus : simulatedbuses::published())
        names.append(bus.name);
    return names;
}

} // namespace

class TestSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void publishesItsBusAndTidiesUp()
    {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            const QTemporaryDir folder;
            const QString link = folder.filePath("bus");
            SimulatorProcess simulator({"--name", "bench", "--link", link});
            QCOMPARE(simulator.name(), QString("bench"));
            QCOMPARE(QFileInfo(link).symLinkTarget(), simulator.device());
            QCOMPARE(publishedNames(), QStringList{"bench"});
            QCOMPARE(simulatedbuses::published()[0].device, simulator.device());
            const auto others = QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther;
            QVERIFY(!(QFileInfo(simulatedbuses::folder()).permissions() & others));

            ::kill(static_cast<pid_t>(simulator.process().processId()), signal);
            QVERIFY(simulator.process().waitForFinished());
            QCOMPARE(simulator.process().exitCode(), 0);
            QVERIFY(!QFileInfo(link).isSymLink());
            const auto everything = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
            QVERIFY(QDir(simulatedbuses::folder()).isEmpty(everything));
        }
    }

    void deadSimulatorsAreIgnored()
    {
        for (const bool isLookedFor : {true, false}) {
            SimulatorProcess({"--name", "bench"}).kill();
            QVERIFY(QFileInfo(simulatedbuses::linkPath("bench")).isSymLink());
            if (isLookedFor)
                QCOMPARE(publishedNames(), QStringList());
            QCOMPARE(QFileInfo(simulatedbuses::linkPath("bench")).isSymLink(), !isLookedFor);
        }
        SimulatorProcess heir({"--name", "bench"});
        SimulatorProcess another;
        SimulatorProcess oneMore;
        QCOMPARE(publishedNames(), QStringList({"bench", "zelvar-sim", "zelvar-sim-2"}));
    }

    void refusesBadArguments()
    {
        SimulatorProcess bench({"--name", "bench"});
        for (const QStringList &arguments : {QStringList{"--servo", "zelvar:999"},
                                             {"--name", "bench"},
                                             {"--link", QDir::tempPath()},
                                             {"--state", "/nowhere/state"}}) {
            const InRow row(arguments.join(' '));
            SimulatorProcess simulator(arguments);
            QVERIFY(simulator.process().state() == QProcess::NotRunning || simulator.process().waitForFinished());
            QCOMPARE(simulator.process().exitCode(), 2);
        }
    }

    void defaultBusAnswersAtTheServosRates()
    {
        SimulatorProcess simulator;
        Client client(simulator.device());
        QCOMPARE(client.ask(ping(7) + ping(3), 14), pong(3)); // 7 is silent at this rate
        QCOMPARE(client.ask(wire::protocol1::encode(5, wire::Read, QByteArray::fromHex("0003")), 9),
                 wire::protocol1::encode(5, 0, QByteArray::fromHex("0C0018")));
        QVERIFY(client.port.setBaudRate(57600));
        QCOMPARE(client.ask(ping(0) + ping(7), 14), pong(7));
    }

    void stateSurvivesAKill()
    {
        const QTemporaryDir folder;
        const QStringList arguments{"--state", folder.filePath("state.json"), "--servo", "zelvar:1"};
        SimulatorProcess killed(arguments);
        const auto address = wire::protocol2::writeParameters(3, QByteArray::fromHex("0922"));
        const auto write = wire::protocol2::encodeInstruction(1, wire::Write, address);
        QCOMPARE(Client(killed.device()).ask(write, 11), wire::protocol2::encodeStatus(1, 0, {}));
        killed.kill();
        SimulatorProcess simulator(arguments);
        QCOMPARE(Client(simulator.device(), 57600).ask(ping(9), 14), pong(9));
    }
};

ZELVAR_TEST_MAIN(TestSimulator)
#include "tst_simulator.moc"
