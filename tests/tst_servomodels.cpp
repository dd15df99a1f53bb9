#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "simulator/ax12servo.h"
#include "simulator/baudcode.h"
#include "simulator/faultinjector.h"
#include "simulator/simulatedbus.h"
#include "simulator/simulatoroptions.h"
#include "simulator/statefile.h"
#include "simulator/zelvarregisters.h"
#include "simulator/zelvarservo.h"
#include "tests/support/testenvironment.h"

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <random>

using namespace std::chrono_literals;
using zelvar::Register;

namespace {

constexpr quint8 Id = 3;
constexpr int Clockwise = 0x8000;

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

QByteArray littleEndian(qint32 value, int size)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes.append(static_cast<char>(static_cast<quint32>(value) >> (8 * i)));
    return bytes;
}

/** A servo of the own family with a clock in the test's hand; what it is asked goes through packets. */
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
    quint8 write(int address, const QByteArray &data)
    {
        return ask(wire::Write, wire::protocol2::writeParameters(static_cast<quint16>(address), data)).error;
    }
    quint8 write(int address, qint32 value, int size) { return write(address, littleEndian(value, size)); }
    qint32 value(int address)
    {
        servo.advance(now);
        return servo.registerValue(address);
    }
    void run(SimulationTime time) { now += time; }

    ZelvarServo servo{Id, baudcode::DefaultCode};
    SimulationTime now{0};
};

struct RegisterWrite
{
    int address;
    qint32 value;
    int size;
};

/** What a servo is told in a mode, and where a register is then to be after some time. */
struct MotionCase
{
    int mode = 0;
    int inputMode = 0;
    std::vector<RegisterWrite> writes;
    int seconds = 0;
    int address = 0;
    qint32 least = 0;
    qint32 most = 0;
};

std::unique_ptr<ISimulatedServo> zelvarServo(quint8 id, quint8 baudCode = baudcode::DefaultCode)
{
    return std::make_unique<ZelvarServo>(id, baudCode);
}

template <typename... Servos>
SimulatedBus busOf(Servos... servos)
{
    SimulatedBus::Servos list;
    (list.push_back(std::move(servos)), ...);
    return SimulatedBus(std::move(list));
}

/** All that the bus answers to @p bytes, at 1 Mbit/s unless told otherwise. */
QByteArray answer(SimulatedBus &bus, const QByteArray &bytes, int baudRate = 1000000,
                  SimulationTime now = 0us)
{
    QByteArray replies;
    for (const BusReply &reply : bus.receive(bytes, baudRate, now))
        replies.append(reply.bytes);
    return replies;
}

/** An AX-12 of id 1 on a bus, asked in bytes. */
class Ax12Bench
{
public:
    QByteArray ask(quint8 instruction, const QByteArray &parameters)
    {
        return answer(bus, wire::protocol1::encode(1, instruction, parameters), 1000000, now);
    }
    /** The error bits of the reply; −1 when there is none. */
    int write(quint8 address, const QByteArray &data)
    {
        const QByteArray reply = ask(wire::Write, wire::protocol1::writeParameters(address, data));
        return reply.isEmpty() ? -1 : static_cast<quint8>(reply[4]);
    }
    int value(quint8 address, quint8 size)
    {
        const QByteArray reply = ask(wire::Read, wire::protocol1::readParameters(address, size));
        return size == 1 ? static_cast<quint8>(reply[5]) : wire::fromLittleEndian16(reply, 5);
    }

    SimulatedBus bus =
        busOf(std::unique_ptr<ISimulatedServo>(std::make_unique<Ax12Servo>(1, baudcode::DefaultCode)));
    SimulationTime now{0};
};

/** A packet that asks servo @p id for its model number. */
QByteArray ping(quint8 id)
{
    return wire::protocol2::encodeInstruction(id, wire::Ping, {});
}

} // namespace

using Probability = double FaultSettings::*;
Q_DECLARE_METATYPE(Probability)
Q_DECLARE_METATYPE(RegisterWrite)
Q_DECLARE_METATYPE(MotionCase)

class TestServoModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersInstructions_data();
    void answersInstructions();
    void judgesWrites_data();
    void judgesWrites();
    void refusedBlockChangesNothing();
    void volatileBlockPassesOverReadOnlyRegisters();
    void rebootRestoresVolatileRegisters();
    void factoryResetKeepsWhatItIsTold_data();
    void factoryResetKeepsWhatItIsTold();
    void moves_data();
    void moves();
    void profileLimitsTheWay();
    void gainsDecideWhetherItMoves();
    void coastsWhenSwitchedOff();
    void positionRunsOver();
    void motionDoesNotDependOnWhenItIsAsked();
    void staysSaneWithAnySettings();
    void overheatsAndRecovers();
    void reportsStandingErrors_data();
    void reportsStandingErrors();

    void ax12MovesToItsGoal();
    void ax12TurnsAsAWheel();
    void ax12JudgesWrites_data();
    void ax12JudgesWrites();
    void ax12AnswersAtItsStatusLevel_data();
    void ax12AnswersAtItsStatusLevel();
    void ax12ResetTakesTheFactoryId();

    void busHearsPacketsInAnySlices();
    void busAnswersAtTheServosRateOnly_data();
    void busAnswersAtTheServosRateOnly();
    void busKeepsTheFramingsApart();
    void broadcastIsCarriedOutInSilence();
    void servosWithOneIdSpoilEachOther();
    void stalledPacketIsForgotten();
    void idChangesAfterTheReply();

    void faultsRepeatForASeed();
    void faultsHappenAsOftenAsAsked();
    void faultsSpoilReplies_data();
    void faultsSpoilReplies();
    void optionsAreRead();
    void badOptionsAreRefused_data();
    void badOptionsAreRefused();
    void stateSurvives();
    void foreignFileIsNoState();
};

