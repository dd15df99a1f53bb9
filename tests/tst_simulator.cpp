// The simulator as a process of its own, over its serial device file.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/simulatedbuses.h"
#include "tests/support/simulatorprocess.h"
#include "tests/support/testenvironment.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSerialPort>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <sys/stat.h>

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

QByteArray writeId(quint8 from, quint8 to)
{
    return wire::protocol2::encodeInstruction(
        from, wire::Write, wire::protocol2::writeParameters(3, QByteArray(1, static_cast<char>(to))));
}

QByteArray done(quint8 id, quint8 error = wire::NoError)
{
    return wire::protocol2::encodeStatus(id, error, {});
}

/** While it lives, what starts finds a disk without room. */
class FullDisk
{
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit none{0, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit before{};
};

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** How a simulator with @p arguments that does not come up ends: its exit code and the lines that it prints. */
QString refusal(const QStringList &arguments)
{
    QProcess process;
    process.start(SimulatorProcess::program(), arguments);
    process.waitForFinished();
    return QString("%1 %2").arg(process.exitCode()).arg(process.readAllStandardError().count('\n'));
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
            QCOMPARE(QFileInfo(link).canonicalFilePath(), simulator.device());
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
        const QTemporaryDir folder;
        const QString link = folder.filePath("link");
        QVERIFY(QFile::link("/nowhere", link)); // somebody's
        for (const QStringList &arguments : {QStringList{"--servo", "zelvar:999"},
                                             {"--servo", "two\nlines"},
                                             {"--name", "bench"},
                                             {"--link", QDir::tempPath()},
                                             {"--link", link},
                                             {"--state", "/nowhere/state"},
                                             {"--state", "/dev/null"},
                                             {"--state", folder.path()}}) {
            const InRow row(arguments.join(' '));
            QCOMPARE(refusal(arguments), QString("2 1"));
        }
        QCOMPARE(QFileInfo(link).symLinkTarget(), QString("/nowhere"));
    }

    void replacesOnlyItsOwnLinks()
    {
        const QTemporaryDir folder;
        const QString link = folder.filePath("bus");
        put(link + ".tmp", "mine");
        const QStringList arguments{"--name", "bench", "--link", link};
        {
            SimulatorProcess killed(arguments);
            QCOMPARE(refusal({"--link", link}), QString("2 1")); // it is in use
            killed.kill();
        }
        SimulatorProcess heir(arguments);
        QCOMPARE(QFileInfo(link).canonicalFilePath(), heir.device());
        QCOMPARE(contents(link + ".tmp"), QByteArray("mine"));
    }

