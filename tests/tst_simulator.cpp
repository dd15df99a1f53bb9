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

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

    void whatAKilledOneLeavesIsItsHeirs()
    {
        const QTemporaryDir folder;
        const QString link = folder.filePath("bus");
        put(link + ".tmp", "mine");
        const QStringList arguments{"--name", "bench", "--link", link};
        const QString published = simulatedbuses::linkPath("bench");
        for (const bool isLookedFor : {true, false}) {
            SimulatorProcess killed(arguments);
            QCOMPARE(refusal({"--link", link}), QString("2 1")); // it is in use
            killed.kill();
            QVERIFY(QFileInfo(published).isSymLink());
            if (isLookedFor)
                QCOMPARE(publishedNames(), QStringList());
            QCOMPARE(QFileInfo(published).isSymLink(), !isLookedFor);
        }
        SimulatorProcess heir(arguments);
        SimulatorProcess another;
        SimulatorProcess oneMore;
        QCOMPARE(publishedNames(), QStringList({"bench", "zelvar-sim", "zelvar-sim-2"}));
        QCOMPARE(QFileInfo(link).canonicalFilePath(), heir.device());
        QCOMPARE(contents(link + ".tmp"), QByteArray("mine"));
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

    void takesItsOwnStateFilesOnly()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("state.json");
        const QString link = folder.filePath("link");
        QVERIFY(QFile::link(path, link));
        const QStringList arguments{"--state", link, "--servo", "zelvar:1"};
        // clang-format off
        const char *const foreign[] = {
            "", "{}", "[1]", "notes",
            "{'name': 'a package', 'version': 1}",
            "{'zelvar:1': {'3': 9}, 'mine': 1}",
            "{'zelvar:1': {'3': 'nine'}}",
            "{'format': 'other', 'version': 1, 'servos': {}}",
            "{'format': 'zelvar-servo-simulator state', 'version': 2, 'servos': {}}",
            "{'format': 'zelvar-servo-simulator state', 'version': 1, 'servos': 3}",
        };
        // clang-format on
        for (const char *text : foreign) {
            const InRow row(text);
            const QByteArray bytes = QByteArray(text).replace('\'', '"');
            put(path, bytes);
            QCOMPARE(refusal(arguments), QString("2 1"));
            QCOMPARE(contents(path), bytes);
        }
        // As it was before the format had a name, with what another bus has there; code 34 is 57600 baud.
        put(path, QByteArray("{'zelvar:1': {'3': 9, '4': 34}, 'ax12:5#2': {'3': 8}}").replace('\'', '"'));
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        SimulatorProcess simulator(arguments);
        Client client(simulator.device(), 57600);
        QCOMPARE(client.ask(ping(7) + ping(9), 14), pong(9)); // there is no 7
        const QByteArray newId = wire::protocol2::writeParameters(3, "\5");
        QCOMPARE(client.ask(wire::protocol2::encodeInstruction(9, wire::Write, newId), 11),
                 wire::protocol2::encodeStatus(9, 0, {}));
        QCOMPARE(refusal(arguments), QString("2 1")); // one at a time
        const QJsonObject state = QJsonDocument::fromJson(contents(path)).object();
        QCOMPARE(state["format"].toString(), QString("zelvar-servo-simulator state"));
        QCOMPARE(state["servos"].toObject()["zelvar:1"].toObject()["3"].toInt(), 5);
        QCOMPARE(state["servos"].toObject()["ax12:5#2"].toObject()["3"].toInt(), 8);
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(QFileInfo(path).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
        simulator.kill();
        SimulatorProcess heir(arguments);
        QCOMPARE(Client(heir.device(), 57600).ask(ping(5), 14), pong(5));
    }
};

ZELVAR_TEST_MAIN(TestSimulator)
#include "tst_simulator.moc"
