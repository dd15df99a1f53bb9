// The simulated servos and their bus without a process around them, with the clock in the test's hand.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/ax12servo.h"
#include "simulator/baudcode.h"
#include "simulator/faultinjector.h"
#include "simulator/simulatedbus.h"
#include "simulator/simulatoroptions.h"
#include "simulator/zelvarregisters.h"
#include "simulator/zelvarservo.h"
#include "tests/support/testenvironment.h"

#include <QtEndian>

using namespace std::chrono_literals;
using zelvar::Register;

namespace {
constexpr quint8 Id = 3;
constexpr int Clockwise = 0x8000;

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

/** A servo of the own family; what it is asked goes through packets. */
class ZelvarBench
{
public:
    wire::Packet ask(quint8 instruction, const QByteArray &parameters)
    {
        wire::Packet request;
        request.framing = wire::Framing::Protocol2;
        request.id = servo.id();
        request.instruction = instruction;
        request.parameters = parameters;
        servo.advance(now);
        wire::protocol2::Parser parser;
        parser.append(servo.execute(request));
        return parser.next().value_or(wire::Packet());
    }
    int write(int address, const QByteArray &data)
    {
        return ask(wire::Write, wire::protocol2::writeParameters(static_cast<quint16>(address), data)).error;
    }
    int write(int address, qint32 value, int size)
    {
        const qint32 bytes = qToLittleEndian(value);
        return write(address, QByteArray(reinterpret_cast<const char *>(&bytes), size));
    }
    QByteArray registers() { return ask(wire::Read, wire::protocol2::readParameters(0, 118)).parameters; }
    qint32 value(int address)
    {
        servo.advance(now);
        return servo.registerValue(address);
    }

    ZelvarServo servo{Id, baudcode::DefaultCode};
    SimulationTime now{0};
};

struct RegisterWrite
{
    int address;
    qint32 value;
    int size;
};

template <typename Servo>
SimulatedBus busOf(quint8 id, quint8 baudCode = baudcode::DefaultCode)
{
    SimulatedBus::Servos servos;
    servos.push_back(std::make_unique<Servo>(id, baudCode));
    return SimulatedBus(std::move(servos));
}

/** All that the bus answers to @p bytes. */
QByteArray answer(SimulatedBus &bus, const QByteArray &bytes, int baudRate = 1000000,
                  SimulationTime now = 0us)
{
    QByteArray replies;
    for (const BusReply &reply : bus.receive(bytes, baudRate, now))
        replies.append(reply.bytes);
    return replies;
}

QByteArray ping(quint8 id)
{
    return wire::protocol2::encodeInstruction(id, wire::Ping, {});
}

QByteArray passed(FaultInjector &faults)
{
    QByteArray bytes;
    for (const FaultInjector::Piece &piece : faults.pass(hex("FFFFFD000107005500060426655D")))
        bytes += piece.bytes;
    return bytes;
}

} // namespace

using Probability = double FaultSettings::*;

class TestServoModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesWhatItMust()
    {
        ZelvarBench bench;
        const QByteArray pastTheEnd = hex("75000200");
        QCOMPARE(int(bench.ask(wire::Read, pastTheEnd).error), int(wire::DataLengthError));
        QCOMPARE(int(bench.ask(5, {}).error), int(wire::InstructionError));
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
        for (const auto &[write, error] : writes)
            QCOMPARE(bench.write(write.address, write.value, write.size), error);
    }

    void blocksAreTakenWholeOrNotAtAll()
    {
        ZelvarBench bench;
        const QByteArray before = bench.registers();
        QByteArray refused = before.mid(Register::Id, 38);
        refused[Register::AcknowledgeTime - Register::Id] = 10;
        refused[Register::Mode - Register::Id] = 9;
        QCOMPARE(bench.write(Register::Id, refused), int(wire::DataRangeError));
        QCOMPARE(bench.registers().left(Register::Debug1), before.left(Register::Debug1));

        QByteArray block = before.mid(Register::ControlEnable, 60);
        for (const int offset : {2, 5, 16, 24, 38, 45, 59}) // gaps and read-only registers
            block[offset] = '\xEE';
        block[Register::PositionGain - Register::ControlEnable] = 77;
        QCOMPARE(bench.write(Register::ControlEnable, block), 0);
        QByteArray expected = before;
        expected[Register::PositionGain] = 77;
        QCOMPARE(bench.registers().left(Register::Debug1), expected.left(Register::Debug1));
    }

    void rebootRestoresVolatileRegisters()
    {
        ZelvarBench bench;
        QCOMPARE(bench.write(Register::DefaultVelocityGain, 1234, 2), 0);
        QVERIFY(bench.value(Register::VelocityGain) != 1234);
        bench.write(Register::ControlEnable, 1, 1);
        bench.write(Register::TargetPosition, 300, 4);
        bench.now += 200ms;
        QCOMPARE(bench.ask(wire::Reboot, {}).error, quint8(0));
        QCOMPARE(bench.value(Register::ControlEnable), 0);
        QCOMPARE(bench.value(Register::VelocityGain), 1234);
        const qint32 position = bench.value(Register::ActualPosition);
        QVERIFY(position > 0 && position < 300);
        QCOMPARE(bench.value(Register::TargetPosition), position);
    }

    void factoryResetKeepsWhatItIsTold()
    {
        const QMap<int, QPair<int, int>> kept{
            {0xFF, {1, 1} },
            {0x01, {9, 1} },
            {0x02, {9, 34}}
        };
        for (auto scope = kept.begin(); scope != kept.end(); ++scope) {
            ZelvarBench bench;
            bench.write(Register::Id, 9, 1);
            bench.write(Register::BaudRate, 34, 1);
            bench.write(Register::TemperatureLimit, 99, 1);
            const wire::Packet reply = bench.ask(wire::FactoryReset, QByteArray(1, char(scope.key())));
            QCOMPARE(int(reply.id), 9);
            QCOMPARE(qMakePair(bench.value(Register::Id), bench.value(Register::BaudRate)), scope.value());
            QCOMPARE(bench.value(Register::TemperatureLimit), 70);
        }
    }

    void movesInItsModes()
    {
        constexpr auto position = Register::ActualPosition;
        constexpr auto velocity = Register::ActualVelocity;
        constexpr auto target = Register::TargetPosition;
        const struct
        {
            const char *name;
            int mode;
            std::vector<RegisterWrite> writes;
            int seconds;
            int address;
            qint32 least;
            qint32 most;
        } cases[] = {
            {"torque", 0, {{Register::TargetTorque, Clockwise | 9000, 2}}, 3, position, -5000, -1500},
            {"wheel", 1, {{Register::TargetVelocity, 1500, 2}}, 3, velocity, 1490, 1510},
            {"clockwise", 1, {{Register::TargetVelocity, Clockwise | 1500, 2}}, 3, position, -4000, -1500},
            {"offset", 2, {{Register::HomeOffset, 500, 4}, {target, 1000, 4}}, 5, position, 999, 1001},
            {"limit", 2, {{Register::CounterClockwiseLimit, 1023, 2}, {target, 9000, 4}}, 8, position,
             1022, 1025},
            {"profile", 2, {{Register::VelocityProfile, 500, 2}, {target, 1000, 4}}, 2, velocity, 490, 510},
            {"multi-turn", 3, {{target, 9000, 4}}, 20, position, 8999, 9001},
            {"stepper", 4, {{target, 1000, 4}}, 3, position, 0, 0},
        };
        for (const auto &motion : cases) {
            ZelvarBench bench;
            bench.write(Register::Mode, motion.mode, 1);
            for (const RegisterWrite &write : motion.writes)
                bench.write(write.address, write.value, write.size);
            bench.write(Register::ControlEnable, 1, 1);
            bench.now += std::chrono::seconds(motion.seconds);
            const qint32 value = bench.value(motion.address);
            QVERIFY2(value >= motion.least && value <= motion.most, motion.name);
        }
    }

    void ax12AnswersMovesAndRefuses()
    {
        SimulatedBus bus = busOf<Ax12Servo>(0);
        QCOMPARE(answer(bus, hex("FFFF000206F7")), hex("FFFF000200FD")); // the reset gives it the id 1
        QCOMPARE(answer(bus, hex("FFFF0104020003F5")), hex("FFFF0105000C0018D5"));
        QCOMPARE(answer(bus, hex("FFFF010208F4")), hex("FFFF010240BC")); // it knows no reboot
        SimulationTime now{0};
        const auto ask = [&](quint8 instruction, const char *parameters) {
            return answer(bus, wire::protocol1::encode(1, instruction, hex(parameters)), 1000000, now).mid(4);
        };
        const auto position = [&] { return int(wire::fromLittleEndian16(ask(wire::Read, "2402"), 1)); };
        QCOMPARE(position(), 512);
        QCOMPARE(ask(wire::Write, "1E20036400")[0], '\0'); // to 800, at 100
        now += 500ms;
        QVERIFY(position() > 512 && position() < 800);
        now += 4s;
        QCOMPARE(position(), 800);
        QCOMPARE(quint8(ask(wire::Write, "1E0004")[0]), quint8(wire::RangeErrorBit));
        QCOMPARE(quint8(ask(wire::Write, "2400")[0]), quint8(wire::RangeErrorBit)); // read-only
        QCOMPARE(quint8(ask(wire::Write, "1E")[0]), quint8(wire::InstructionErrorBit));
        QCOMPARE(ask(wire::Write, "06C800")[0], '\0'); // a limit of 200
        QCOMPARE(quint8(ask(wire::Write, "1E6600")[0]), quint8(wire::AngleLimitErrorBit));
    }

    void busAnswersAtTheServosRateOnly()
    {
        const std::pair<quint8, int> rates[] = {{0, 2000000}, {1, 1000000}, {34, 57600}, {207, 9600}};
        for (const auto &[code, rate] : rates) {
            SimulatedBus bus = busOf<ZelvarServo>(Id, code);
            QVERIFY(!answer(bus, ping(Id), rate).isEmpty());
            QVERIFY(answer(bus, ping(Id), rate / 2).isEmpty());
            QVERIFY(answer(bus, ping(Id), rate + rate / 20).isEmpty());
        }
    }

    void busKeepsTheFramingsApart()
    {
        const QByteArray ping1 = wire::protocol1::encode(Id, wire::Ping, {});
        SimulatedBus own = busOf<ZelvarServo>(Id);
        QCOMPARE(answer(own, ping1), QByteArray());
        SimulatedBus other = busOf<Ax12Servo>(Id);
        QCOMPARE(answer(other, ping(Id)), QByteArray());
        // The data of this write look like the beginning of a long 1.0 packet.
        const auto write = wire::protocol2::encodeInstruction(Id, wire::Write, hex("3000FFFF0380"));
        QCOMPARE(answer(other, write + ping1), wire::protocol1::encode(Id, 0, {}));
        QByteArray spoilt = ping(Id);
        spoilt.back() = static_cast<char>(spoilt.back() ^ 1);
        QCOMPARE(answer(own, spoilt), QByteArray());
    }

    void faultsSpoilRepliesTheSameForASeed()
    {
        using Settings = FaultSettings;
        for (const Probability fault :
             {&Settings::drop, &Settings::corrupt, &Settings::truncate, &Settings::garbage}) {
            FaultSettings settings;
            settings.*fault = 0.5;
            const auto run = [&settings](quint32 seed) {
                FaultInjector faults(settings, seed);
                QList<QByteArray> replies;
                for (int i = 0; i < 200; ++i)
                    replies += passed(faults);
                return replies;
            };
            QCOMPARE(run(7), run(7));
            QVERIFY(run(7) != run(8));
            FaultInjector none({}, 1);
            const int whole = run(7).count(passed(none));
            QVERIFY2(whole > 60 && whole < 140, qPrintable(QString::number(whole)));
        }
    }

    void badOptionsAreRefused()
    {
        const QMap<QString, QStringList> values{
            {"--servo", {"zelvar", "zelvar:254", "zelvar:-1", "hydra:1", "zelvar:1:12", "zelvar:1:57600:1"}},
            {"--fault", {"drop", "drop=1.5", "drop=nan", "delay=-1", "chunk=1", "vanish-after=", "fire"}   },
            {"--name",  {"", "../x", ".hidden", "x.lock", "two words"}                                     },
            {"--seed",  {"many"}                                                                           },
            {"--bogus", {"1"}                                                                              }
        };
        for (const QString &option : values.keys()) {
            for (const QString &value : values[option]) {
                const auto result = SimulatorCommandLine::parse({"sim", option, value});
                const bool isRefused = result.action == SimulatorCommandLine::Action::ShowError;
                QVERIFY2(isRefused, qPrintable(option + value));
                QVERIFY(!result.text.isEmpty() && !result.text.contains('\n'));
            }
        }
    }
};

ZELVAR_TEST_MAIN(TestServoModels)
#include "tst_servomodels.moc"
