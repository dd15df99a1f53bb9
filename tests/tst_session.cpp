// The rules of one connection, on a line in memory and a clock that is turned: its states, how well the polls get
// through, and what is told of each block that was applied.

#include "link/ipolltarget.h"
#include "link/serialhelper.h"
#include "link/uischeduler.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "serialport/servobus.h"
#include "serialport/zelvarserialportinterface.h"
#include "session/applyproof.h"
#include "session/connection.h"
#include "tests/support/fakeline.h"
#include "tests/support/scriptedservo.h"
#include "tests/support/testenvironment.h"

using namespace std::chrono_literals;
using session::ApplyReport;
using session::State;
using Keeps = ScriptedServo::Keeps;
using Outcome = BusResult::Outcome;
using Verdict = ApplyReport::Verdict;

namespace {

constexpr int TableSize = 118;
constexpr int BaudRate = 1000000;

class NoTarget : public IPollTarget
{
public:
    const RegisterBindings &registerBindings() const override { return m_bindings; }
    quint8 readLength() const override { return TableSize; }
    void updateRegister(quint16, quint8, quint32) override {}
    void updateStatus(qint8) override {}

private:
    RegisterBindings m_bindings{{0, std::make_shared<RegisterItemHelper>(RegisterItemHelper{120, [](qint32) {}})}};
};

/** The block of a group, with other values in some of its fields. */
struct Group
{
    const char *name;
    quint8 address;
    int size;
    QStringList edited;
};

const Group NonVolatile{"non-volatile", 3, 38, {"upper_temperature_limit", "default_acceleration_profile"}};
const Group Volatile{"volatile", 48, 60, {"velocity_integral_gain", "target_torque"}};

/** One connection to a servo, up to the point where its polls would begin. */
struct Fixture
{
    Fixture()
    {
        servo.registers = QByteArray(TableSize, '\0');
        servo.registers.replace(3, 2, QByteArray("\3\1", 2)); // id and baud rate
        auto ownedLine =
            std::make_unique<FakeLine>(clock, [this](const wire::Packet &request) { return servo(request); });
        line = ownedLine.get();
        auto ownedBus = std::make_unique<ServoBus>(std::move(ownedLine), clock);
        helper =
            std::make_shared<SerialHelper>(std::make_shared<ZelvarSerialPortInterface>(nullptr, std::move(ownedBus)));
        image = std::make_shared<model::RegisterImage>();
        connection = std::make_unique<session::Connection>(image, helper->bus(), clock);
        proof = std::make_unique<session::ApplyProof>(*connection, *helper->bus(), image, clock);
        scheduler = std::make_unique<UiScheduler>(uint8_t(3), helper, target, nullptr);
        QObject::connect(connection.get(), &session::Connection::stateChanged, connection.get(),
                         [this](State state) { states.append(state); });
        QObject::connect(proof.get(), &session::ApplyProof::reported, connection.get(),
                         [this](const ApplyReport &report) { reports.push_back(report); });
        helper->openSerialPort("line", BaudRate);
    }

    void connectAndRead()
    {
        connection->begin({3, BaudRate});
        connection->follow(*scheduler, model::ZelvarV1Family, 500);
        image->take(0, servo.registers, clock.now());
        states.clear();
    }

    QByteArray registers(const Group &group) const { return servo.registers.mid(group.address, group.size); }
    /** As Apply and the scheduler's next tick do. */
    void send(const Group &group, const QByteArray &data)
    {
        proof->expect(group.address, data);
        helper->writeData(3, group.address, data, {});
        Q_EMIT scheduler->writeSent(group.address, data);
        image->assumeWritten(group.address, data);
    }
    /** @return what is told of it. */
    ApplyReport apply(const Group &group, const QByteArray &data)
    {
        send(group, data);
        return awaitReport();
    }
    ApplyReport awaitReport()
    {
        runUntil([this] { return !proof->isPending(); });
        return reports.size() == 1 ? reports.front() : ApplyReport();
    }

    void poll()
    {
        bool isOver = false;
        const auto end = [&isOver] { isOver = true; };
        const auto once = QObject::connect(helper->bus(), &ServoBus::requestFinished, end);
        helper->readData(3, 0, TableSize, [](const QByteArray &) {});
        runUntil([&isOver] { return isOver; });
        QObject::disconnect(once);
    }