void TestServoModels::answersInstructions_data()
{
    QTest::addColumn<int>("instruction");
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<int>("error");
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("ping: model and firmware") << 1 << QByteArray() << 0 << hex("020115");
    QTest::newRow("read of the model number") << 2 << hex("00000200") << 0 << hex("0201");
    QTest::newRow("read across a gap") << 2 << hex("29000700") << 0 << QByteArray(7, '\0');
    QTest::newRow("read past the end") << 2 << hex("75000200") << 5 << QByteArray();
    QTest::newRow("read far outside") << 2 << hex("FFFF0100") << 5 << QByteArray();
    QTest::newRow("read of nothing") << 2 << hex("00000000") << 5 << QByteArray();
    QTest::newRow("read without a length") << 2 << hex("0000") << 5 << QByteArray();
    QTest::newRow("write without data") << 3 << hex("3000") << 5 << QByteArray();
    QTest::newRow("write past the end") << 3 << hex("750000000000") << 5 << QByteArray();
    QTest::newRow("reset without a scope") << 6 << QByteArray() << 5 << QByteArray();
    QTest::newRow("reset with an unknown scope") << 6 << hex("03") << 4 << QByteArray();
    QTest::newRow("an instruction it does not know") << 5 << QByteArray() << 2 << QByteArray();
}

void TestServoModels::answersInstructions()
{
    QFETCH(int, instruction);
    QFETCH(QByteArray, parameters);
    ZelvarBench bench;
    const wire::Packet reply = bench.ask(static_cast<quint8>(instruction), parameters);
    QCOMPARE(reply.id, Id);
    QTEST(int(reply.error), "error");
    QTEST(reply.parameters, "answer");
}

void TestServoModels::judgesWrites_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<RegisterWrite>("write");
    QTest::addColumn<int>("error");

    struct Row
    {
        const char *name;
        bool enabled;
        RegisterWrite write;
        int error;
    };
    // clang-format off
    const Row rows[] = {
        {"id at its end",                       false, {Register::Id, 253, 1},                                 0},
        {"id beyond",                           false, {Register::Id, 254, 1},                                 4},
        {"angle limit at its end",              false, {Register::ClockwiseLimit, -2047, 2},                   0},
        {"angle limit beyond",                  false, {Register::ClockwiseLimit, -2048, 2},                   4},
        {"upper byte alone, judged whole",      false, {Register::VelocityLimit + 1, 0x0A, 1},                 4},
        {"offset at its end",                   false, {Register::HomeOffset, -1044479, 4},                    0},
        {"offset beyond",                       false, {Register::HomeOffset, 1044480, 4},                     4},
        {"mode beyond",                         false, {Register::Mode, 5, 1},                                 4},
        {"non-volatile while enabled",          true,  {Register::AcknowledgeTime, 250, 1},                    7},
        {"block into them while enabled",       true,  {Register::DefaultAccelerationProfile + 1, 0, 4},       7},
        {"volatile while enabled",              true,  {Register::TargetPosition, 5, 4},                       0},
        {"velocity with direction bit",         false, {Register::TargetVelocity, Clockwise | 2000, 2},        0},
        {"velocity beyond, with direction bit", false, {Register::TargetVelocity, Clockwise | 2001, 2},        4},
        {"torque with direction bit",           false, {Register::TargetTorque, Clockwise | 18000, 2},         0},
        {"nothing but a read-only register",    false, {Register::ActualPosition, 1, 4},                       7},
    };
    // clang-format on
    for (const Row &row : rows)
        QTest::newRow(row.name) << row.enabled << row.write << row.error;
}

void TestServoModels::judgesWrites()
{
    QFETCH(bool, enabled);
    QFETCH(RegisterWrite, write);
    ZelvarBench bench;
    QCOMPARE(bench.write(Register::ControlEnable, enabled, 1), quint8(0));
    QTEST(int(bench.write(write.address, write.value, write.size)), "error");
}

void TestServoModels::refusedBlockChangesNothing()
{
    ZelvarBench bench;
    const QByteArray before = bench.ask(wire::Read, wire::protocol2::readParameters(0, 86)).parameters;
    QByteArray block = before.mid(Register::Id, 38);
    block[Register::AcknowledgeTime - Register::Id] = 10;
    block[Register::Mode - Register::Id] = 9;
    QCOMPARE(bench.write(Register::Id, block), quint8(wire::DataRangeError));
    QCOMPARE(bench.ask(wire::Read, wire::protocol2::readParameters(0, 86)).parameters, before);
}

