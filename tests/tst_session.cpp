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
#include "tests/support/testenvironment.h"

using namespace std::chrono_literals;
using session::ApplyReport;
using session::State;
using Verdict = ApplyReport::Verdict;

namespace {

constexpr int TableSize = 118;
constexpr int BaudRate = 1000000;

/** Which bytes of a write a servo takes over. */
enum class Keeps { All, Nothing, FirstHalf };

/** A servo of the own family that has its own way with writes. */
struct Servo
{
    QByteArray registers = QByteArray(TableSize, '\0');
    int id = 3;
    int error = 0;            ///< error byte of its answers to writes
    bool acknowledges = true; ///< answers writes
    bool answersReads = true; ///< until the first write, at any rate
    bool refusesReads = false;
    bool isGone = false; ///< says nothing at all
    Keeps keeps = Keeps::All;
    bool moves = false; ///< to the id that is written
    bool wasWritten = false;

    QByteArray answerTo(const wire::Packet &request)
    {
        if (isGone || request.id != id || request.framing != wire::Framing::Protocol2)
            return {};
        return request.instruction == wire::Write ? answerToWrite(request.parameters)
                                                  : answerToRead(request.parameters);
    }

private:
    QByteArray answerToRead(const QByteArray &parameters) const
    {
        if (wasWritten && !answersReads)
            return {};
        if (refusesReads)
            return wire::protocol2::encodeStatus(quint8(id), wire::AccessError, {});
        const int address = wire::fromLittleEndian16(parameters, 0);
        return wire::protocol2::encodeStatus(quint8(id), 0,
                                             registers.mid(address, wire::fromLittleEndian16(parameters, 2)));
    }