    template <class Condition>
    void runUntil(Condition isMet)
    {
        for (int step = 0; step < 1000 && !isMet(); ++step) {
            const bool isDelivered = line->deliver();
            QCoreApplication::processEvents();
            if (!isDelivered && !isMet())
                clock.turnToNextAlarm();
        }
    }

    TurnedClock clock;
    ScriptedServo servo;
    NoTarget target;
    FakeLine *line = nullptr;
    std::shared_ptr<SerialHelper> helper;
    std::shared_ptr<model::RegisterImage> image;
    std::unique_ptr<session::Connection> connection;
    std::unique_ptr<session::ApplyProof> proof;
    std::unique_ptr<UiScheduler> scheduler;
    QVector<State> states;
    std::vector<ApplyReport> reports;
};

QStringList keys(const std::vector<session::AppliedField> &fields)
{
    QStringList names;
    for (const session::AppliedField &field : fields)
        names.append(field.field->key);
    return names;
}

QByteArray blockOf(const Group &group, const QByteArray &registers)
{
    QByteArray all = registers;
    for (const QString &key : group.edited) {
        const model::Field &field = model::ZelvarV1Family[key.toLatin1()];
        all[field.address] = char(all[field.address] + 1);
    }
    return all.mid(group.address, group.size);
}

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void states()
    {
        Fixture fixture;
        fixture.connectAndRead();
        const auto answer = [&fixture] { Q_EMIT fixture.scheduler->replyReceived(); };
        fixture.clock.turn(1499ms); // three intervals of 500 ms
        QCOMPARE(fixture.states, {});
        answer();
        fixture.clock.turn(1500ms);
        QCOMPARE(fixture.states, {State::Silent});
        answer();
        fixture.servo.readError = wire::AccessError;
        fixture.poll();
        fixture.clock.turn(1400ms);
        fixture.poll(); // it is there, so that this is no silence
        fixture.clock.turn(1400ms);
        const QVector<State> untilRefused{State::Silent, State::Connected, State::Refusing};
        QCOMPARE(fixture.states, untilRefused);
        answer();
        Q_EMIT fixture.scheduler->writeSent(3, QByteArray::fromHex("c801")); // id 200, the same baud rate
        QCOMPARE(fixture.connection->servoAddress().id, 200);
        fixture.clock.turn(10s); // and no word of silence
        answer();
        QCOMPARE(fixture.connection->servoAddress().id, 3);
        fixture.connection->portClosed();
        fixture.connection->end();
        fixture.clock.turn(10s);
        const QVector<State> untilEnd{State::Connected, State::Moved, State::Connected, State::PortClosed,
                                      State::Disconnected};
        QCOMPARE(fixture.states.mid(3), untilEnd);
    }

    void nobodyIsAskedForEachSecond()
    {
        Fixture fixture;
        QSignalSpy due(fixture.connection.get(), &session::Connection::identificationDue);
        fixture.connection->begin({200, BaudRate});
        fixture.clock.turn(999ms);
        QCOMPARE(fixture.connection->state(), State::Identifying);
        fixture.clock.turn(1ms);
        QCOMPARE(fixture.connection->state(), State::Unanswered);
        fixture.clock.turn(5s);
        QCOMPARE(due.size(), 6);
        fixture.connection->end();
        fixture.clock.turn(5s);
        QCOMPARE(due.size(), 6);
    }

    void linkQuality()
    {
        session::LinkQuality quality;
        session::LinkQuality::TimePoint now;
        const auto add = [&](int count, BusResult::Outcome outcome, int attempts) {
            for (int i = 0; i < count; ++i) {
                BusResult result;
                result.outcome = outcome;
                result.attempts = attempts;
                quality.add(result, now += 10ms);
            }
        };
        add(200, Outcome::Answered, 1);
        QVERIFY(!quality.isWeak());
        QCOMPARE(qRound(quality.pollsPerSecond()), 100);
        add(2, Outcome::Answered, 2);
        QVERIFY(!quality.isWeak()); // 98 %
        add(1, Outcome::NoAnswer, 3);
        QVERIFY(quality.isWeak());
        QCOMPARE(quality.shares().atOnce, 97);
        QCOMPARE(quality.shares().repeated, 2);
        QCOMPARE(quality.shares().lost, 1);
        add(5, Outcome::Withdrawn, 1); // says nothing
        add(99, Outcome::Answered, 1);
        QVERIFY(quality.isWeak()); // one of the last hundred was lost
        add(1, Outcome::Answered, 1);
        QVERIFY(!quality.isWeak());
    }

