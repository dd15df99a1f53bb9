// The simulated servos and their bus without a process around them, with the clock in the test's hand.

#include "simulator/ax12servo.h"
#include "simulator/baudcode.h"
#include "simulator/lineschedule.h"
#include "simulator/replyqueue.h"
#include "simulator/selfmotion.h"
#include "simulator/simulatedbus.h"
#include "simulator/zelvarregisters.h"
#include "simulator/zelvarservo.h"
#include "tests/support/simulatedanswer.h"
#include "tests/support/testenvironment.h"

#include <set>

using namespace std::chrono_literals;
using namespace simulator;
using zelvar::Register;

namespace {
constexpr quint8 Id = 3;
constexpr int Clockwise = 0x8000;

struct RegisterWrite
{
    int address;
    qint32 value;
    int size;
};

/** A servo of the own family; what it is asked goes through packets. */
class ZelvarBench
{
public:
    wire::Packet ask(quint8 instruction, const QByteArray &parameters)
    {
        servo.advance(now);
        return answerOf(servo, instruction, parameters);
    }
    int write(int address, const QByteArray &data)
    {
        servo.advance(now);
        return answerToWrite(servo, address, data).error;
    }
    int write(const RegisterWrite &write)
    {
        const qint32 bytes = qToLittleEndian(write.value);
        return this->write(write.address, QByteArray(reinterpret_cast<const char *>(&bytes), write.size));
    }
    /** All registers but for those that tell of the servo's insides. */
    QByteArray registers() { return ask(wire::Read, wire::protocol2::readParameters(0, Register::Debug1)).parameters; }
    qint32 value(int address)
    {
        servo.advance(now);
        return servo.registerValue(address);
    }

    ZelvarServo servo{Id, baudcode::DefaultCode};
    SimulationTime now{0};
};

/** A bus of servos of the own family and of AX-12; what it is asked is in hexadecimal, as is what it answers. */
class BusBench
{
public:
    BusBench(std::initializer_list<quint8> zelvarIds, std::initializer_list<quint8> ax12Ids)
    {
        SimulatedBus::Servos servos;
        for (const quint8 id : zelvarIds)
            servos.push_back(std::make_unique<ZelvarServo>(id, baudcode::DefaultCode));
        for (const quint8 id : ax12Ids)
            servos.push_back(std::make_unique<Ax12Servo>(id, baudcode::DefaultCode));
        bus = std::make_unique<SimulatedBus>(std::move(servos));
    }
    QByteArray ask(const QByteArray &request, SimulationTime now)
    {
        QByteArray replies;
        for (const BusReply &reply : bus->receive(QByteArray::fromHex(request), 1000000, now))
            replies.append(reply.bytes);
        return replies.toHex().toUpper();
    }
    void setMemory(bool works)
    {
        for (const auto &servo : bus->servos())
            servo->setMemory([works] { return works; });
    }

    std::unique_ptr<SimulatedBus> bus;
};

} // namespace

class TestServoModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aServoMovesByItselfUntilItIsToldWhatToDo()
    {
        for (const char *text : {"sine:3", "step:3:2", "sweep:3:8.5"}) {
            const InRow row(text);
            QString error;
            ZelvarBench bench;
            bench.servo.moveBySelf(SelfMotionChoice::fromText(text, &error)->motion);
            std::set<int> positions;
            for (int i = 0; i < 80; ++i) {
                bench.now += 100ms;
                positions.insert(bench.value(Register::ActualPosition));
            }
            QVERIFY(positions.size() > 20 && *positions.begin() < -50 && *positions.rbegin() > 50);
            bench.write({Register::VelocityGain, 900, 2}); // which is tuned while it moves
            QVERIFY(bench.servo.isActive());
            bench.write({Register::ControlEnable, 0, 1});
            const int target = bench.value(Register::TargetPosition);
            bench.now += 5s;
            QCOMPARE(bench.value(Register::TargetPosition), target);
            QVERIFY(!bench.servo.isActive());
        }
        for (const char *wrong : {"", "sine", "dance:3", "sine:254", "sine:3:0", "sine:3:x", "sine:3:4:5"}) {
            QString error;
            QVERIFY(!SelfMotionChoice::fromText(wrong, &error) && error.contains(wrong));
        }
    }

    void refusesWhatItMust()
    {
        ZelvarBench bench;
        QCOMPARE(int(bench.ask(wire::Read, QByteArray::fromHex("75000200")).error), int(wire::DataLengthError));
        QCOMPARE(int(bench.ask(5, {}).error), int(wire::InstructionError));
        // clang-format off
        const std::pair<RegisterWrite, int> writes[] = {
            {{Register::VelocityLimit + 1, 0x0A, 1},               wire::DataRangeError}, // judged whole
            {{Register::TargetVelocity, Clockwise | 2001, 2},      wire::DataRangeError},
            {{Register::ActualPosition, 1, 4},                     wire::AccessError   },
            {{Register::ControlEnable, 1, 1},                      0                   },
            {{Register::AcknowledgeTime, 250, 1},                  wire::AccessError   },
            {{Register::TargetPosition, 5, 4},                     0                   },
        };
        // clang-format on
        for (const auto &[write, error] : writes)
            QCOMPARE(bench.write(write), error);
    }

    void blocksAreTakenWholeOrNotAtAll()
    {
        ZelvarBench bench;
        QByteArray expected = bench.registers();
        QByteArray refused = expected.mid(Register::Id, 38);
        refused[Register::AcknowledgeTime - Register::Id] = 10;
        refused[Register::Mode - Register::Id] = 9;
        QCOMPARE(bench.write(Register::Id, refused), int(wire::DataRangeError));
        QCOMPARE(bench.registers(), expected);

        QByteArray block = expected.mid(Register::ControlEnable, 60);
        for (const int offset : {2, 5, 16, 24, 38, 45, 59}) // gaps and read-only registers
            block[offset] = '\xEE';
        block[Register::PositionGain - Register::ControlEnable] = 77;
        QCOMPARE(bench.write(Register::ControlEnable, block), 0);
        expected[Register::PositionGain] = 77;
        QCOMPARE(bench.registers(), expected);
    }

    void movesInItsModes()
    {
        constexpr auto position = Register::ActualPosition;
        constexpr auto velocity = Register::ActualVelocity;
        constexpr auto target = Register::TargetPosition;
        const std::tuple<const char *, int, std::vector<RegisterWrite>, int, int, qint32, qint32> rows[] = {
            {"torque", 0, {{Register::TargetTorque, Clockwise | 9000, 2}}, 3, position, -5000, -1500},
            {"clockwise", 1, {{Register::TargetVelocity, Clockwise | 1500, 2}}, 3, position, -4000, -1500},
            {"offset", 2, {{Register::HomeOffset, 500, 4}, {target, 1000, 4}}, 5, position, 999, 1001},
            {"limit", 2, {{Register::CounterClockwiseLimit, 1023, 2}, {target, 9000, 4}}, 8, position, 1022, 1025},
            {"profile", 2, {{Register::VelocityProfile, 500, 2}, {target, 1000, 4}}, 2, velocity, 490, 510},
            {"multi-turn", 3, {{target, 9000, 4}}, 20, position, 8999, 9001},
            {"stepper", 4, {{target, 1000, 4}}, 3, position, 0, 0},
        };
        for (const auto &[name, mode, writes, seconds, address, least, most] : rows) {
            ZelvarBench bench;
            bench.write({Register::Mode, mode, 1});
            for (const RegisterWrite &write : writes)
                bench.write(write);
            bench.write({Register::ControlEnable, 1, 1});
            bench.now += std::chrono::seconds(seconds);
            const qint32 value = bench.value(address);
            QVERIFY2(value >= least && value <= most, name);
        }
    }

    void answersAsOtherClientsExpect()
    {
        struct Exchange
        {
            const char *name;
            QByteArray request;
            QByteArray replies;
            SimulationTime time{0};
        };
        const QByteArray done1 = "FFFFFD000104005500A10C";
        const QByteArray done3 = "FFFFFD000304005500528C";
        const QByteArray done5 = "FFFF050200F8";
        const QByteArray goals = "FFFFFD00FE0900824E00040001030D4A"; // a sync read
        const QByteArray flag1 = "FFFFFD000107000231000100280F";
        const QByteArray flag5 = "FFFF0504022C01C7";
        const QByteArray goal5 = "FFFF0504021E02D4";
        const QByteArray ping3 = "FFFFFD00030300011AE6";
        // clang-format off
        const Exchange exchanges[] = {
            {"broadcast ping", "FFFFFD00FE0300013142", "FFFFFD0001070055000201159CC3FFFFFD00030700550002011590E3"},
            {"action without a kept write", "FFFFFD000103000502CE", "FFFFFD000104005502AE8C"},
            {"reg write", "FFFFFD00010900044E0064000000B96E", done1},
            {"its flag", flag1, "FFFFFD0001050055000156A1"},
            {"kept", goals, "FFFFFD00010800550000000000BFB8FFFFFD000308005500000000007C34"},
            {"action", "FFFFFD000103000502CE", done1},
            {"carried out", goals, "FFFFFD00010800550064000000AD68FFFFFD000308005500000000007C34"},
            {"flag down", flag1, "FFFFFD000105005500005321"},
            {"reg write again", "FFFFFD00010900044E0064000000B96E", done1},
            {"sync write", "FFFFFD00FE1100834E000400010B0000000321000000165B", ""},
            {"sync read", goals, "FFFFFD0001080055000B000000BCA4FFFFFD000308005500210000007320"},
            {"sync read with nobody at 9", "FFFFFD00FE0A00824E0004000109038910",
                                           "FFFFFD0001080055000B000000BCA4FFFFFD000308005500210000007320"},
            {"fast sync read", "FFFFFD00FE09008A4E00040001038EC2", "FFFFFD00FE11005500010B000000445F000321000000683E"},
            {"fast sync read up to 9", "FFFFFD00FE0A008A4E000400010903B990", "FFFFFD00FE19005500010B00000047EC"},
            {"bulk read", "FFFFFD00FE0D00920100000200034E0004004F7D",
                          "FFFFFD0001060055000201C0D7FFFFFD000308005500210000007320"},
            {"action to all", "FFFFFD00FE0300052AC2", ""},
            {"carried out too", goals, "FFFFFD00010800550064000000AD68FFFFFD000308005500210000007320"},
            {"bulk write", "FFFFFD00FE130093014E00040015000000033600020007002F16", ""},
            {"written by it", goals, "FFFFFD00010800550015000000B9BCFFFFFD000308005500210000007320"},
            {"and that", "FFFFFD00030700023600020027C9", "FFFFFD0003060055000700E6CB"},
            {"factory reset of all", "FFFFFD00FE040006FF8E4C", ""},
            {"refused", ping3, "FFFFFD00030700550002011590E3"},
            {"reboot", "FFFFFD00030300082CE6", done3},
            {"booting", ping3, "", 199ms},
            {"booted", ping3, "FFFFFD00030700550002011590E3", 200ms},
            {"1.0 sync write", "FFFFFE0A831E02052C010600021A", ""},
            {"1.0 reg write", "FFFF0505041E0002D1", done5},
            {"1.0 flag", flag5, "FFFF05030001F6"},
            {"1.0 kept", goal5, "FFFF0504002C01C9"},
            {"1.0 action to all", "FFFFFE0205FA", ""},
            {"1.0 carried out", goal5, "FFFF0504000002F4"},
            {"1.0 flag down", flag5, "FFFF05030000F7"},
            {"1.0 action without a kept write", "FFFF050205F3", "FFFF050240B8"},
            {"1.0 sync write to 6 as well", "FFFF0604021E02D3", "FFFF0604000002F3"},
            {"1.0 bulk read", "FFFFFE09920002051E02061E1B", ""},
        };
        // clang-format on
        BusBench bench({3, 1}, {5, 6}); // not in the order of ids
        SimulationTime now{0};
        for (const Exchange &row : exchanges) {
            now = std::max(now, row.time);
            const InRow inRow(row.name);
            QCOMPARE(bench.ask(row.request, now), row.replies);
        }
    }

    void refusesWhatItsMemoryDoesNotTake()
    {
        const std::tuple<const char *, QByteArray, QByteArray> exchanges[] = {
            {"id", "FFFFFD0003060003030009F4E1", "FFFFFD000304005501570C"},
            {"factory reset", "FFFFFD0003040006FF55E4", "FFFFFD000304005501570C"},
            {"still under its id", "FFFFFD00030300011AE6", "FFFFFD00030700550002011590E3"},
            {"volatile", "FFFFFD00010900034E0005000000D87D", "FFFFFD000104005500A10C"},
            {"1.0 id", "FFFF0504030309E7", "FFFF050240B8"},
            {"1.0 still under its id", "FFFF050201F7", "FFFF050200F8"},
        };
        BusBench bench({3, 1}, {5, 6});
        bench.setMemory(false);
        for (const auto &[name, request, reply] : exchanges) {
            const InRow inRow(name);
            QCOMPARE(bench.ask(request, 0us), reply);
        }
        bench.setMemory(true);
        QCOMPARE(bench.ask("FFFFFD0003060003030009F4E1", 0us), QByteArray("FFFFFD000304005500528C"));
    }

    void noReplyWaitsForAnother()
    {
        LineSchedule late(1s);
        for (SimulationTime asked = 0s; asked < 20s; asked += 50ms)
            QCOMPARE((late.arrival(asked, 1ms) - asked).count(), SimulationTime(1001ms).count());
        // What a client never reads is dropped at some time.
        ReplyQueue queue([] { return SimulationTime(0); });
        int pushed = 0;
        for (; pushed < 100000 && !queue.isFull(); ++pushed)
            queue.push(QByteArray(129, 'x'), 1h);
        QVERIFY(pushed > 100 && pushed < 10000);
    }

    void ax12AnswersMovesAndRefuses()
    {
        BusBench bench({}, {0});
        // clang-format off
        const std::pair<const char *, const char *> exchanges[] = {
            {"FFFF000206F7",           "FFFF000200FD"      }, // the reset gives it the id 1
            {"FFFF0104020003F5",       "FFFF0105000C0018D5"},
            {"FFFF010208F4",           "FFFF010240BC"      }, // it knows no reboot
            {"FFFF0107031E200364004F", "FFFF010200FC"      }, // to 800, at 100
            {"FFFF0105031E0004D4",     "FFFF010208F4"      }, // too far
            {"FFFF0104032400D3",       "FFFF010208F4"      }, // read-only
        };
        // clang-format on
        for (const auto &[request, reply] : exchanges)
            QCOMPARE(bench.ask(request, 0us), QByteArray(reply));
        const QByteArray answer = QByteArray::fromHex(bench.ask("FFFF0104022402D2", 500ms));
        const int position = wire::fromLittleEndian16(answer, 5);
        QVERIFY(position > 512 && position < 800);
    }
};

ZELVAR_TEST_MAIN(TestServoModels)
#include "tst_servomodels.moc"
