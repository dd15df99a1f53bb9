#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/simulatedbuses.h"
#include "tests/support/testenvironment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QSerialPort>
#include <QTemporaryDir>

#include <csignal>

namespace {

constexpr int Patience = 10000; ///< ms, for what must happen in the end
constexpr int FastRate = 1000000;

/** The simulator as a process of its own. */
class Simulator
{
public:
    explicit Simulator(const QStringList &arguments)
    {
        process.start(QStringLiteral(ZELVAR_SIMULATOR), arguments);
        while (process.state() != QProcess::NotRunning && !process.canReadLine()) {
            if (!process.waitForReadyRead(Patience))
                break;
        }
        line = QString::fromLocal8Bit(process.readLine()).trimmed();
        device = line.section(QLatin1Char(' '), -1);
    }
    ~Simulator() { stop(SIGTERM); }

    /** Whether it has ended, or does so soon. */
    bool isOver() { return process.state() == QProcess::NotRunning || process.waitForFinished(Patience); }

    bool stop(int signal)
    {
        if (process.state() != QProcess::NotRunning)
            ::kill(static_cast<pid_t>(process.processId()), signal);
        return isOver();
    }

    QProcess process;
    QString line;   ///< what it printed when it was ready
    QString device; ///< its serial device file
};

/** A client's end of the bus. */
class Client
{
public:
    explicit Client(const QString &device, int baudRate = FastRate)
    {
        port.setPortName(device);
        port.setBaudRate(baudRate);
        isOpen = port.open(QIODevice::ReadWrite);
    }

    /** Sends @p request and waits for @p size bytes, or for @p patience ms: silence is shown by a shorter
     * wait. */
    QByteArray ask(const QByteArray &request, int size, int patience = Patience)
    {
        port.write(request);
        return receive(size, patience);
    }
    QByteArray receive(int size, int patience)
    {
        QByteArray reply;
        QElapsedTimer clock;
        clock.start();
        while (reply.size() < size && clock.elapsed() < patience) {
            if (port.waitForReadyRead(static_cast<int>(qMax<qint64>(1, patience - clock.elapsed()))))
                reply += port.readAll();
        }
        return reply;
    }

    QSerialPort port;
    bool isOpen = false;
};

constexpr int Silence = 60; ///< ms without an answer that count as none

QByteArray ping(quint8 id)
{
    return wire::protocol2::encodeInstruction(id, wire::Ping, {});
}

QByteArray pong(quint8 id)
{
    return wire::protocol2::encodeStatus(id, 0, QByteArray::fromHex("020115"));
}

QByteArray write(quint8 id, quint16 address, const char *data)
{
    return wire::protocol2::encodeInstruction(
        id, wire::Write, wire::protocol2::writeParameters(address, QByteArray::fromHex(data)));
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
    void publishesItsBus();
    void endsCleanly_data();
    void endsCleanly();
    void deadSimulatorsAreIgnored();
    void namesAreUnique();
    void refusesBadArguments_data();
    void refusesBadArguments();
    void printsHelpAndVersion();
    void defaultBusAnswersAtTheServosRates();
    void survivesItsClients();
    void keepsRepliesForTheOneWhoAsked();
    void dropsWhatAClientLeftUnread();
    void paceFollowsTheBaudRate();
    void faults_data();
    void faults();
    void vanishes();
    void stateSurvivesAKill();
    void idlesWithoutProcessorTime();
};

void TestSimulator::publishesItsBus()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("bus");
    Simulator simulator({"--name", "bench", "--link", link});
    QVERIFY(simulator.line.startsWith("bench "));
    QVERIFY(QFileInfo::exists(simulator.device));
    QCOMPARE(QFileInfo(link).symLinkTarget(), simulator.device);
    const auto buses = simulatedbuses::published();
    QCOMPARE(int(buses.size()), 1);
    QCOMPARE(buses[0].name, QStringLiteral("bench"));
    QCOMPARE(buses[0].device, simulator.device);
    const auto othersPermissions = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther;
    QVERIFY(!(QFileInfo(simulatedbuses::folder()).permissions() & othersPermissions));
}

void TestSimulator::endsCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("hang up") << SIGHUP;
}

