// The simulator as a process of its own, over its serial device file.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/simulatedbuses.h"
#include "tests/support/testenvironment.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSerialPort>
#include <QTemporaryDir>

#include <csignal>

namespace {
/** The running simulator; what it printed when it was ready, and its serial device file. */
class Simulator
{
public:
    explicit Simulator(const QStringList &arguments)
    {
        process.start(QStringLiteral(ZELVAR_SIMULATOR), arguments);
        while (!process.canReadLine() && process.waitForReadyRead()) {
        }
        line = QString::fromLocal8Bit(process.readLine()).trimmed();
        device = line.section(QLatin1Char(' '), -1);
    }
    ~Simulator() { stop(SIGTERM); }

    /** Whether it has ended, or does so soon. */
    bool isOver() { return process.state() == QProcess::NotRunning || process.waitForFinished(); }

    bool stop(int signal)
    {
        if (process.state() != QProcess::NotRunning)
            ::kill(static_cast<pid_t>(process.processId()), signal);
        return isOver();
    }

    QProcess process;
    QString line;
    QString device;
};

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
            Simulator simulator({"--name", "bench", "--link", link});
            QVERIFY(simulator.line.startsWith("bench "));
            QCOMPARE(QFileInfo(link).symLinkTarget(), simulator.device);
            QCOMPARE(publishedNames(), QStringList{"bench"});
            QCOMPARE(simulatedbuses::published()[0].device, simulator.device);
            const auto others = QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther;
            QVERIFY(!(QFileInfo(simulatedbuses::folder()).permissions() & others));

            QVERIFY(simulator.stop(signal));
            QCOMPARE(simulator.process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(simulator.process.exitCode(), 0);
            QVERIFY(!QFileInfo(link).isSymLink());
            const auto everything = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
            QVERIFY(QDir(simulatedbuses::folder()).isEmpty(everything));
        }
    }

    void deadSimulatorsAreIgnored()
    {
        Simulator dead({"--name", "bench"});
        QVERIFY(dead.stop(SIGKILL));
        QVERIFY(QFileInfo(simulatedbuses::linkPath("bench")).isSymLink());
        QCOMPARE(publishedNames(), QStringList());
        QVERIFY(!QFileInfo(simulatedbuses::linkPath("bench")).isSymLink());
        Simulator killed({"--name", "bench"});
        QVERIFY(killed.stop(SIGKILL));
        Simulator heir({"--name", "bench"});
        QCOMPARE(publishedNames(), QStringList{"bench"});
        Simulator another({});
        Simulator oneMore({});
        QCOMPARE(publishedNames(), QStringList({"bench", "zelvar-sim", "zelvar-sim-2"}));
    }

    void refusesBadArguments()
    {
        Simulator bench({"--name", "bench"});
        const QList<QStringList> refused{{"--servo", "zelvar:999"},
                                         {"--name", "bench"},
                                         {"--link", "/nowhere/bus"},
                                         {"--link", QDir::tempPath()},
                                         {"--state", "/nowhere/state"}};
        for (const QStringList &arguments : refused) {
            Simulator simulator(arguments);
            QVERIFY2(simulator.isOver(), qPrintable(arguments.join(' ')));
            QCOMPARE(simulator.process.exitCode(), 2);
            QCOMPARE(simulator.process.readAllStandardError().count('\n'), 1);
        }
        QCOMPARE(publishedNames(), QStringList{"bench"});
    }

    void defaultBusAnswersAtTheServosRates()
    {
        Simulator simulator({});
        Client client(simulator.device);
        QCOMPARE(client.ask(ping(7) + ping(3), 14), pong(3)); // 7 is silent at this rate
        QCOMPARE(client.ask(wire::protocol1::encode(5, wire::Read, QByteArray::fromHex("0003")), 9),
                 wire::protocol1::encode(5, 0, QByteArray::fromHex("0C0018")));
        QVERIFY(client.port.setBaudRate(57600));
        QCOMPARE(client.ask(ping(0) + ping(7), 14), pong(7));
    }

    void echoesAndVanishes()
    {
        Simulator simulator({"--fault", "echo", "--fault", "chunk", "--fault", "vanish-after=2"});
        Client client(simulator.device);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(client.ask(ping(0), 24), ping(0) + pong(0));
        client.port.write(ping(0));
        client.port.waitForBytesWritten();
        QVERIFY(simulator.isOver());
        QCOMPARE(simulator.process.exitCode(), 0);
        QCOMPARE(publishedNames(), QStringList());
    }

    void stateSurvivesAKill()
    {
        const QTemporaryDir folder;
        const QStringList arguments{"--state", folder.filePath("state.json"), "--servo", "zelvar:1"};
        {
            Simulator simulator(arguments);
            const auto address = wire::protocol2::writeParameters(3, QByteArray::fromHex("0922"));
            const auto write = wire::protocol2::encodeInstruction(1, wire::Write, address);
            QCOMPARE(Client(simulator.device).ask(write, 11), wire::protocol2::encodeStatus(1, 0, {}));
            QVERIFY(simulator.stop(SIGKILL));
        }
        Simulator simulator(arguments);
        QCOMPARE(Client(simulator.device, 57600).ask(ping(9), 14), pong(9));
    }
};

ZELVAR_TEST_MAIN(TestSimulator)
#include "tst_simulator.moc"
