// The simulated servos and their bus without a process around them, with the clock in the test's hand.

#include "serialport/protocol2.h"
#include "simulator/ax12servo.h"
#include "simulator/baudcode.h"
#include "simulator/simulatedbus.h"
#include "simulator/zelvarregisters.h"
#include "simulator/zelvarservo.h"
#include "tests/support/testenvironment.h"

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
        wire::protocol2::Parser parser;
        parser.append(wire::protocol2::encodeInstruction(servo.id(), instruction, parameters));
        const QByteArray reply = servo.execute(*parser.next());
        parser.append(reply);
        return parser.next().value_or(wire::Packet());
    }
    int write(int address, const QByteArray &data)
    {
        return ask(wire::Write, wire::protocol2::writeParameters(static_cast<quint16>(address), data)).error;
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

} // namespace

class TestServoModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatItMust()
    {
        ZelvarBench bench;
        QCOMPARE(int(bench.ask(wire::Read, QByteArray::fromHex("75000200")).error), int(wire::DataLengthError));
        QCOMPARE(int(bench.ask(5, {}).error), int(wire::InstructionError));
        // clang-format off
        const std::pair<RegisterWrite, int> writes[] = {
            {{Register::Id, 253, 1},                               0                   },
            {{Register::Id, 254, 1},                               wire::DataRangeError},
            {{Register::VelocityLimit + 1, 0x0A, 1},               wire::DataRangeError}, // judged whole
            {{Register::HomeOffset, 1044480, 4},                   wire::DataRangeError},
            {{Register::TargetVelocity, Clockwise | 2000, 2},      0                   },
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

    void ax12AnswersMovesAndRefuses()
    {
        SimulatedBus::Servos servos;
        servos.push_back(std::make_unique<Ax12Servo>(0, baudcode::DefaultCode));
        SimulatedBus bus(std::move(servos));
        const auto answer = [&bus](const char *request, SimulationTime now) {
            QByteArray replies;
            for (const BusReply &reply : bus.receive(QByteArray::fromHex(request), 1000000, now))
                replies.append(reply.bytes);
            return replies;
        };
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
            QCOMPARE(answer(request, 0us), QByteArray::fromHex(reply));
        const QByteArray position = answer("FFFF0104022402D2", 500ms);
        QVERIFY(wire::fromLittleEndian16(position, 5) > 512 && wire::fromLittleEndian16(position, 5) < 800);
    }
};

ZELVAR_TEST_MAIN(TestServoModels)
#include "tst_servomodels.moc"