    QByteArray answerToWrite(const QByteArray &parameters)
    {
        wasWritten = true;
        const QByteArray data = parameters.mid(2);
        const int kept = keeps == Keeps::All ? data.size() : keeps == Keeps::Nothing ? 0 : data.size() / 2;
        registers.replace(wire::fromLittleEndian16(parameters, 0), kept, data.left(kept));
        const auto before = quint8(id);
        if (moves)
            id = quint8(registers[3]);
        return acknowledges ? wire::protocol2::encodeStatus(before, quint8(error), {}) : QByteArray();
    }
};

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

/** One connection to a servo, up to the point where its polls would begin. */
struct Fixture
{
    Fixture()
    {
        auto ownedLine =
            std::make_unique<FakeLine>(clock, [this](const wire::Packet &request) { return servo.answerTo(request); });
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

    /** As Apply and the scheduler's next tick do. */
    void apply(int address, const QByteArray &data)
    {
        proof->expect(quint8(address), data);
        helper->writeData(3, uint8_t(address), data, {});
        Q_EMIT scheduler->writeSent(uint8_t(address), data);
        image->assumeWritten(address, data);
        runUntil([this] { return !proof->isPending(); });
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
    Servo servo;
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

/** The block of a group, with other values in some of its fields. */
struct Group
{
    const char *name;
    int address;
    int size;
    QStringList edited;
};

const Group Groups[] = {
    {"non-volatile", 3, 38, {"upper_temperature_limit", "default_acceleration_profile"}},
    {"volatile", 48, 60, {"velocity_integral_gain", "target_torque"}},
};

QByteArray blockOf(const Group &group, const QByteArray &registers)
{
    QByteArray all = registers;
    for (const QString &key : group.edited) {
        const model::Field &field = model::ZelvarV1Family[key.toLatin1()];
        all[field.address] = char(all[field.address] + 1);
    }
    return all.mid(group.address, group.size);
}

using Disturb = std::function<void(Servo &)>;

} // namespace

Q_DECLARE_METATYPE(Disturb)
Q_DECLARE_METATYPE(ApplyReport::Verdict)
Q_DECLARE_METATYPE(BusResult::Outcome)

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
        fixture.servo.refusesReads = true;
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
        using Outcome = BusResult::Outcome;
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

    void eachFaultEndsInOneStatement_data()
    {
        QTest::addColumn<Disturb>("disturb");
        QTest::addColumn<Verdict>("verdict");
        QTest::addColumn<BusResult::Outcome>("write");
        using Outcome = BusResult::Outcome;
        const auto row = [](const char *name, const Disturb &disturb, Verdict verdict, Outcome write) {
            QTest::newRow(name) << disturb << verdict << write;
        };
        row(
            "all is well", [](Servo &) {}, Verdict::Applied, Outcome::Answered);
        for (const int alert : {0, int(wire::AlertBit)}) {
            for (int error = 1; error <= 7; ++error) {
                if (error == wire::ChecksumError)
                    continue; // means a garbled packet, which is repeated
                const auto refuse = [=](Servo &servo) {
                    servo.error = error | alert;
                    servo.keeps = Keeps::Nothing;
                };
                row(qPrintable(QString("refused %1 %2").arg(error).arg(alert)), refuse, Verdict::NotApplied,
                    Outcome::Refused);
            }
        }
        row(
            "alert alone", [](Servo &servo) { servo.error = wire::AlertBit; }, Verdict::Applied, Outcome::Answered);
        row(
            "acknowledged, not kept", [](Servo &servo) { servo.keeps = Keeps::Nothing; }, Verdict::NotApplied,
            Outcome::Answered);
        row(
            "acknowledged, half kept", [](Servo &servo) { servo.keeps = Keeps::FirstHalf; }, Verdict::NotApplied,
            Outcome::Answered);
        row(
            "kept, not acknowledged", [](Servo &servo) { servo.acknowledges = false; }, Verdict::Applied,
            Outcome::NoAnswer);
        row(
            "garbled each time",
            [](Servo &servo) {
                servo.error = wire::ChecksumError;
                servo.keeps = Keeps::Nothing;
            },
            Verdict::NotApplied, Outcome::NoAnswer);
        row(
            "lost",
            [](Servo &servo) {
                servo.acknowledges = false;
                servo.keeps = Keeps::Nothing;
            },
            Verdict::NotApplied, Outcome::NoAnswer);
        row(
            "mute from here on", [](Servo &servo) { servo.acknowledges = servo.answersReads = false; },
            Verdict::Unknown, Outcome::NoAnswer);
        row(
            "acknowledged, then mute", [](Servo &servo) { servo.answersReads = false; }, Verdict::Unknown,
            Outcome::Answered);
        row(
            "vanished", [](Servo &servo) { servo.isGone = true; }, Verdict::Unknown, Outcome::NoAnswer);
    }

    void eachFaultEndsInOneStatement()
    {
        QFETCH(Disturb, disturb);
        QFETCH(Verdict, verdict);
        QFETCH(BusResult::Outcome, write);
        for (const Group &group : Groups) {
            const InRow row(group.name);
            Fixture fixture;
            fixture.servo.registers[3] = 3;
            fixture.servo.registers[4] = 1;
            fixture.connectAndRead();
            disturb(fixture.servo);
            fixture.apply(group.address, blockOf(group, fixture.servo.registers));
            QCOMPARE(fixture.reports.size(), std::size_t(1));
            const ApplyReport &report = fixture.reports.front();
            QCOMPARE(report.verdict, verdict);
            QCOMPARE(report.write.outcome, write);
            QCOMPARE(keys(report.edited), group.edited);
            QStringList others = group.edited;
            if (fixture.servo.keeps == Keeps::FirstHalf)
                others.removeFirst(); // which stands in the first half
            QCOMPARE(keys(report.others), verdict == Verdict::NotApplied ? others : QStringList());
            QCOMPARE(fixture.proof->canUndo(), verdict == Verdict::Applied);
        }
    }

    void aMovedServoIsProvedAtItsNewAddress()
    {
        for (const bool moves : {true, false}) {
            Fixture fixture;
            fixture.servo.registers[3] = 3;
            fixture.servo.registers[4] = 1;
            fixture.connectAndRead();
            fixture.servo.moves = moves;
            QByteArray block = fixture.servo.registers.mid(3, 38);
            block[0] = char(200);
            block[8] = 60; // temperature limit
            if (!moves)
                fixture.servo.keeps = Keeps::Nothing;
            fixture.apply(3, block);
            QCOMPARE(fixture.reports.size(), std::size_t(1));
            QCOMPARE(fixture.reports.front().verdict, moves ? Verdict::Applied : Verdict::NotApplied);
            const QStringList both{"id", "upper_temperature_limit"};
            QCOMPARE(keys(fixture.reports.front().others), moves ? QStringList() : both);
        }
    }

    void aBlockThatALaterOneOvertakesIsProvedWithIt()
    {
        Fixture fixture;
        fixture.connectAndRead();
        for (const char gain : {'\1', '\2'}) {
            QByteArray block = fixture.servo.registers.mid(48, 60);
            block[6] = gain;
            block[8] = 7;
            fixture.proof->expect(48, block);
            fixture.helper->writeData(3, 48, block, {});
            Q_EMIT fixture.scheduler->writeSent(48, block);
            fixture.image->assumeWritten(48, block);
        }
        fixture.runUntil([&fixture] { return !fixture.proof->isPending(); });
        QCOMPARE(fixture.reports.size(), std::size_t(1));
        QCOMPARE(fixture.reports.front().verdict, Verdict::Applied);
        const QStringList both{"position_proportional_gain", "velocity_feedforward_gain"};
        QCOMPARE(keys(fixture.reports.front().edited), both);
    }

    void whatWasNeverSentIsTold()
    {
        Fixture fixture;
        fixture.connectAndRead();
        fixture.proof->expect(48, blockOf(Groups[1], fixture.servo.registers));
        fixture.connection->end();
        QCOMPARE(fixture.reports.size(), std::size_t(1));
        QCOMPARE(fixture.reports.front().verdict, Verdict::Dropped);
    }

    // A servo that keeps any of the fields of any block: the others are named, and no more.
    void theReportNamesExactlyTheOthers()
    {
        QRandomGenerator random(12);
        for (int round = 0; round < 200; ++round) {
            const Group &group = Groups[round % 2];
            Fixture fixture;
            for (char &byte : fixture.servo.registers)
                byte = char(random.bounded(256));
            fixture.servo.registers[3] = 3;
            fixture.servo.registers[4] = 1;
            fixture.connectAndRead();
            QByteArray after = fixture.servo.registers;
            QStringList others;
            for (const model::Field &field : model::ZelvarV1Family.fields) {
                if (!field.isWritable() || field.address < group.address || field.end() > group.address + group.size)
                    continue;
                if (QString(field.key) == "id" || QString(field.key) == "baud_rate")
                    continue;
                const bool isKept = random.bounded(2);
                QByteArray wanted(field.size, '\0');
                for (char &byte : wanted)
                    byte = char(random.bounded(256));
                after.replace(field.address, field.size, wanted);
                const QByteArray before = fixture.servo.registers.mid(field.address, field.size);
                // Register 49 is the servo's own to clear.
                if (!isKept && before != wanted && field.address != 49)
                    others.append(field.key);
                m_kept[field.address] = isKept;
            }
            const QByteArray block = after.mid(group.address, group.size);
            const QByteArray before = fixture.servo.registers;
            fixture.proof->expect(quint8(group.address), block);
            fixture.servo.registers = after;
            for (const model::Field &field : model::ZelvarV1Family.fields) {
                if (m_kept.contains(field.address) && !m_kept.value(field.address))
                    fixture.servo.registers.replace(field.address, field.size, before.mid(field.address, field.size));
            }
            fixture.servo.keeps = Keeps::Nothing; // it has done so already
            fixture.helper->writeData(3, uint8_t(group.address), block, {});
            Q_EMIT fixture.scheduler->writeSent(uint8_t(group.address), block);
            fixture.runUntil([&fixture] { return !fixture.proof->isPending(); });
            QCOMPARE(fixture.reports.size(), std::size_t(1));
            QCOMPARE(keys(fixture.reports.front().others), others);
            m_kept.clear();
        }
    }

    void undoTakesBackTheFieldsOnlyAndNeverSwitchesOn()
    {
        Fixture fixture;
        fixture.servo.registers[48] = 1; // the motor
        fixture.servo.registers[56] = 77;
        fixture.connectAndRead();
        QByteArray block = fixture.servo.registers.mid(48, 60);
        block[0] = 0;
        block[6] = 5; // position gain
        fixture.apply(48, block);
        QVERIFY(fixture.proof->canUndo());
        const session::Block undo = fixture.proof->undo();
        QCOMPARE(int(undo.address), 54);
        QCOMPARE(undo.data.toHex(), QByteArray("0000"));
        fixture.image->take(54, QByteArray(1, 9), {}); // somebody else has changed it since
        QVERIFY(!fixture.proof->canUndo());
    }

private:
    QMap<int, bool> m_kept;
};

ZELVAR_TEST_MAIN(TestSession)

#include "tst_session.moc"