void TestServoModels::volatileBlockPassesOverReadOnlyRegisters()
{
    ZelvarBench bench;
    const QByteArray before = bench.ask(wire::Read, wire::protocol2::readParameters(0, 118)).parameters;
    QByteArray block = before.mid(Register::ControlEnable, 60);
    // What the gaps and the read-only registers are sent must not matter.
    for (const int offset : {2, 5, 16, 24, 38, 45, 59})
        block[offset] = '\xEE';
    block[Register::PositionGain - Register::ControlEnable] = 77;
    QCOMPARE(bench.write(Register::ControlEnable, block), quint8(0));
    QByteArray expected = before;
    expected[Register::PositionGain] = 77;
    const QByteArray after = bench.ask(wire::Read, wire::protocol2::readParameters(0, 118)).parameters;
    QCOMPARE(after.left(Register::Debug1), expected.left(Register::Debug1));
}

void TestServoModels::rebootRestoresVolatileRegisters()
{
    ZelvarBench bench;
    QCOMPARE(bench.write(Register::DefaultVelocityGain, 1234, 2), quint8(0));
    QVERIFY(bench.value(Register::VelocityGain) != 1234);
    QCOMPARE(bench.write(Register::ControlEnable, 1, 1), quint8(0));
    QCOMPARE(bench.write(Register::TargetPosition, 300, 4), quint8(0));
    bench.run(200ms);

    QCOMPARE(bench.ask(wire::Reboot, {}).error, quint8(0));
    QCOMPARE(bench.value(Register::ControlEnable), 0);
    QCOMPARE(bench.value(Register::VelocityGain), 1234);
    const qint32 position = bench.value(Register::ActualPosition);
    QVERIFY(position > 0 && position < 300);
    QCOMPARE(bench.value(Register::TargetPosition), position);
}

void TestServoModels::factoryResetKeepsWhatItIsTold_data()
{
    QTest::addColumn<int>("scope");
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("baudCode");

    QTest::newRow("everything") << 0xFF << int(zelvar::FactoryId) << int(baudcode::DefaultCode);
    QTest::newRow("all but the id") << 0x01 << 9 << int(baudcode::DefaultCode);
    QTest::newRow("all but id and baud rate") << 0x02 << 9 << 34;
}

void TestServoModels::factoryResetKeepsWhatItIsTold()
{
    QFETCH(int, scope);
    ZelvarBench bench;
    bench.write(Register::Id, 9, 1);
    bench.write(Register::BaudRate, 34, 1);
    bench.write(Register::TemperatureLimit, 99, 1);
    const wire::Packet reply = bench.ask(wire::FactoryReset, QByteArray(1, static_cast<char>(scope)));
    QCOMPARE(int(reply.id), 9);
    QCOMPARE(int(reply.error), 0);
    QTEST(bench.value(Register::Id), "id");
    QTEST(bench.value(Register::BaudRate), "baudCode");
    QCOMPARE(bench.value(Register::TemperatureLimit), 70);
}

void TestServoModels::moves_data()
{
    QTest::addColumn<MotionCase>("motion");

    constexpr auto position = Register::ActualPosition;
    constexpr auto velocity = Register::ActualVelocity;
    constexpr auto current = Register::ActualCurrent;
    const RegisterWrite to1000{Register::TargetPosition, 1000, 4};
    const RegisterWrite to9000{Register::TargetPosition, 9000, 4};
    const RegisterWrite limit{Register::CounterClockwiseLimit, 1023, 2};
    const RegisterWrite offset{Register::HomeOffset, 500, 4};
    const RegisterWrite slow{Register::VelocityLimit, 800, 2};
    const RegisterWrite turn{Register::TargetVelocity, 1500, 2};
    const RegisterWrite turnBack{Register::TargetVelocity, Clockwise | 1500, 2};
    const RegisterWrite push{Register::TargetTorque, 9000, 2};
    const RegisterWrite pushBack{Register::TargetTorque, Clockwise | 9000, 2};
    const RegisterWrite pushWeakly{Register::TargetTorque, 300, 2};
    // clang-format off
    const std::pair<const char *, MotionCase> rows[] = {
        //                                                  mode input writes            s   register  least  most
        {"joint, trajectory",                               {2, 0, {to1000},              5, position,   999, 1001}},
        {"joint, position",                                 {2, 1, {to1000},              5, position,   999, 1001}},
        {"joint stops at half a turn",                      {2, 0, {to9000},              8, position,  2047, 2049}},
        {"joint stops at its limit, on the limits' scale",  {2, 0, {limit, to9000},       8, position,  1022, 1025}},
        {"joint with an offset",                            {2, 0, {offset, to1000},      5, position,   999, 1001}},
        {"multi-turn knows no limits",                      {3, 0, {to9000},             20, position,  8999, 9001}},
        {"wheel, velocity",                                 {1, 0, {turn},                3, velocity,  1490, 1510}},
        {"wheel, counter-clockwise",                        {1, 0, {turn},                3, position,  1500, 4000}},
        {"wheel, clockwise",                                {1, 0, {turnBack},            3, position, -4000, -1500}},
        {"wheel keeps the velocity limit",                  {1, 0, {slow, turn},          3, velocity,   790, 810}},
        {"torque up to the velocity limit",                 {0, 0, {slow, push},          3, velocity,   700, 800}},
        {"torque, clockwise",                               {0, 0, {pushBack},            3, position, -5000, -1500}},
        {"torque below friction",                           {0, 0, {pushWeakly},          3, position,     0, 0}},
        {"stepper stays where it is",                       {4, 0, {to1000, turn, push},  3, position,     0, 0}},
        {"stepper holds with current",                      {4, 0, {to1000, turn, push},  3, current,   1500, 1500}},
    };
    // clang-format on
    for (const auto &[name, motion] : rows)
        QTest::newRow(name) << motion;
}

