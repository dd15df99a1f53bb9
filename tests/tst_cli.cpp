// zelvar-servo as a process of its own, on simulated buses.

#include "model/families.h"
#include "settings/settings.h"
#include "settings/storedport.h"
#include "tests/support/simulatorprocess.h"
#include "tests/support/testenvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <csignal>

namespace {

/** What the program has answered. */
struct Answer
{
    int status = -1;
    QString out;
    QString err;

    QJsonObject object() const { return QJsonDocument::fromJson(out.toUtf8()).object(); }
    /** The object of the servo @p index. */
    QJsonObject servo(int index = 0) const { return object()["servos"].toArray()[index].toObject(); }
};

Answer finish(QProcess &process)
{
    Answer answer;
    if (process.waitForFinished())
        answer.status = process.exitCode();
    answer.out = QString::fromUtf8(process.readAllStandardOutput());
    answer.err = QString::fromUtf8(process.readAllStandardError());
    return answer;
}

Answer shell(const QString &line, const QString &folder = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", QFileInfo(ZELVAR_SERVO).path() + ':' + environment.value("PATH"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.isEmpty() ? QDir::tempPath() : folder);
    process.start("bash", {"-c", line});
    return finish(process);
}

/** The program with @p arguments, separated by spaces, on the bus "bus". */
Answer servo(const QString &arguments)
{
    return shell("zelvar-servo --port bus " + arguments);
}

SimulatorProcess *startBus(QStringList servos, const QString &fault = {})
{
    QStringList arguments{"--name", "bus"};
    for (const QString &text : servos)
        arguments << "--servo" << text;
    if (!fault.isEmpty())
        arguments << "--fault" << fault;
    return new SimulatorProcess(arguments);
}

using Bus = std::unique_ptr<SimulatorProcess>;

/** Keeps a file of parameters with @p fields of the own family in the folder that the program works in. */
void keepFile(const QString &name, const char *fields)
{
    QFile file(QDir::temp().filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"format": "zelvar-servo-parameters", "version": 1, "partial": true, "model": 258, "fields": )");
    file.write(fields);
}

const QStringList ThreeServos{"zelvar:1", "zelvar:2", "ax12:5"};

/** The schema of the objects that the program prints. */
QJsonObject schema()
{
    QFile file(ZELVAR_PACKAGING "/../docs/zelvar-servo.schema.json");
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

/** The members of @p object that @p description, a part of the schema, does not have. */
QStringList undescribed(const QJsonObject &object, const QJsonObject &description)
{
    const QJsonObject properties = description["properties"].toObject();
    QStringList members = object.keys();
    members.erase(
        std::remove_if(members.begin(), members.end(), [&](const QString &key) { return properties.contains(key); }),
        members.end());
    return members;
}

QStringList keys(const model::Family &family)
{
    QStringList keys;
    for (const model::Field &field : family.fields)
        keys.append(field.key);
    return keys;
}

} // namespace

class TestCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TMPDIR", m_folder.path().toLocal8Bit());
        keepFile("slow.zservo", R"({"id": {"raw": 2}, "acceleration_limit": {"value": 5, "unit": "rad/s^2"}}})");
        keepFile("bad.zservo", "{");
    }
    void init() { Settings(storedport::Group).setValue(storedport::NameKey, "bus"); }

    /** Each row: what is typed, the exit status, and what the results and the rest are like. */
    void answersAreWhatTheyShouldBe_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        // clang-format off
        const struct { const char *arguments; int status; const char *out; const char *err; } rows[] = {
            {"ports",                                        0, "bus\t/dev/.*\tSimulated servo bus\t.chosen", ""},
            {"scan --ids 0-20",                              0, "1\t1000000\tZelvarV1.*\n2\t.*\n5\t1000000\tDynamixelAx12\tmodel 12", ""},
            {"scan --ids 6-9",                               3, "", "nobody answers on bus"},
            {"info --id 1,5",                                0, "ZelvarV1.*motor     off.*errors    none.*DynamixelAx12", ""},
            {"info",                                         2, "", "which servo\\?.*1, 2, 5"},
            {"info --id 9 --timeout 1ms",                    3, "", "no answer from servo 9 on bus at 1000000 baud"},
            {"get --id 1,9,5 --timeout 1ms id",              3, "^1: id=1\n5: id=5\n$", "servo 9"},
            {"get --id 5 --units rad '*_position'",          0, "^goal_position=0.003rad\npresent_position=0.003rad\n$", ""},
            {"get --id 1 --raw torque_limit operating_mode", 0, "^torque_limit=3000\noperating_mode=2\n$", ""},
            {"get --id 5 --table",                           0, "^  0  0c   12  Model number .byte 0.\n.*\n 49  00    0  Punch .byte 1.\n$", ""},
            {"get --list *_margin",                          0, "^# ZelvarV1\n# DynamixelAx12\nclockwise_margin +26 +volatile +0 to 254\n", ""},
            {"get --id 1 acutal_temperatur",                 2, "^$", "did you mean \"actual_temperature\""},
            {"get --id 5 target_position",                   2, "^$", "no field \"target_position\" of a DynamixelAx12"},
            {"get --id 300",                                 2, "", "no list of ids"},
            {"get --raw --table",                            2, "", "excludes"},
            {"set target_position=1rad",                     2, "", "set needs --id"},
            {"set --id 1,2 id=7",                            2, "", "only one servo"},
            {"set --id 1 id=2",                              2, "", "taken"},
            {"set --id 1 target_position",                   2, "", "sets nothing"},
            {"set --id 1 target_position=90",                2, "", "in which unit\\? write 90rad or 90deg"},
            {"set --id 1 target_position=90V",               2, "", "\"V\" is no unit"},
            {"set --id 1 target_position=1,5rad",            2, "", "no number"},
            {"set --id 1 target_torque=-18.1Nm",             2, "", "it takes -18.000Nm to 18.000Nm"},
            {"set --id 5 goal_position=151deg",              2, "", "it takes -150.0deg to 150.0deg"},
            {"set --id 1 torque_limit=-1Nm",                 2, "", "it takes 0.000Nm"},
            {"set --id 1 id=3.7",                            2, "", "whole number"},
            {"set --id 1 moving=on",                         2, "", "can only be read"},
            {"set --id 1 target_positio=1rad",               2, "", "did you mean \"target_position\""},
            {"set --id 1 operating_mode=fast",               2, "", "torque, wheel, joint, multi-turn, stepper"},
            {"set --id 1 baud_rate=1234",                    2, "", "9600, "},
            // Side by side in one block, the motor last and alone.
            {"set --id 1 --dry-run control_enable=on moving_threshold=0.2rad/s input_mode=position target_torque=-1.5Nm", 0,
             "write c8 00 01 from register 24 on, as ff ff fd 00 01 08 00 03 18 00 c8 00 01 .*\n.*write dc 85 from register 84.*\n.*write 01 from register 48 on", ""},
            {"backup --id 1,2 own.zservo",                   2, "", "a file keeps one servo"},
            {"backup --id 1 nowhere/own.zservo",             2, "", "cannot be written: No such file"},
            {"backup --id 1 slow.zservo",                    2, "", "slow.zservo has something else .* add --replace"},
            {"diff --id 1 slow.zservo",                      1, "\nacceleration_limit +24.000rad/s.2 +5.000rad/s.2\n.*compared 2, equal 0, different 2", ""},
            {"diff --id 1,2 slow.zservo",                    1, "\n2: acceleration_limit.*compared 1, equal 0, different 1", ""},
            {"diff slow.zservo slow.zservo",                 0, "compared 2, equal 2, different 0, missing 0", ""},
            {"diff slow.zservo bad.zservo",                  2, "^$", "bad.zservo: line 1: it is no JSON"},
            {"restore --id 1 bad.zservo",                    2, "^$", "bad.zservo: line 1: it is no JSON"},
            {"restore slow.zservo",                          2, "^$", "restore needs --id"},
            {"restore --id 5 slow.zservo",                   2, "^$", "of a ZelvarV1, model 258, but servo 5 on bus is of a DynamixelAx12"},
            {"restore --id 1 --with-id slow.zservo",         2, "", "another servo has the id 2 at 1000000 baud"},
            {"restore --id 1,2 slow.zservo --only id",       2, "^$", "only one servo"},
            {"restore --id 1 slow.zservo --only moving",     2, "^$", "non-volatile fields only"},
            {"restore --id 1 slow.zservo --only torque_*",   5, "not all is as in the file: compared 0, .* missing 1", "does not have torque_limit"},
            {"restore --id 1 --dry-run slow.zservo",         0, "left out: id\n.*would write 88 13 from register 18 on", ""},
            {"reboot --id 5",                                5, "", "no reboot"},
            {"reboot",                                       2, "", "needs --id"},
            {"factory-reset",                                2, "", "needs --id"},
            {"dance",                                        2, "", "."},
            {"",                                             2, "", "."},
            {"--version",                                    0, "^zelvar-servo 1", ""},
            {"--port nowhere info --id 1",                   4, "", "no port nowhere; there are: bus"},
        };
        // clang-format on
        for (const auto &row : rows)
            QTest::newRow(row.arguments) << row.arguments << row.status << row.out << row.err;
    }
    void answersAreWhatTheyShouldBe()
    {
        QFETCH(QString, arguments);
        QFETCH(int, status);
        QFETCH(QString, out);
        QFETCH(QString, err);
        const Bus bus(startBus(ThreeServos));
        const auto matches = [](const QString &text, const QString &pattern) {
            return QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption).match(text).hasMatch();
        };
        const QString before = servo("get --id 1,5 --raw").out;
        const bool hasPort = arguments.contains("--port");
        const Answer answer = hasPort ? shell("zelvar-servo " + arguments) : servo(arguments);
        QVERIFY2(answer.status == status, qPrintable(QString::number(answer.status) + answer.err));
        QVERIFY2(matches(answer.out, out), qPrintable(answer.out));
        QVERIFY2(matches(answer.err, err) && answer.err.isEmpty() == err.isEmpty(), qPrintable(answer.err));
        QCOMPARE(servo("get --id 1,5 --raw").out, before);
        // The same as an object: the same status, and nothing else on standard output.
        const Answer json = hasPort ? shell("zelvar-servo --json " + arguments) : servo("--json " + arguments);
        QCOMPARE(json.status, status);
        if (!json.object().isEmpty()) {
            QCOMPARE(json.object()["schema"].toInt(), 1);
            QCOMPARE(json.object()["status"].toInt(), status);
            QCOMPARE(json.out.count('\n'), 1);
            QCOMPARE(undescribed(json.object(), schema()), QStringList());
            QCOMPARE(undescribed(json.servo(), schema()["$defs"].toObject()["servo"].toObject()), QStringList());
        } else {
            QCOMPARE(arguments, QString("--version"));
        }
    }

    /** Whatever can be written takes back what was read, in both families. */
    void whatGetTellsSetTakes()
    {
        const Bus bus(startBus(ThreeServos));
        for (const int id : {1, 5}) {
            const InRow row(QString::number(id));
            const model::Family &family = id == 5 ? model::DynamixelAx12Family : model::ZelvarV1Family;
            QStringList lines = servo(QString("get --id %1").arg(id)).out.split('\n', Qt::SkipEmptyParts);
            QCOMPARE(lines.size(), int(family.fields.size()));
            QStringList writable;
            for (const QString &line : lines) {
                QVERIFY(keys(family).contains(line.section('=', 0, 0)));
                if (family.field(QLatin1String(line.section('=', 0, 0).toLatin1()))->isWritable())
                    writable.append(line);
            }
            const Answer answer = servo(QString("set --id %1 ").arg(id) + writable.join(' '));
            QVERIFY2(answer.status == 0, qPrintable(answer.err));
            QCOMPARE(answer.out.count('\n'), writable.size());
        }
    }

    void whatIsSetIsProved()
    {
        const Bus bus(startBus(ThreeServos));
        Answer answer = servo("--json set --id 1,2,5 --timeout 1ms led=on");
        QCOMPARE(answer.status, 2); // one of them has it; the others are told why not
        QCOMPARE(answer.servo(2)["fields"].toObject()["led"].toObject()["kept"].toBool(), true);
        QVERIFY(answer.servo(0)["error"].toString().contains("no field \"led\" of a ZelvarV1"));

        QCOMPARE(servo("set --id 1,5 upper_input_voltage_limit=10V").status, 0);
        for (const int index : {0, 1})
            QCOMPARE(servo("info --json --id 1,5").servo(index)["errors"].toArray(), QJsonArray{"Input voltage error"});

        answer = servo("set --id 1,2 acceleration_limit=5rad/s^2 control_enable=on");
        QCOMPARE(answer.status, 0);
        QVERIFY(answer.out.contains("servo 2 on bus: acceleration_limit=5.000rad/s^2 (was 24.000rad/s^2)"));
        answer = servo("set --id 1 acceleration_limit=6rad/s^2");
        QCOMPARE(answer.status, 2);
        QVERIFY(answer.err.contains("set --id 1 control_enable=off"));
        // An AX-12 refuses a target beyond the limits that it has just been given.
        answer = servo("set --id 5 counter_clockwise_angle_limit=10deg goal_position=20deg");
        QCOMPARE(answer.status, 5);
        QVERIFY(answer.out.contains("counter_clockwise_angle_limit=10.1deg"));
        QVERIFY2(answer.err.contains("goal_position=20.1deg not set, it has 0.1deg: the servo did not keep it and "
                                     "reports: Input voltage error, Angle limit error"),
                 qPrintable(answer.err));
    }

    void aRefusalIsTold()
    {
        QTemporaryDir folder;
        const SimulatorProcess simulator({"--name", "bus", "--servo", "zelvar:1", "--state", folder.filePath("state")});
        folder.remove(); // so that the servo can keep nothing
        const Answer answer = servo("set --id 1 moving_threshold=1rad/s target_torque=1Nm");
        QCOMPARE(answer.status, 5);
        QVERIFY2(answer.err.contains("moving_threshold=1.000rad/s not set, it has 0.020rad/s: refused with process"),
                 qPrintable(answer.err));
        QVERIFY(answer.err.contains("target_torque"));
        const Answer restore = servo("restore --id 1 slow.zservo --with-id");
        QCOMPARE(restore.status, 5);
        QVERIFY2(restore.out.contains("not all is as in the file: compared 2, equal 0, written 0, refused 2") &&
                     restore.err.contains("acceleration_limit=5.000rad/s^2 not set, it has 24.000rad/s^2: refused") &&
                     restore.err.contains("id=2 not set, it has 1: left as it is"),
                 qPrintable(restore.out + restore.err));
    }

    /** Whatever was changed since, a servo is again what the file says. */
    void whatWasKeptIsRestored()
    {
        const Bus bus(startBus(ThreeServos));
        QCOMPARE(servo("set --id 1 operating_mode=wheel acceleration_limit=2rad/s^2 home_position_offset=9deg").status,
                 0);
        QCOMPARE(servo("set --id 5 clockwise_angle_limit=-90deg alarm_led=overload_error").status, 0);
        QCOMPARE(servo("backup --id 1 one.zservo").status + servo("backup --id 5 five.zservo").status, 0);
        QCOMPARE(servo("factory-reset --id 1").status + servo("set --id 1 control_enable=on").status, 0);
        QCOMPARE(servo("diff --id 1 one.zservo").out.count('\n'), 4);

        const Answer refused = servo("restore --id 1 one.zservo");
        QVERIFY2(refused.status == 2 && refused.err.contains("add --motor-off"), qPrintable(refused.err));
        const Answer restored = servo("restore --id 1,2 --motor-off one.zservo");
        QVERIFY2(restored.status == 0, qPrintable(restored.err));
        QCOMPARE(restored.out.count("restored: compared 19, equal 17, written 2, refused 0, missing 0"), 2);
        QCOMPARE(restored.out.count("motor off"), 1);
        QVERIFY(restored.out.contains("different but left out: id, home_position_offset"));
        QCOMPARE(servo("diff --id 1 one.zservo").status, 1);
        QCOMPARE(servo("restore --id 1 --with-home one.zservo").status, 0);
        QCOMPARE(servo("diff --id 1 one.zservo").status, 0);

        // The second time, as after a run that was cut off behind its last write, it is found where it is by then.
        QCOMPARE(servo("set --id 5 id=8 baud_rate=57600 clockwise_angle_limit=0deg status_return_level=1").status, 0);
        for (const char *counts : {"compared 12, equal 8, written 4", "compared 12, equal 12, written 0"}) {
            const Answer moved = servo("restore --id 8 --baud 57600 --with-id --timeout 20ms five.zservo");
            QVERIFY2(moved.status == 0 && moved.out.contains(counts), qPrintable(moved.out + moved.err));
        }
        QCOMPARE(servo("diff --id 5 five.zservo").status, 0);
    }

    /** Each write by itself may be the last one that arrives. */
    void aRestoreThatIsCutOffIsFinishedByTheNextOne()
    {
        keepFile("three.zservo",
                 R"({"operating_mode": {"raw": 1}, "torque_limit": {"raw": 9}, "input_mode": {"raw": 1}}})");
        for (int replies = 0; replies <= 6; ++replies) {
            const InRow row(QString::number(replies));
            QTemporaryDir folder;
            const QStringList servos{"--name", "bus", "--servo", "zelvar:1", "--state", folder.filePath("state")};
            {
                const SimulatorProcess cut(servos + QStringList{"--fault", QString("mute-after=%1").arg(replies)});
                const Answer answer = servo("restore --id 1 --timeout 1ms three.zservo");
                QCOMPARE(answer.out.contains("restored"), replies == 6);
                QCOMPARE(answer.status, replies == 6 ? 0 : 3);
            }
            const SimulatorProcess whole(servos);
            QCOMPARE(servo("restore --id 1 three.zservo").status, 0);
            QCOMPARE(servo("get --raw --id 1 operating_mode torque_limit input_mode").out,
                     QString("operating_mode=1\ntorque_limit=9\ninput_mode=1\n"));
        }
    }

    void aServoThatMovesIsFollowed()
    {
        const Bus bus(startBus(ThreeServos));
        QCOMPARE(servo("set --id 2 id=7 baud_rate=57600 acceleration_limit=5rad/s^2").status, 0);
        QCOMPARE(servo("get --id 7 --baud 57600 acceleration_limit").out, QString("acceleration_limit=5.000rad/s^2\n"));
        const Answer found = servo("scan --ids 1-9 --bauds 57600,1000000");
        QVERIFY2(found.out.startsWith("7\t57600\tZelvarV1\tmodel 258\tfirmware 21\n1\t"), qPrintable(found.out));
        const Answer answer = servo("factory-reset --id 7,1 --baud 57600 --timeout 1ms");
        QCOMPARE(answer.status, 3); // no servo 1 there
        QCOMPARE(answer.out,
                 QString("servo 7 on bus: set back to its factory values; it is servo 7 at 57600 baud now\n"));
        QCOMPARE(servo("factory-reset --id 5").status, 2); // 1 is taken
        QCOMPARE(servo("set --id 1 id=3").status, 0);
        QVERIFY(servo("factory-reset --id 5").out.contains("it is servo 1 at 1000000 baud now"));
        QCOMPARE(servo("reboot --id 3").status, 0);
    }

    void aStopReachesEverybody()
    {
        const Bus bus(startBus(ThreeServos));
        for (const QString ids : {"", "--id 1,2,5", "--id 5"}) {
            const InRow row(ids);
            QCOMPARE(servo("set --id 1,2 control_enable=on").status + servo("set --id 5 torque_enable=on").status, 0);
            const Answer answer = servo("stop " + ids);
            QVERIFY2(answer.status == 0 && answer.out.endsWith("servo 5 on bus: motor off\n"), qPrintable(answer.err));
            QCOMPARE(servo("get --id 1,2 control_enable").out.contains("off"), ids != QString("--id 5"));
        }
        QCOMPARE(servo("stop --id 1,9").status, 3);
    }

    void samplesAreOneALine()
    {
        const Bus bus(startBus(ThreeServos));
        const Answer both =
            servo("monitor --id 1,2 --rate 100 --count 2 --delimiter ';' actual_voltage 'actual_temp*'");
        QCOMPARE(both.status, 0);
        const QStringList lines = both.out.split('\n');
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines[0], QString("id;time;elapsed [s];actual_voltage [V];actual_temperature [degC]"));
        QVERIFY(lines[1].startsWith("1;20") && lines[2].startsWith("2;20") && lines[4].endsWith(";12;25"));

        const QStringList objects = servo("monitor --id 1,5 --json --for 30ms --rate 50").out.split('\n');
        QVERIFY(objects.size() >= 3 && objects.size() <= 5);
        const QJsonObject sample = QJsonDocument::fromJson(objects[1].toUtf8()).object();
        QCOMPARE(sample["id"].toInt(), 5);
        QCOMPARE(sample["fields"].toObject()["present_temperature"].toObject()["unit"].toString(), QString("degC"));

        QCOMPARE(servo("monitor --id 1,5 --count 1").status, 2);
        QCOMPARE(shell("zelvar-servo --port bus monitor --id 1 --rate 1000 | head -n 3; exit ${PIPESTATUS[0]}").status,
                 0);

        QProcess endless;
        endless.start(ZELVAR_SERVO, {"--port", "bus", "monitor", "--id", "1"});
        QTRY_VERIFY(endless.bytesAvailable() > 200);
        const Answer second = servo("info --id 1");
        QCOMPARE(second.status, 4);
        QVERIFY2(second.err.contains("in use by zelvar-servo (process"), qPrintable(second.err));
        ::kill(pid_t(endless.processId()), SIGINT);
        QCOMPARE(finish(endless).status, 0);
    }

    void faultsOfTheLineAreToldOrOvercome_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("found");
        const QString all = "1\t2\t5\t";
        QTest::newRow("replies are lost") << "drop=0.05" << 0 << all;
        QTest::newRow("replies are garbled") << "corrupt=0.05" << 0 << all;
        QTest::newRow("an adapter holds back") << "delay=16" << 0 << all;
        QTest::newRow("an adapter echoes") << "echo" << 0 << all;
        QTest::newRow("nobody answers") << "mute-after=0" << 3 << "";
        QTest::newRow("the port goes away") << "vanish-after=0" << 4 << "";
    }
    void faultsOfTheLineAreToldOrOvercome()
    {
        QFETCH(QString, fault);
        QFETCH(int, status);
        QFETCH(QString, found);
        const Bus bus(startBus(ThreeServos, fault));
        const Answer scan = servo("scan --ids 0-9");
        QCOMPARE(scan.status, status);
        QString ids;
        for (const QString &line : scan.out.split('\n', Qt::SkipEmptyParts))
            ids += line.section('\t', 0, 0) + '\t';
        QCOMPARE(ids, found);
        QCOMPARE(servo("set --id 1,2 target_position=1rad").status, status);
        QCOMPARE(servo("get --id 1,2,5").status, status);
        QCOMPARE(servo("restore --id 1,2 slow.zservo").status, status);
        QCOMPARE(servo("stop --id 1,2,5").status, status);
    }

    void twoServosWithOneIdAreAConflict()
    {
        const Bus bus(startBus({"zelvar:1", "zelvar:2", "zelvar:2", "ax12:9", "ax12:9"}));
        const QJsonArray found = servo("--json scan").object()["servos"].toArray();
        QCOMPARE(found.size(), 3);
        for (const QJsonValue &entry : found)
            QCOMPARE(entry["conflict"].toBool(), entry["id"].toInt() != 1);
    }

    void everyOptionIsToldOfEverywhere()
    {
        const auto contents = [](const QString &name) {
            QFile file(QStringLiteral(ZELVAR_PACKAGING "/") + name);
            return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).replace("\\-", "-") : QString();
        };
        const QString page = contents("man/zelvar-servo.1");
        const QString completion = contents("completion/zelvar-servo");
        const QString general = shell("zelvar-servo --help").out;
        QStringList helps{general};
        static const QRegularExpression command("\\n  ([a-z-]+) {2,}[A-Z]");
        for (auto match = command.globalMatch(general.section("Subcommands", 1)); match.hasNext();) {
            const QString name = match.next().captured(1);
            QVERIFY2(page.contains(name) && completion.contains(name), qPrintable(name));
            helps.append(shell("zelvar-servo " + name + " --help").out);
        }
        QCOMPARE(helps.size(), 1 + 12);
        static const QRegularExpression option("--[a-z-]+");
        for (auto match = option.globalMatch(helps.join('\n')); match.hasNext();) {
            const QString name = match.next().captured();
            QVERIFY2((page.contains(name) || name == "--output") && completion.contains(name), qPrintable(name));
        }
        const auto completed = [](const QString &words) {
            return shell(". " ZELVAR_PACKAGING "/completion/zelvar-servo; compopt() { :; }; COMP_WORDS=(" + words +
                         "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zelvar_servo; echo ${COMPREPLY[*]}")
                .out;
        };
        const Bus bus(startBus(ThreeServos));
        QCOMPARE(completed("zelvar-servo s"), QString("scan set stop\n"));
        QCOMPARE(completed("zelvar-servo set --id 1 goal_"), QString("goal_position=\n"));
        QVERIFY(completed("zelvar-servo --port b").startsWith("bus"));
    }

    /** Each line of the manual page's examples, in their order, on the simulator's own servos. */
    void theExamplesOfTheManualPageRun()
    {
        const SimulatorProcess simulator({"--name", "bus"});
        const QTemporaryDir folder;
        QFile page(ZELVAR_PACKAGING "/man/zelvar-servo.1");
        QVERIFY(page.open(QIODevice::ReadOnly));
        const QString examples =
            QString::fromUtf8(page.readAll()).section(".SH EXAMPLES", 1).section(".SH AUTHORS", 0, 0);
        QStringList commands;
        for (QString line : examples.split('\n')) {
            if (!line.startsWith("zelvar-servo "))
                continue;
            line.replace("\\-", "-");
            commands.append(line.section(' ', 1, 1));
            const Answer answer = shell(line, folder.path());
            QVERIFY2(answer.status == 0, qPrintable(line + '\n' + answer.err));
        }
        const QStringList all{"ports",  "scan", "info",    "get",  "set",    "monitor",
                              "backup", "diff", "restore", "stop", "reboot", "factory-reset"};
        QCOMPARE(QStringList(QSet<QString>(commands.begin(), commands.end()).values()).size(), all.size());
        QVERIFY(QFileInfo(folder.filePath("step.csv")).size() > 100);
    }

private:
    QTemporaryDir m_folder; ///< that the program works in
};

ZELVAR_TEST_MAIN(TestCli)
#include "tst_cli.moc"