void TestSimulator::endsCleanly()
{
    QFETCH(int, signal);
    const QTemporaryDir folder;
    const QString link = folder.filePath("bus");
    Simulator simulator({"--link", link});
    QVERIFY(simulator.stop(signal));
    QCOMPARE(simulator.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(simulator.process.exitCode(), 0);
    QCOMPARE(simulator.process.readAllStandardError(), QByteArray());
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(QDir(simulatedbuses::folder()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
             QStringList());
}

void TestSimulator::deadSimulatorsAreIgnored()
{
    Simulator dead({"--name", "bench"});
    QVERIFY(dead.stop(SIGKILL));
    QVERIFY(QFileInfo(simulatedbuses::linkPath("bench")).isSymLink());
    QCOMPARE(publishedNames(), QStringList());
    QVERIFY(!QFileInfo(simulatedbuses::linkPath("bench")).isSymLink());

    Simulator killed({"--name", "bench"});
    QVERIFY(killed.stop(SIGKILL));
    Simulator heir({"--name", "bench"});
    QVERIFY(heir.line.startsWith("bench "));
    QCOMPARE(publishedNames(), QStringList{"bench"});
}

void TestSimulator::namesAreUnique()
{
    Simulator first({});
    Simulator second({});
    QCOMPARE(publishedNames(), QStringList({"zelvar-sim", "zelvar-sim-2"}));
    Simulator third({"--name", "zelvar-sim"});
    QVERIFY(third.isOver());
    QCOMPARE(third.process.exitCode(), 2);
    QCOMPARE(third.line, QString());
    QCOMPARE(third.process.readAllStandardError().count('\n'), 1);
}

void TestSimulator::refusesBadArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("option") << QStringList{"--nonsense"};
    QTest::newRow("servo") << QStringList{"--servo", "zelvar:999"};
    QTest::newRow("link in no folder") << QStringList{"--link", "/nowhere/bus"};
    QTest::newRow("link in place of a folder") << QStringList{"--link", QDir::tempPath()};
    QTest::newRow("state in no folder") << QStringList{"--state", "/nowhere/state"};
}

void TestSimulator::refusesBadArguments()
{
    QFETCH(QStringList, arguments);
    Simulator simulator(arguments);
    QVERIFY(simulator.isOver());
    QCOMPARE(simulator.process.exitCode(), 2);
    QCOMPARE(simulator.line, QString());
    QCOMPARE(simulator.process.readAllStandardError().count('\n'), 1);
    QCOMPARE(publishedNames(), QStringList());
}

void TestSimulator::printsHelpAndVersion()
{
    for (const auto &[option, text] : {
             std::pair("--help", "--fault"), {"--version", ZELVAR_VERSION}
    }) {
        QProcess process;
        process.start(QStringLiteral(ZELVAR_SIMULATOR), {option});
        QVERIFY(process.waitForFinished(Patience));
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardOutput().contains(text));
    }
}

void TestSimulator::defaultBusAnswersAtTheServosRates()
{
    Simulator simulator({});
    {
        Client client(simulator.device);
        QVERIFY(client.isOpen);
        QCOMPARE(client.ask(ping(0), 14), pong(0));
        QCOMPARE(client.ask(ping(3), 14), pong(3));
        QCOMPARE(client.ask(ping(7), 14, Silence), QByteArray());
        QCOMPARE(client.ask(wire::protocol1::encode(5, wire::Read, QByteArray::fromHex("0003")), 9),
                 wire::protocol1::encode(5, 0, QByteArray::fromHex("0C0018")));
    }
    Client client(simulator.device, 57600);
    QCOMPARE(client.ask(ping(7), 14), pong(7));
    QCOMPARE(client.ask(ping(0), 14, Silence), QByteArray());
    QVERIFY(client.port.setBaudRate(FastRate));
    QCOMPARE(client.ask(ping(0), 14), pong(0));
}

void TestSimulator::survivesItsClients()
{
    Simulator simulator({});
    for (int i = 0; i < 200; ++i) {
        Client client(simulator.device);
        QVERIFY(client.isOpen);
        QCOMPARE(client.ask(ping(3), 14), pong(3));
        client.port.write(ping(0).left(1 + i % 9)); // leaves in the middle of a packet
        client.port.waitForBytesWritten(Patience);
    }
    QCOMPARE(simulator.process.state(), QProcess::Running);
}

void TestSimulator::keepsRepliesForTheOneWhoAsked()
{
    Simulator simulator({"--fault", "delay=300"});
    {
        Client impatient(simulator.device);
        impatient.port.write(ping(0));
        QVERIFY(impatient.port.waitForBytesWritten(Patience));
        QCOMPARE(impatient.receive(1, 20), QByteArray());
    }
    Client next(simulator.device);
    QCOMPARE(next.receive(1, 500), QByteArray());
    QCOMPARE(next.ask(ping(3), 14), pong(3));
}