void TestServoModels::moves()
{
    QFETCH(MotionCase, motion);
    ZelvarBench bench;
    bench.write(Register::Mode, motion.mode, 1);
    bench.write(Register::InputMode, motion.inputMode, 1);
    for (const RegisterWrite &write : motion.writes)
        QCOMPARE(int(bench.write(write.address, write.value, write.size) & ~wire::AlertBit), 0);
    bench.write(Register::ControlEnable, 1, 1);
    bench.run(std::chrono::seconds(motion.seconds));
    const qint32 value = bench.value(motion.address);
    QVERIFY2(value >= motion.least && value <= motion.most, qPrintable(QString::number(value)));
}

void TestServoModels::profileLimitsTheWay()
{
    ZelvarBench bench;
    bench.write(Register::VelocityProfile, 500, 2);
    bench.write(Register::AccelerationProfile, 1000, 2);
    bench.write(Register::ControlEnable, 1, 1);
    bench.write(Register::TargetPosition, 1304, 4); // 2 rad
    bench.run(250ms);
    const qint32 accelerating = bench.value(Register::ActualVelocity);
    QVERIFY2(accelerating > 200 && accelerating < 300, qPrintable(QString::number(accelerating)));
    QCOMPARE(bench.value(Register::PlannedVelocity), 250);
    bench.run(1500ms);
    const qint32 cruising = bench.value(Register::ActualVelocity);
    QVERIFY2(std::abs(cruising - 500) <= 10, qPrintable(QString::number(cruising)));
    QCOMPARE(bench.value(Register::Moving), 1);
    // 2 rad at 0.5 rad/s, and half a second at each end at half that speed.
    bench.run(2250ms);
    QCOMPARE(bench.value(Register::Moving), 1);
    bench.run(800ms);
    QCOMPARE(bench.value(Register::Moving), 0);
    QVERIFY(std::abs(bench.value(Register::ActualPosition) - 1304) <= 1);
}

void TestServoModels::gainsDecideWhetherItMoves()
{
    ZelvarBench bench;
    for (const int gain :
         {Register::PositionGain, Register::VelocityFeedforward, Register::CurrentFeedforward,
          Register::VelocityGain, Register::VelocityIntegralGain})
        bench.write(gain, 0, 2);
    bench.write(Register::ControlEnable, 1, 1);
    bench.write(Register::TargetPosition, 1000, 4);
    bench.run(3s);
    QCOMPARE(bench.value(Register::ActualPosition), 0);
    bench.write(Register::PositionGain, 200, 2);
    bench.write(Register::VelocityGain, 1000, 2);
    bench.run(3s);
    QVERIFY(bench.value(Register::ActualPosition) > 900);
}

void TestServoModels::coastsWhenSwitchedOff()
{
    ZelvarBench bench;
    bench.write(Register::Mode, 1, 1);
    bench.write(Register::ControlEnable, 1, 1);
    bench.write(Register::TargetVelocity, 1800, 2);
    bench.run(2s);
    QVERIFY(bench.servo.isActive());
    const qint32 before = bench.value(Register::ActualPosition);
    bench.write(Register::ControlEnable, 0, 1);
    bench.run(1s);
    QVERIFY(bench.value(Register::ActualPosition) > before);
    QCOMPARE(bench.value(Register::ActualVelocity), 0);
    QCOMPARE(bench.value(Register::ActualCurrent), 0);
    QVERIFY(!bench.servo.isActive());
}

void TestServoModels::positionRunsOver()
{
    ZelvarBench bench;
    bench.write(Register::Mode, 1, 1);
    bench.write(Register::HomeOffset, zelvar::MaximumPosition - 100, 4);
    bench.write(Register::ControlEnable, 1, 1);
    bench.write(Register::TargetVelocity, 1000, 2);
    bench.run(2s);
    const qint32 position = bench.value(Register::ActualPosition);
    QVERIFY2(position >= -zelvar::MaximumPosition && position < -zelvar::MaximumPosition + 2000,
             qPrintable(QString::number(position)));
    QVERIFY(std::abs(bench.value(Register::ActualVelocity) - 1000) <= 10);
}