    void eachFaultEndsInOneStatement()
    {
        struct Fault
        {
            const char *name;
            int error; ///< that the servo acknowledges the write with
            Keeps keeps;
            const char *silence; ///< what it does not answer
            Verdict verdict;
            Outcome write;
        };
        // clang-format off
        std::vector<Fault> faults{
            {"all is well",             0,                   Keeps::All,       "",            Verdict::Applied,    Outcome::Answered},
            {"alert alone",             wire::AlertBit,      Keeps::All,       "",            Verdict::Applied,    Outcome::Answered},
            {"acknowledged, not kept",  0,                   Keeps::Nothing,   "",            Verdict::NotApplied, Outcome::Answered},
            {"acknowledged, half kept", 0,                   Keeps::FirstHalf, "",            Verdict::NotApplied, Outcome::Answered},
            {"kept, not acknowledged",  0,                   Keeps::All,       "writes",      Verdict::Applied,    Outcome::NoAnswer},
            {"garbled each time",       wire::ChecksumError, Keeps::Nothing,   "",            Verdict::NotApplied, Outcome::NoAnswer},
            {"lost",                    0,                   Keeps::Nothing,   "writes",      Verdict::NotApplied, Outcome::NoAnswer},
            {"mute from here on",       0,                   Keeps::All,       "writes reads", Verdict::Unknown,   Outcome::NoAnswer},
            {"acknowledged, then mute", 0,                   Keeps::All,       "reads",       Verdict::Unknown,    Outcome::Answered},
            {"vanished",                0,                   Keeps::Nothing,   "writes reads", Verdict::Unknown,   Outcome::NoAnswer},
        };
        // clang-format on
        for (const int error : {1, 2, 4, 5, 6, 7}) { // without the one of a garbled packet, which is repeated
            for (const int alert : {0, int(wire::AlertBit)})
                faults.push_back({"refused", error | alert, Keeps::Nothing, "", Verdict::NotApplied, Outcome::Refused});
        }
        for (const Fault &fault : faults) {
            for (const Group &group : {NonVolatile, Volatile}) {
                const InRow row(QString("%1 %2, %3").arg(fault.name).arg(fault.error).arg(group.name));
                Fixture fixture;
                fixture.connectAndRead();
                fixture.servo.writeError = fault.error;
                fixture.servo.keeps = fault.keeps;
                fixture.servo.answersWrites = !QByteArray(fault.silence).contains("writes");
                fixture.servo.answersReads = !QByteArray(fault.silence).contains("reads");
                const ApplyReport report = fixture.apply(group, blockOf(group, fixture.servo.registers));
                QCOMPARE(report.verdict, fault.verdict);
                QCOMPARE(report.write.outcome, fault.write);
                QCOMPARE(keys(report.edited), group.edited);
                QStringList others = group.edited;
                if (fault.keeps == Keeps::FirstHalf)
                    others.removeFirst(); // which stands in the first half
                QCOMPARE(keys(report.others), fault.verdict == Verdict::NotApplied ? others : QStringList());
                QCOMPARE(fixture.proof->canUndo(), fault.verdict == Verdict::Applied);
            }
        }
    }

    void aMovedServoIsProvedAtItsNewAddress()
    {
        for (const bool moves : {true, false}) {
            Fixture fixture;
            fixture.connectAndRead();
            fixture.servo.idRegister = 3;
            fixture.servo.keeps = moves ? Keeps::All : Keeps::Nothing;
            QByteArray block = fixture.registers(NonVolatile);
            block[0] = char(200);
            block[8] = 60; // temperature limit
            const ApplyReport report = fixture.apply(NonVolatile, block);
            QCOMPARE(report.verdict, moves ? Verdict::Applied : Verdict::NotApplied);
            const QStringList both{"id", "upper_temperature_limit"};
            QCOMPARE(keys(report.others), moves ? QStringList() : both);
        }
    }