void TestSimulator::dropsWhatAClientLeftUnread()
{
    Simulator simulator({});
    {
        Client client(simulator.device);
        client.port.setReadBufferSize(1);
        QCOMPARE(client.ask(ping(0), 1), pong(0).left(1));
    }
    Client next(simulator.device);
    QCOMPARE(next.receive(1, Silence), QByteArray());
    QCOMPARE(next.ask(ping(3), 14), pong(3));
}

void TestSimulator::paceFollowsTheBaudRate()
{
    Simulator simulator({"--pace", "--servo", "zelvar:1:9600", "--servo", "zelvar:2"});
    const auto parameters = wire::protocol2::readParameters(0, 118);
    for (const auto &[id, baudRate] : {
             std::pair<quint8, int>(1, 9600), {2, FastRate}
    }) {
        Client client(simulator.device, baudRate);
        const QByteArray read = wire::protocol2::encodeInstruction(id, wire::Read, parameters);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(client.ask(read, 129).size(), 129);
        // 14 and 129 bytes of 10 bits, and half a millisecond before the answer.
        const double wireTime = (14 + 129) * 10 * 1e9 / baudRate + 500e3;
        QVERIFY2(clock.nsecsElapsed() >= wireTime, qPrintable(QString::number(clock.nsecsElapsed())));
    }
}

void TestSimulator::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QList<QByteArray>>("replies");

    const QByteArray whole = pong(0);
    QTest::newRow("delay") << "delay=20" << QList<QByteArray>{whole, whole};
    QTest::newRow("chunk") << "chunk" << QList<QByteArray>{whole, whole};
    QTest::newRow("echo") << "echo" << QList<QByteArray>{ping(0) + whole, ping(0) + whole};
    QTest::newRow("mute") << "mute-after=1" << QList<QByteArray>{whole, QByteArray()};
    QTest::newRow("drop") << "drop=1" << QList<QByteArray>{QByteArray(), QByteArray()};
}

void TestSimulator::faults()
{
    QFETCH(QString, fault);
    QFETCH(QList<QByteArray>, replies);
    Simulator simulator({"--fault", fault});
    Client client(simulator.device);
    for (const QByteArray &reply : replies)
        QCOMPARE(
            client.ask(ping(0), reply.isEmpty() ? 1 : reply.size(), reply.isEmpty() ? Silence : Patience),
            reply);
}

void TestSimulator::vanishes()
{
    Simulator simulator({"--fault", "vanish-after=2"});
    Client client(simulator.device);
    QCOMPARE(client.ask(ping(0), 14), pong(0));
    QCOMPARE(client.ask(ping(0), 14), pong(0));
    client.port.write(ping(0));
    client.port.waitForBytesWritten(Patience);
    QVERIFY(simulator.isOver());
    QCOMPARE(simulator.process.exitCode(), 0);
    QCOMPARE(publishedNames(), QStringList());
}

void TestSimulator::stateSurvivesAKill()
{
    const QTemporaryDir folder;
    const QStringList arguments{"--state", folder.filePath("state.json"), "--servo", "zelvar:1"};
    {
        Simulator simulator(arguments);
        Client client(simulator.device);
        QCOMPARE(client.ask(write(1, 3, "0922"), 11), wire::protocol2::encodeStatus(1, 0, {}));
        QVERIFY(simulator.stop(SIGKILL));
    }
    Simulator simulator(arguments);
    Client client(simulator.device, 57600);
    QCOMPARE(client.ask(ping(9), 14), pong(9));
}

void TestSimulator::idlesWithoutProcessorTime()
{
    Simulator simulator({});
    Client client(simulator.device);
    QCOMPARE(client.ask(ping(0), 14), pong(0));
    const auto processorTicks = [&simulator] {
        QFile file(QStringLiteral("/proc/%1/stat").arg(simulator.process.processId()));
        if (!file.open(QIODevice::ReadOnly))
            return 0;
        const QList<QByteArray> fields = file.readAll().split(' ');
        return fields[13].toInt() + fields[14].toInt();
    };
    // A moving servo is brought up to date all the time, and a resting one not at all.
    QCOMPARE(client.receive(1, 300), QByteArray());
    const int before = processorTicks();
    QCOMPARE(client.receive(1, 700), QByteArray());
    QVERIFY(processorTicks() - before <= 1);
}

ZELVAR_TEST_MAIN(TestSimulator)

#include "tst_simulator.moc"