void TestServoModels::motionDoesNotDependOnWhenItIsAsked()
{
    ZelvarBench often;
    ZelvarBench once;
    for (ZelvarBench *bench : {&often, &once}) {
        bench->write(Register::ControlEnable, 1, 1);
        bench->write(Register::TargetPosition, 800, 4);
    }
    once.run(700ms);
    for (int i = 0; i < 1000; ++i) {
        often.run(700us);
        often.servo.advance(often.now);
    }
    const QByteArray all = wire::protocol2::readParameters(0, 118);
    QCOMPARE(often.ask(wire::Read, all).parameters, once.ask(wire::Read, all).parameters);
}

void TestServoModels::staysSaneWithAnySettings()
{
    std::mt19937 random(1);
    for (int run = 0; run < 300; ++run) {
        ZelvarBench bench;
        const auto setRandomly = [&](int address) {
            bench.write(address, static_cast<qint32>(random() % 5000), 2);
        };
        bench.write(Register::Mode, static_cast<qint32>(random() % 5), 1);
        bench.write(Register::InputMode, static_cast<qint32>(random() % 2), 1);
        for (int address = Register::ClockwiseLimit; address < Register::TemperatureLimit; address += 2)
            setRandomly(address);
        for (int address = Register::TorqueLimit; address < Register::HomeOffset; address += 2)
            setRandomly(address);
        bench.write(Register::ControlEnable, 1, 1);
        for (int address = Register::PositionGain; address <= Register::AccelerationProfile; address += 2)
            setRandomly(address);
        bench.write(Register::TargetPosition, static_cast<qint32>(random() % 20000) - 10000, 4);
        bench.write(Register::TargetVelocity, static_cast<qint32>(random() % 2000) | Clockwise, 2);
        bench.write(Register::TargetTorque, static_cast<qint32>(random() % 18000), 2);
        for (int i = 0; i < 20; ++i) {
            bench.run(250ms);
            QVERIFY(bench.value(Register::ActualVelocity) <= 2400);
            QVERIFY(bench.value(Register::ActualCurrent) <= 5000);
            QVERIFY(bench.value(Register::ActualTorque) <= 18000);
            QVERIFY(bench.value(Register::ActualVoltage) >= 100 &&
                    bench.value(Register::ActualVoltage) <= 120);
            QVERIFY(bench.value(Register::ActualTemperature) >= 25);
        }
    }
}

void TestServoModels::overheatsAndRecovers()
{
    ZelvarBench bench;
    bench.write(Register::Mode, 4, 1);
    bench.write(Register::TorqueLimit, 5000, 2);
    bench.write(Register::ControlEnable, 1, 1);
    bench.run(5s);
    const qint32 warm = bench.value(Register::ActualTemperature);
    QVERIFY(warm > 26 && warm < 70);
    QVERIFY(bench.value(Register::ActualVoltage) < 120);
    for (int second = 0; second < 300 && bench.value(Register::HardwareError) == 0; ++second)
        bench.run(1s);
    QCOMPARE(bench.value(Register::HardwareError), qint32(zelvar::OverheatingError));
    QCOMPARE(bench.value(Register::ActualTemperature), 70);
    bench.run(10ms);
    QCOMPARE(bench.value(Register::ActualCurrent), 0);
    QCOMPARE(bench.ask(wire::Ping, {}).error, quint8(wire::AlertBit));
    QCOMPARE(bench.write(Register::AcknowledgeTime, 0, 1), quint8(wire::AlertBit | wire::AccessError));

    bench.write(Register::ControlEnable, 0, 1);
    bench.run(60s);
    QCOMPARE(bench.ask(wire::Ping, {}).error, quint8(0));
    bench.run(std::chrono::hours(1));
    QCOMPARE(bench.value(Register::ActualTemperature), 25);
}

void TestServoModels::reportsStandingErrors_data()
{
    QTest::addColumn<RegisterWrite>("write");
    QTest::addColumn<int>("errors");

    QTest::newRow("no error") << RegisterWrite{Register::LowerVoltageLimit, 120, 1} << 0;
    QTest::newRow("voltage too low") << RegisterWrite{Register::LowerVoltageLimit, 121, 1} << 1;
    QTest::newRow("voltage too high") << RegisterWrite{Register::UpperVoltageLimit, 119, 1} << 1;
    QTest::newRow("too hot") << RegisterWrite{Register::TemperatureLimit, 25, 1} << 4;
    QTest::newRow("target beyond an angle limit") << RegisterWrite{Register::TargetPosition, 2100, 4} << 16;
}

void TestServoModels::reportsStandingErrors()
{
    QFETCH(RegisterWrite, write);
    QFETCH(int, errors);
    ZelvarBench bench;
    bench.write(write.address, write.value, write.size);
    bench.write(Register::ControlEnable, 1, 1);
    QCOMPARE(bench.value(Register::HardwareError), errors);
    QCOMPARE(bench.ask(wire::Ping, {}).error, quint8(errors ? wire::AlertBit : 0));
}