    void aBlockThatALaterOneOvertakesIsProvedWithIt()
    {
        Fixture fixture;
        fixture.connectAndRead();
        for (const char gain : {'\1', '\2'}) {
            QByteArray block = fixture.registers(Volatile);
            block[6] = gain;
            block[8] = 7;
            fixture.send(Volatile, block);
        }
        const ApplyReport report = fixture.awaitReport();
        QCOMPARE(report.verdict, Verdict::Applied);
        const QStringList both{"position_proportional_gain", "velocity_feedforward_gain"};
        QCOMPARE(keys(report.edited), both);
    }

    void whatIsOnItsWayIsToldUntilTheNextConnection()
    {
        for (const bool isConnectedAnew : {false, true}) {
            Fixture fixture;
            fixture.connectAndRead();
            fixture.send(Volatile, blockOf(Volatile, fixture.servo.registers));
            fixture.runUntil([&] { return fixture.line->sent.size() == 2; }); // the read that proves it
            fixture.connection->end();
            if (isConnectedAnew)
                fixture.connection->begin({3, BaudRate});
            fixture.runUntil([] { return false; });
            QCOMPARE(fixture.reports.size(), std::size_t(isConnectedAnew ? 0 : 1));
        }
    }

    void whatWasNeverSentIsTold()
    {
        Fixture fixture;
        fixture.connectAndRead();
        fixture.proof->expect(48, blockOf(Volatile, fixture.servo.registers));
        fixture.connection->end();
        QCOMPARE(fixture.reports.size(), std::size_t(1));
        QCOMPARE(fixture.reports.front().verdict, Verdict::Dropped);
    }

    // A servo that keeps any of the fields of any block: the others are named, and no more.
    void theReportNamesExactlyTheOthers()
    {
        QRandomGenerator random(12);
        const auto randomBytes = [&random](int size) {
            QByteArray bytes(size, '\0');
            for (char &byte : bytes)
                byte = char(random.bounded(256));
            return bytes;
        };
        for (int round = 0; round < 200; ++round) {
            const Group &group = round % 2 ? Volatile : NonVolatile;
            Fixture fixture;
            fixture.servo.registers = randomBytes(TableSize).replace(3, 2, fixture.servo.registers.mid(3, 2));
            fixture.connectAndRead();
            const QByteArray before = fixture.servo.registers;
            QByteArray asked = before;
            QByteArray kept = before;
            QStringList others;
            for (const model::Field &field : model::ZelvarV1Family.fields) {
                const bool isInGroup = field.address >= group.address && field.end() <= group.address + group.size;
                if (!field.isWritable() || !isInGroup || field.address < 5) // id and baud rate
                    continue;
                const QByteArray wanted = randomBytes(field.size);
                asked.replace(field.address, field.size, wanted);
                if (random.bounded(2))
                    kept.replace(field.address, field.size, wanted);
                // Register 49 is the servo's own to clear.
                else if (before.mid(field.address, field.size) != wanted && field.address != 49)
                    others.append(field.key);
            }
            fixture.servo.registers = kept;
            fixture.servo.keeps = Keeps::Nothing; // it has done so already
            QCOMPARE(keys(fixture.apply(group, asked.mid(group.address, group.size)).others), others);
        }
    }

    void undoTakesBackTheFieldsOnlyAndNeverSwitchesOn()
    {
        Fixture fixture;
        fixture.servo.registers[48] = 1; // the motor
        fixture.servo.registers[56] = 77;
        fixture.connectAndRead();
        QByteArray block = fixture.registers(Volatile);
        block[0] = 0;
        block[6] = 5; // position gain
        fixture.apply(Volatile, block);
        QVERIFY(fixture.proof->canUndo());
        const session::Block undo = fixture.proof->undo();
        QCOMPARE(int(undo.address), 54);
        QCOMPARE(undo.data.toHex(), QByteArray("0000"));
        fixture.image->take(54, QByteArray(1, 9), {}); // somebody else has changed it since
        QVERIFY(!fixture.proof->canUndo());
    }
};

ZELVAR_TEST_MAIN(TestSession)

#include "tst_session.moc"