    void staysOutOfFoldersOfOthers()
    {
        const QTemporaryDir folder;
        const QString victim = folder.filePath("victim");
        QVERIFY(QDir().mkdir(victim) && QFile::link("/nowhere", victim + "/link"));
        const auto permissions = QFileInfo(victim).permissions();
        const QString planted = folder.filePath(QString("zelvar-servo-simulator-%1").arg(getuid()));
        const auto plantLink = [&] { return QFile::link(victim, planted); };
        const auto plantInside = [&] {
            return QDir().mkdir(planted) && QFile::setPermissions(planted, QFile::Permissions(0x7700)) &&
                   QFile::link(victim, planted + "/zelvar-servo-simulator");
        };
        const auto plantOpen = [&] { return QDir().mkdir(planted) && ::chmod(qPrintable(planted), 0777) == 0; };
        const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
        const QByteArray temporaryFolder = qgetenv("TMPDIR");
        qunsetenv("XDG_RUNTIME_DIR");
        qputenv("TMPDIR", folder.path().toLocal8Bit());
        for (const std::function<bool()> &plant : {std::function<bool()>(plantLink), {plantInside}, {plantOpen}}) {
            QVERIFY(plant());
            QCOMPARE(publishedNames(), QStringList());
            SimulatorProcess simulator;
            QCOMPARE(Client(simulator.device()).ask(ping(3), 14), pong(3));
            QCOMPARE(publishedNames(), QStringList());
            QCOMPARE(QDir(victim).entryList(QDir::System | QDir::Files), QStringList{"link"});
            QCOMPARE(QFileInfo(victim).permissions(), permissions);
            QVERIFY(QFile::remove(planted) || QDir(planted).removeRecursively());
        }
        SimulatorProcess simulator;
        QCOMPARE(publishedNames(), QStringList{"zelvar-sim"});
        qputenv("XDG_RUNTIME_DIR", runtimeFolder);
        temporaryFolder.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporaryFolder);
    }

    void damagedLocksAreNobodys()
    {
        SimulatorProcess alive({"--name", "alive"});
        const QString lock = simulatedbuses::linkPath("dead") + ".lock";
        const std::function<bool()> damages[] = {
            [&] { return QFile(lock).open(QIODevice::WriteOnly); },
            [&] { return QFile::copy("/proc/self/exe", lock); },
            [&] { return mkfifo(qPrintable(lock), S_IRUSR | S_IWUSR) == 0; },
            [&] { return QFile::link("/dev/zero", lock); },
            [&] { return QDir().mkdir(lock); },
        };
        for (const auto &damage : damages) {
            QVERIFY(damage() && QFile::link("/dev/null", simulatedbuses::linkPath("dead")));
            QCOMPARE(publishedNames(), QStringList{"alive"});
            std::remove(qPrintable(lock)); // a link is gone by now
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
        const QString path = folder.filePath("state.json");
        const QStringList arguments{"--state", path, "--servo", "zelvar:1"};
        SimulatorProcess killed(arguments);
        const auto address = wire::protocol2::writeParameters(3, QByteArray::fromHex("0922"));
        const auto write = wire::protocol2::encodeInstruction(1, wire::Write, address);
        QCOMPARE(Client(killed.device()).ask(write, 11), done(1));
        QCOMPARE(refusal(arguments), QString("2 1")); // one at a time
        killed.kill();
        // What another bus has there stays.
        QCOMPARE(Client(SimulatorProcess({"--state", path, "--servo", "zelvar:2"}).device()).ask(ping(2), 14), pong(2));
        SimulatorProcess simulator(arguments);
        QCOMPARE(Client(simulator.device(), 57600).ask(ping(9), 14), pong(9));
    }

    void fullDiskLosesNothing()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("state.json");
        QVERIFY(QFile::link(path, folder.filePath("link")));
        const QStringList arguments{"--state", folder.filePath("link"), "--servo", "zelvar:1"};
        QCOMPARE(Client(SimulatorProcess(arguments).device()).ask(writeId(1, 9), 11), done(1));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        const QByteArray before = contents(path);
        {
            const FullDisk disk;
            QCOMPARE(refusal({"--state", path, "--servo", "ax12:1"}), QString("2 1")); // it would have to be added
        }
        {
            auto disk = std::make_unique<FullDisk>();
            SimulatorProcess simulator(arguments);
            disk.reset(); // the simulator's stays full
            Client client(simulator.device());
            QCOMPARE(client.ask(writeId(9, 5), 11), done(9, wire::ProcessFailure));
            QCOMPARE(client.ask(ping(9), 14), pong(9));
            simulator.kill();
        }
        QCOMPARE(contents(path), before);
        SimulatorProcess simulator(arguments);
        QCOMPARE(Client(simulator.device()).ask(writeId(9, 5), 11), done(9));
        QVERIFY(contents(path) != before);
        QCOMPARE(QFileInfo(path).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
        QVERIFY(QFileInfo(folder.filePath("link")).isSymLink());
    }

    void takesItsOwnStateFilesOnly()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("state.json");
        const QStringList arguments{"--state", path, "--servo", "zelvar:1"};
        const char *const foreign[] = {"",
                                       "{}",
                                       "[1]",
                                       "notes",
                                       "{'name': 'a package', 'version': 1}",
                                       "{'zelvar:1': {'3': 9}, 'mine': 1}",
                                       "{'zelvar:1': {'3': 'nine'}}",
                                       "{'format': 'other', 'version': 1, 'servos': {}}",
                                       "{'format': 'zelvar-servo-simulator state', 'version': 2, 'servos': {}}",
                                       "{'format': 'zelvar-servo-simulator state', 'version': 1, 'servos': 3}"};
        for (const char *text : foreign) {
            const InRow row(text);
            const QByteArray bytes = QByteArray(text).replace('\'', '"');
            put(path, bytes);
            QCOMPARE(refusal(arguments), QString("2 1"));
            QCOMPARE(contents(path), bytes);
        }
        put(path, QByteArray("{'zelvar:1': {'3': 9}, 'ax12:5#2': {'3': 8}}")
                      .replace('\'', '"')); // as it was before the format had a name
        SimulatorProcess simulator(arguments);
        QCOMPARE(Client(simulator.device()).ask(ping(9), 14), pong(9));
        const QJsonObject state = QJsonDocument::fromJson(contents(path)).object();
        QCOMPARE(state["format"].toString(), QString("zelvar-servo-simulator state"));
        QCOMPARE(state["servos"].toObject()["ax12:5#2"].toObject()["3"].toInt(), 8);
    }
};

ZELVAR_TEST_MAIN(TestSimulator)
#include "tst_simulator.moc"