void TestServoModels::ax12MovesToItsGoal()
{
    Ax12Bench bench;
    QCOMPARE(bench.value(36, 2), 512);
    QCOMPARE(bench.write(30, hex("20036400")), 0); // 800, at 100
    QCOMPARE(bench.value(24, 1), 1);
    bench.now += 1s;
    const int speed = bench.value(38, 2);
    QVERIFY2(std::abs(speed - 100) <= 5, qPrintable(QString::number(speed)));
    QCOMPARE(bench.value(46, 1), 1);
    bench.now += 3s;
    QVERIFY(std::abs(bench.value(36, 2) - 800) <= 1);
    QCOMPARE(bench.value(46, 1), 0);
    bench.write(30, hex("0000"));
    bench.now += 1s;
    QVERIFY(bench.value(38, 2) & 0x0400);
}

void TestServoModels::ax12TurnsAsAWheel()
{
    Ax12Bench bench;
    QCOMPARE(bench.write(8, hex("0000")), 0);
    QCOMPARE(bench.write(32, hex("C804")), 0); // 200, clockwise
    QCOMPARE(bench.write(24, hex("01")), 0);
    bench.now += 2s;
    const int speed = bench.value(38, 2);
    QVERIFY2(std::abs(speed - 0x04C8) <= 5, qPrintable(QString::number(speed)));
}

void TestServoModels::ax12JudgesWrites_data()
{
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<int>("errors");

    QTest::newRow("goal inside") << hex("1EFF03") << 0;
    QTest::newRow("goal out of range") << hex("1E0004") << int(wire::RangeErrorBit);
    QTest::newRow("id out of range") << hex("03FE") << int(wire::RangeErrorBit);
    QTest::newRow("past the end") << hex("31000000") << int(wire::RangeErrorBit);
    QTest::newRow("read-only") << hex("2400") << int(wire::RangeErrorBit);
    QTest::newRow("no data") << hex("1E") << int(wire::InstructionErrorBit);
    QTest::newRow("goal beyond the angle limit") << hex("1E6600") << int(wire::AngleLimitErrorBit);
}

void TestServoModels::ax12JudgesWrites()
{
    QFETCH(QByteArray, parameters);
    Ax12Bench bench;
    QCOMPARE(bench.write(6, hex("C800")), 0);
    const QByteArray reply = bench.ask(wire::Write, parameters);
    QTEST(int(static_cast<quint8>(reply[4])), "errors");
}

void TestServoModels::ax12AnswersAtItsStatusLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("answersRead");
    QTest::addColumn<bool>("answersWrite");

    QTest::newRow("ping only") << 0 << false << false;
    QTest::newRow("reads as well") << 1 << true << false;
    QTest::newRow("everything") << 2 << true << true;
}

void TestServoModels::ax12AnswersAtItsStatusLevel()
{
    QFETCH(int, level);
    Ax12Bench bench;
    bench.write(16, QByteArray(1, static_cast<char>(level)));
    QVERIFY(!bench.ask(wire::Ping, {}).isEmpty());
    QTEST(!bench.ask(wire::Read, hex("0003")).isEmpty(), "answersRead");
    QTEST(!bench.ask(wire::Write, hex("1901")).isEmpty(), "answersWrite");
}

void TestServoModels::ax12ResetTakesTheFactoryId()
{
    SimulatedBus bus = busOf(std::unique_ptr<ISimulatedServo>(std::make_unique<Ax12Servo>(0, 1)));
    QCOMPARE(answer(bus, hex("FFFF000206F7")), hex("FFFF000200FD"));
    QCOMPARE(answer(bus, hex("FFFF010201FB")), hex("FFFF010200FC"));
    QCOMPARE(answer(bus, hex("FFFF0104020003F5")), hex("FFFF0105000C0018D5"));
    QCOMPARE(answer(bus, hex("FFFF010208F4")), hex("FFFF010240BC")); // it knows no reboot
}

void TestServoModels::busHearsPacketsInAnySlices()
{
    const QByteArray request = hex("00FFFF") + ping(Id) + hex("FF") + ping(Id);
    for (int size = 1; size <= request.size(); ++size) {
        SimulatedBus bus = busOf(zelvarServo(Id));
        QByteArray replies;
        for (int at = 0; at < request.size(); at += size)
            replies += answer(bus, request.mid(at, size));
        QCOMPARE(replies.size(), 2 * 14);
    }
}

void TestServoModels::busAnswersAtTheServosRateOnly_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("rate");
    QTest::addColumn<bool>("answers");

    for (const auto &[code, rate] : {
             std::pair(0, 2000000),
             {1,   1000000},
             {3,   500000 },
             {4,   400000 },
             {7,   250000 },
             {9,   200000 },
             {16,  115200 },
             {34,  57600  },
             {51,  38400  },
             {103, 19200  },
             {207, 9600   }
    })
        QTest::newRow(qPrintable(QString::number(rate))) << code << rate << true;
    QTest::newRow("half the rate") << 1 << 500000 << false;
    QTest::newRow("5 % off") << 1 << 1050000 << false;
    QTest::newRow("unknown rate") << 1 << 0 << false;
}

void TestServoModels::busAnswersAtTheServosRateOnly()
{
    QFETCH(int, code);
    QFETCH(int, rate);
    SimulatedBus bus = busOf(zelvarServo(Id, static_cast<quint8>(code)));
    QTEST(!answer(bus, ping(Id), rate).isEmpty(), "answers");
}

void TestServoModels::busKeepsTheFramingsApart()
{
    const QByteArray ping1 = wire::protocol1::encode(Id, wire::Ping, {});
    SimulatedBus own = busOf(zelvarServo(Id));
    QCOMPARE(answer(own, ping1), QByteArray());
    SimulatedBus other = busOf(std::unique_ptr<ISimulatedServo>(std::make_unique<Ax12Servo>(Id, 1)));
    QCOMPARE(answer(other, ping(Id)), QByteArray());
    // The data of this write look like the beginning of a long 1.0 packet.
    const auto write = wire::protocol2::encodeInstruction(Id, wire::Write, hex("3000FFFF0380"));
    QCOMPARE(answer(other, write + ping1), wire::protocol1::encode(Id, 0, {}));
    // A reply that another servo gave, and a packet with a wrong CRC.
    QCOMPARE(answer(own, wire::protocol2::encodeStatus(Id, 0, {})), QByteArray());
    QByteArray spoilt = ping(Id);
    spoilt.back() = static_cast<char>(spoilt.back() ^ 1);
    QCOMPARE(answer(own, spoilt), QByteArray());
}

void TestServoModels::broadcastIsCarriedOutInSilence()
{
    SimulatedBus bus = busOf(zelvarServo(1), zelvarServo(2));
    const auto write = wire::protocol2::writeParameters(Register::AcknowledgeTime, hex("07"));
    QCOMPARE(answer(bus, wire::protocol2::encodeInstruction(wire::BroadcastId, wire::Write, write)),
             QByteArray());
    for (const auto &servo : bus.servos())
        QCOMPARE(servo->acknowledgeTime(), std::chrono::microseconds(14));
}

void TestServoModels::servosWithOneIdSpoilEachOther()
{
    SimulatedBus bus = busOf(zelvarServo(Id), zelvarServo(Id));
    wire::protocol2::Parser parser;
    parser.append(answer(bus, ping(Id)));
    QVERIFY(!parser.next());
}

void TestServoModels::stalledPacketIsForgotten()
{
    SimulatedBus bus = busOf(zelvarServo(Id));
    const QByteArray request = ping(Id);
    QVERIFY(answer(bus, request.left(7), 1000000, 1000ms).isEmpty());
    QVERIFY(answer(bus, request.mid(7), 1000000, 1050ms).isEmpty());
    QVERIFY(answer(bus, request.left(7), 1000000, 1100ms).isEmpty());
    QVERIFY(!answer(bus, request.mid(7), 1000000, 1105ms).isEmpty());
    // The beginning of a long packet must not swallow what follows.
    QVERIFY(answer(bus, hex("FFFFFD00037F00"), 1000000, 1200ms).isEmpty());
    QVERIFY(!answer(bus, request, 1000000, 1250ms).isEmpty());
}

void TestServoModels::idChangesAfterTheReply()
{
    SimulatedBus bus = busOf(zelvarServo(Id));
    const auto write = wire::protocol2::writeParameters(Register::Id, hex("0922"));
    QCOMPARE(answer(bus, wire::protocol2::encodeInstruction(Id, wire::Write, write)),
             wire::protocol2::encodeStatus(Id, 0, {}));
    QCOMPARE(answer(bus, ping(Id)), QByteArray());
    QVERIFY(!answer(bus, ping(9), 57600).isEmpty());
}

namespace {

QByteArray passed(FaultInjector &faults, const QByteArray &reply)
{
    QByteArray bytes;
    for (const FaultInjector::Piece &piece : faults.pass(reply))
        bytes += piece.bytes;
    return bytes;
}

const QByteArray SomeReply = hex("FFFFFD0001070055000604 26655D");

} // namespace

void TestServoModels::faultsRepeatForASeed()
{
    FaultSettings settings;
    settings.drop = settings.corrupt = settings.truncate = settings.garbage = 0.4;
    settings.chunk = true;
    const auto run = [&settings](quint32 seed) {
        FaultInjector faults(settings, seed);
        QByteArray bytes;
        for (int i = 0; i < 50; ++i)
            bytes += passed(faults, SomeReply) + '|';
        return bytes;
    };
    QCOMPARE(run(7), run(7));
    QVERIFY(run(7) != run(8));
}

void TestServoModels::faultsHappenAsOftenAsAsked()
{
    FaultSettings settings;
    settings.drop = 0.25;
    FaultInjector faults(settings, 1);
    int dropped = 0;
    for (int i = 0; i < 4000; ++i)
        dropped += passed(faults, SomeReply).isEmpty();
    QVERIFY2(std::abs(dropped - 1000) < 150, qPrintable(QString::number(dropped)));
}

void TestServoModels::faultsSpoilReplies_data()
{
    QTest::addColumn<Probability>("fault");
    QTest::addColumn<int>("leastSize");
    QTest::addColumn<int>("mostSize");

    QTest::newRow("drop") << &FaultSettings::drop << 0 << 0;
    QTest::newRow("corrupt") << &FaultSettings::corrupt << 14 << 14;
    QTest::newRow("truncate") << &FaultSettings::truncate << 1 << 13;
    QTest::newRow("garbage") << &FaultSettings::garbage << 15 << 18;
}

void TestServoModels::faultsSpoilReplies()
{
    QFETCH(Probability, fault);
    QFETCH(int, leastSize);
    QFETCH(int, mostSize);
    FaultSettings settings;
    settings.*fault = 1;
    FaultInjector faults(settings, 1);
    for (int i = 0; i < 100; ++i) {
        const QByteArray bytes = passed(faults, SomeReply);
        QVERIFY(bytes != SomeReply);
        QVERIFY(bytes.size() >= leastSize && bytes.size() <= mostSize);
    }
}

void TestServoModels::optionsAreRead()
{
    const auto defaults = SimulatorCommandLine::parse({"sim"});
    QCOMPARE(defaults.action, SimulatorCommandLine::Action::Run);
    QStringList labels;
    for (const ServoChoice &choice : defaults.options.servos)
        labels += choice.label() + '@' + QString::number(choice.baudCode);
    QCOMPARE(labels, QStringList({"zelvar:0@1", "zelvar:3@1", "zelvar:7@34", "ax12:5@1"}));

    const auto given = SimulatorCommandLine::parse(
        {"sim", "--servo", "ax12:9:9600", "--name", "b", "--pace", "--seed=5", "--fault", "drop=0.5",
         "--fault", "chunk", "--fault=delay=3", "--fault", "mute-after=4", "--link", "/l", "--state", "/s"});
    QCOMPARE(given.text, QString());
    const SimulatorOptions &options = given.options;
    QCOMPARE(int(options.servos.size()), 1);
    QCOMPARE(int(options.servos[0].baudCode), 207);
    QVERIFY(options.isPaced && options.faults.chunk && !options.faults.echo && !options.faults.vanishAfter);
    QCOMPARE(options.seed, 5u);
    QCOMPARE(options.faults.drop, 0.5);
    QCOMPARE(int(options.faults.delay.count()), 3);
    QCOMPARE(options.faults.muteAfter, std::optional<int>(4));
    QCOMPARE(options.link + options.stateFile, QStringLiteral("/l/s"));
}

void TestServoModels::badOptionsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("unknown option") << QStringList{"--bogus"};
    QTest::newRow("missing value") << QStringList{"--servo"};
    QTest::newRow("positional argument") << QStringList{"bus"};
    for (const char *servo : {"zelvar", "zelvar:", "zelvar:254", "zelvar:-1", "hydra:1", "zelvar:1:12",
                              "zelvar:1:x", "zelvar:1:57600:1", ""})
        QTest::newRow(qPrintable(QStringLiteral("servo \"%1\"").arg(servo))) << QStringList{"--servo", servo};
    for (const char *fault : {"drop", "drop=", "drop=1.5", "drop=-0.1", "drop=nan", "delay=x", "delay=-1",
                              "chunk=1", "mute-after=-1", "vanish-after=", "fire"})
        QTest::newRow(qPrintable(QStringLiteral("fault \"%1\"").arg(fault))) << QStringList{"--fault", fault};
    for (const char *name : {"", "../x", ".hidden", "a/b", "x.lock", "two words"})
        QTest::newRow(qPrintable(QStringLiteral("name \"%1\"").arg(name))) << QStringList{"--name", name};
    QTest::newRow("seed") << QStringList{"--seed", "many"};
    QTest::newRow("empty link") << QStringList{"--link", ""};
}

void TestServoModels::badOptionsAreRefused()
{
    QFETCH(QStringList, arguments);
    const auto result = SimulatorCommandLine::parse(QStringList{"sim"} + arguments);
    QCOMPARE(result.action, SimulatorCommandLine::Action::ShowError);
    QVERIFY(!result.text.isEmpty() && !result.text.contains('\n'));
}

void TestServoModels::stateSurvives()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("state.json");
    ZelvarBench first;
    ZelvarBench second;
    StateFile saved(path, {
                              {"zelvar:3", &first.servo },
                              {"zelvar:3", &second.servo}
    });
    QCOMPARE(saved.open(), QString());
    first.write(Register::HomeOffset, -12345, 4);
    second.write(Register::Id, 77, 1);
    first.write(Register::PositionGain, 999, 2);
    QCOMPARE(saved.save(), QString());

    ZelvarBench firstAgain;
    ZelvarBench secondAgain;
    StateFile restored(path, {
                                 {"zelvar:3", &firstAgain.servo },
                                 {"zelvar:3", &secondAgain.servo}
    });
    QCOMPARE(restored.open(), QString());
    QCOMPARE(firstAgain.value(Register::HomeOffset), -12345);
    QCOMPARE(firstAgain.value(Register::Id), qint32(Id));
    QCOMPARE(firstAgain.value(Register::PositionGain), 200);
    QCOMPARE(secondAgain.value(Register::Id), 77);
}

void TestServoModels::foreignFileIsNoState()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("letter.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("Dear reader") > 0);
    file.close();
    ZelvarBench bench;
    StateFile state(file.fileName(), {
                                         {"zelvar:3", &bench.servo}
    });
    QVERIFY(!state.open().isEmpty());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("Dear reader"));
}

ZELVAR_TEST_MAIN(TestServoModels)

#include "tst_servomodels.moc"
