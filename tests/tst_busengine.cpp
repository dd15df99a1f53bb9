// The rules of the bus, one by one, on a line in memory and a clock that is turned; and, on a real pseudo terminal,
// what only a real serial port shows.

#include "serialport/porterrors.h"
#include "serialport/zelvarserialportinterface.h"
#include "tests/support/fakeline.h"
#include "tests/support/ptypeer.h"
#include "tests/support/scriptedservo.h"
#include "tests/support/testenvironment.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

using namespace wire;
using namespace std::chrono_literals;

namespace {
using Operation = BusRequest::Operation;
using Outcome = BusResult::Outcome;
using Urgency = ServoBus::Urgency;

constexpr int BaudRate = 1000000;
constexpr quint8 ServoId = 3;

const BusRequest ReadOne{Operation::Read, ServoId, 10, 1, {}};

BusRequest writeOf(const char *data)
{
    return {Operation::Write, ServoId, 50, 0, data};
}

/** Data that the servos have in their registers: each holds its own address. */
QByteArray registers(int address, int length)
{
    QByteArray data;
    for (int i = 0; i < length; ++i)
        data.append(static_cast<char>(address + i));
    return data;
}

ScriptedServo servoSpeaking(Framing framing)
{
    ScriptedServo servo;
    servo.framing = framing;
    servo.registers = registers(0, 256);
    return servo;
}

const FakeLine::Script ZelvarServo = servoSpeaking(Framing::Protocol2);
const FakeLine::Script Ax12 = servoSpeaking(Framing::Protocol1);

/** A servo that gives @p answers, one a packet, and then the last one again and again. */
FakeLine::Script answering(const QByteArrayList &answers)
{
    return [answers, count = 0](const Packet &) mutable { return answers[qMin(count++, answers.size() - 1)]; };
}

QByteArray status(quint8 error, const QByteArray &data = {})
{
    return protocol2::encodeStatus(ServoId, error, data);
}

/** The bus and the interface with one callback, on a line with a scripted servo. */
struct Rig
{
    TurnedClock clock;
    FakeLine *line;
    std::unique_ptr<ZelvarSerialPortInterface> port;
    QByteArrayList replies; ///< to the one callback
    QStringList log;        ///< what became of requests, in order
    FakeLine::Script script;

    explicit Rig(FakeLine::Script servo = ZelvarServo) : script(std::move(servo))
    {
        auto owned = std::make_unique<FakeLine>(clock, [this](const Packet &packet) { return script(packet); });
        line = owned.get();
        port =
            std::make_unique<ZelvarSerialPortInterface>(nullptr, std::make_unique<ServoBus>(std::move(owned), clock));
        port->openSerialPort("line", BaudRate);
    }
    ServoBus &bus() const { return *port->bus(); }
    ServoBus::Ticket ask(const QString &name, const BusRequest &request, Urgency urgency = Urgency::Normal)
    {
        return bus().request(request, note(name), urgency);
    }
    ServoBus::Completion note(const QString &name)
    {
        return [this, name](const BusResult &result) {
            static const char *const Names[] = {"Answered", "Refused", "NoAnswer", "PortLost", "Withdrawn"};
            log.append(QString("%1 %2 %3").arg(name, Names[int(result.outcome)]).arg(result.attempts));
        };
    }
    std::function<void()> collect()
    {
        return [this] { replies.append(port->readPendingSerialData()); };
    }
    bool read(int address, int length) { return port->readData(ServoId, quint8(address), quint8(length), collect()); }
    bool write(int address, const QByteArray &data)
    {
        return port->writeData(ServoId, quint8(address), data, collect());
    }
    /** Lets everything happen that will happen. */
    void settle()
    {
        do {
            while (port && line->deliver()) {
            }
            QCoreApplication::processEvents();
        } while (clock.turnToNextAlarm());
    }
    /** What the servo was sent: an instruction's initial, and its first data byte if it writes. */
    QString sent() const
    {
        QString codes;
        for (const Packet &packet : line->sent) {
            codes += packet.instruction == Read ? "r" : packet.instruction == Write ? "" : "!";
            if (packet.instruction == Write)
                codes += QString::fromLatin1(packet.parameters.mid(2, 1));
        }
        return codes;
    }
};

} // namespace

/** A request, what the servo says to it, and what becomes of it. */
struct Fate
{
    const char *name;
    FakeLine::Script servo;
    BusRequest request;
    Outcome outcome;
    int error;
    QByteArray data;
    int attempts;
};

/** What a test does to the bus. */
using Deed = void (*)(Rig &);

class TestBusEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRequestHasAResult()
    {
        const BusRequest reboot{Operation::Reboot, ServoId, 0, 0, {}};
        const QByteArray ok = status(0, registers(10, 1));
        // clang-format off
        const Fate fates[] = {
            {"read",                        answering({ok}),                                   ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"read with a hardware error",  answering({status(AlertBit, "x")}),                ReadOne, Outcome::Answered, AlertBit, "x",      1},
            {"AX-12",                       Ax12,                                              ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"another servo's packet",      answering({protocol2::encodeStatus(9, 0, "x") + ok}), ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"late answer to another read", answering({status(0, "abcd") + ok}),               ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"packet with a wrong CRC",     answering({QByteArray(ok).replace(9, 1, "X") + ok}), ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"echo",                        [](const Packet &p) { return p.raw + ZelvarServo(p); }, ReadOne, Outcome::Answered, 0, registers(10, 1), 1},
            {"refused read",                answering({status(AccessError)}),                  ReadOne, Outcome::Refused, AccessError, {},   1},
            {"silence to a read",           answering({{}}),                                   ReadOne, Outcome::NoAnswer, 0, {},             3},
            {"write",                       answering({status(0)}),                            writeOf("a"), Outcome::Answered, 0, {},        1},
            {"refused write",               answering({status(DataRangeError)}),               writeOf("a"), Outcome::Refused, DataRangeError, {}, 1},
            {"silence to a write",          answering({{}}),                                   writeOf("a"), Outcome::NoAnswer, 0, {},        6},
            {"damaged write",               answering({status(ChecksumError), {}, status(0)}), writeOf("a"), Outcome::Answered, 0, {},        3},
            {"write damaged each time",     answering({status(ChecksumError)}),                writeOf("a"), Outcome::NoAnswer, ChecksumError, {}, 6},
            {"silence to a reboot",         answering({{}}),                                   reboot, Outcome::NoAnswer, 0, {},              1},
            {"damaged reboot",              answering({status(ChecksumError)}),                reboot, Outcome::Refused, ChecksumError, {},   1},
            {"AX-12 cannot reboot",         Ax12,                                              reboot, Outcome::NoAnswer, 0, {},              1},
            {"no servo's id",               ZelvarServo, {Operation::Read, BroadcastId, 0, 1, {}}, Outcome::Withdrawn, 0, {},                 0},
            {"write of nothing",            ZelvarServo, writeOf(""),                                   Outcome::Withdrawn, 0, {},            0},
            {"no operation",                ZelvarServo, {Operation(99), ServoId, 0, 1, {}},            Outcome::Withdrawn, 0, {},            0},
        };
        // clang-format on
        for (const Fate &fate : fates) {
            const InRow row(fate.name);
            Rig rig(fate.servo);
            QVector<BusResult> results;
            QSignalSpy finished(&rig.bus(), &ServoBus::requestFinished);
            rig.bus().request(fate.request, [&](const BusResult &result) { results.append(result); });
            QCOMPARE(results.size(), 0);
            rig.settle();
            QCOMPARE(results.size(), 1);
            QCOMPARE(results[0].outcome, fate.outcome);
            QCOMPARE(int(results[0].error), fate.error);
            QCOMPARE(results[0].data, fate.data);
            QCOMPARE(results[0].attempts, fate.attempts);
            QCOMPARE(finished.size(), 1);
            QVERIFY(finished[0][0].value<BusRequest>() == fate.request);
            QCOMPARE(finished[0][1].value<BusResult>().outcome, fate.outcome);
        }
    }

    void urgentRequestsGoFirst()
    {
        Rig rig(answering({{}, {}, status(0)}));
        rig.ask("a", writeOf("a"));
        rig.ask("b", writeOf("b"));
        rig.ask("stop", writeOf("s"), Urgency::Urgent);
        rig.ask("hold", writeOf("h"), Urgency::Urgent);
        rig.settle();
        QCOMPARE(rig.sent(), QString("asshb")); // what is urgent itself is repeated in spite of what is urgent
        QCOMPARE(rig.log, (QStringList{"a NoAnswer 1", "stop Answered 2", "hold Answered 1", "b Answered 1"}));
    }

    void whatIsWithdrawnIsNotSentAgain()
    {
        Rig rig(answering({{}, status(0)}));
        const auto silent = rig.ask("silent", writeOf("a"));
        const auto waiting = rig.ask("waiting", writeOf("b"));
        rig.ask("other", writeOf("c"));
        rig.bus().withdraw(silent);
        rig.bus().withdraw(waiting);
        QVERIFY(rig.log.isEmpty());
        rig.settle();
        QCOMPARE(rig.sent(), QString("ac"));
        QCOMPARE(rig.log, (QStringList{"waiting Withdrawn 0", "silent Withdrawn 1", "other Answered 1"}));
        rig.bus().withdraw(rig.ask("answered", writeOf("d")));
        rig.settle();
        QCOMPARE(rig.log.last(), QString("answered Answered 1"));
    }

    void theEndOfThePortEndsRequests()
    {
        const std::pair<const char *, Deed> rows[] = {{"Withdrawn", [](Rig &rig) { rig.bus().close(); }},
                                                      {"PortLost", [](Rig &rig) { rig.line->lose(); }}};
        for (const auto &[outcome, end] : rows) {
            const InRow row(outcome);
            Rig rig(answering({{}}));
            connect(&rig.bus(), &ServoBus::connectionLost, this, [&](const QString &text) { rig.log.append(text); });
            rig.ask("a", ReadOne);
            rig.ask("b", writeOf("b"));
            end(rig);
            rig.ask("late", ReadOne);
            QVERIFY(!rig.read(0, 1) && !rig.write(0, "a") && !rig.port->reset(ServoId, rig.collect()));
            QVERIFY(rig.log.isEmpty());
            rig.settle();
            QStringList expected{QString("a %1 1").arg(outcome), QString("b %1 0").arg(outcome), "late PortLost 0"};
            if (!rig.bus().isOpen() && QByteArray(outcome) == "PortLost")
                expected.append("lost");
            QCOMPARE(rig.log, expected);
            QCOMPARE(rig.replies.size(), 0);
            rig.port->openSerialPort("line", BaudRate);
            rig.script = ZelvarServo;
            rig.read(0, 1);
            rig.settle();
            QCOMPARE(rig.replies.size(), 1);
        }
    }

    void whoIsThereIsHeardWhoeverWasAsked()
    {
        const QByteArray model = QByteArray::fromHex("020115");
        const QByteArray three = protocol2::encodeStatus(3, 0, model);
        const QByteArray four = protocol2::encodeStatus(4, 0, model);
        const QByteArray ping1 = protocol1::encode(6, Ping, {});
        const QByteArray echo = protocol2::encodeInstruction(BroadcastId, Ping, {});
        // What each request is followed by on the line, and what is told of it: outcome, whose answers, echo, strays.
        const struct
        {
            int id;
            Framing framing;
            QByteArray reply;
            Outcome outcome;
            QString told;
        } steps[] = {
            {BroadcastId, Framing::Protocol2, echo + three + four, Outcome::Answered, "3 4 echo 0"},
            {3, Framing::Protocol2, {}, Outcome::NoAnswer, "0"},
            {4, Framing::Protocol2, three + four, Outcome::Answered, "3 4 0"}, // the one before is late
            {5, Framing::Protocol2, three.left(9), Outcome::NoAnswer, "9"},
            {6, Framing::Protocol1, ping1, Outcome::NoAnswer, "6 0"}, // may be an echo
            {6, Framing::Protocol1, protocol1::encode(6, 0, {}), Outcome::Answered, "6 0"},
            {BroadcastId, Framing::Protocol1, {}, Outcome::Withdrawn, "0"}, // all would answer at once
        };
        for (const auto &step : steps) {
            Rig rig([&step](const Packet &) { return step.reply; });
            BusRequest request{Operation::Find, quint8(step.id), 0, 0, {}, step.framing};
            request.linger = 1ms;
            BusResult found;
            rig.bus().request(request, [&found](const BusResult &result) { found = result; });
            rig.settle();
            QString told;
            for (const Packet &packet : found.heard)
                told += QString("%1 ").arg(packet.id);
            told += QString(found.hasEcho ? "echo %1" : "%1").arg(found.strayBytes);
            QCOMPARE(told, step.told);
            QCOMPARE(found.outcome, step.outcome);
            QVERIFY(rig.line->sent.size() <= 1);
        }
        // What comes between two of them counts, too.
        Rig rig([](const Packet &) { return QByteArray(); });
        rig.line->arrive(three);
        rig.line->deliver();
        QString heard;
        rig.bus().request({Operation::Find, 4, 0, 0, {}}, [&](const BusResult &result) {
            for (const Packet &packet : result.heard)
                heard += QString::number(packet.id);
        });
        rig.settle();
        QCOMPARE(heard, QString("3"));
    }

    void aCompletionMayDoAnything()
    {
        const std::pair<const char *, Deed> deeds[] = {
            {"destroy the bus", [](Rig &rig) { rig.port.reset(); }},
            {"close", [](Rig &rig) { rig.bus().close(); }},
            {"reopen", [](Rig &rig) { rig.bus().open("line", BaudRate); }},
            {"ask", [](Rig &rig) { rig.ask("asked", ReadOne); }},
            {"carry out", [](Rig &rig) { rig.bus().carryOut(ReadOne, rig.note("asked")); }},
        };
        for (const auto &[name, deed] : deeds) {
            for (int way = 0; way < 8; ++way) {
                const InRow row(QString("%1, %2").arg(name).arg(way));
                const bool inSlot = way & 1;
                const bool isCarriedOut = way & 2;
                bool isDone = false;
                Rig rig(way & 4 ? FakeLine::Script(ZelvarServo) : answering({{}}));
                const auto act = [&, deed = deed] {
                    if (!std::exchange(isDone, true))
                        deed(rig);
                };
                if (inSlot)
                    connect(&rig.bus(), &ServoBus::requestFinished, this, act);
                rig.bus().request(ReadOne, [&](const BusResult &result) {
                    rig.note("acting")(result);
                    if (!inSlot)
                        act();
                });
                rig.ask("waiting", writeOf("a"));
                if (isCarriedOut)
                    rig.bus().carryOut(writeOf("b"), rig.note("carried"));
                rig.settle();
                for (const char *once : {"acting", "waiting", isCarriedOut ? "carried" : "acting"})
                    QCOMPARE(rig.log.filter(once).size(), 1);
            }
        }
    }

    void readsJoinAndTakeEachOthersPlace()
    {
        Rig rig;
        int earlier = 0;
        rig.port->readData(ServoId, 0, 8, [&] { ++earlier; });
        for (int i = 0; i < 10; ++i) {
            rig.read(0, 9);
            rig.read(0, 8);
        }
        rig.settle();
        QCOMPARE(rig.sent(), QString("r"));
        QCOMPARE(earlier, 0);
        for (const int address : {10, 20, 30})
            rig.read(address, 1);
        rig.settle();
        QCOMPARE(rig.sent(), QString("rrr")); // of these the one under way and the newest
        QCOMPARE(rig.replies.size(), 2);
        QCOMPARE(rig.replies[0].mid(9, 8), registers(0, 8));
        QCOMPARE(rig.replies[1].mid(9, 1), registers(30, 1));
        rig.read(10, 1);
        rig.write(50, "a");
        rig.read(20, 1);
        QVERIFY(rig.port->reboot(ServoId, rig.collect()));
        QCOMPARE(rig.sent(), QString("rrrra!")); // nobody would have got the second read's reply
        QCOMPARE(rig.replies.size(), 3);
    }

    void writesKeepTheirOrderAndReadsSeeThem()
    {
        Rig rig;
        rig.read(0, 4);
        rig.write(50, "a");
        rig.read(0, 4); // must not be answered by the read that went out before the write
        rig.write(60, "b");
        rig.write(50, "c");
        rig.read(0, 4);
        rig.settle();
        QCOMPARE(rig.replies.size(), 1); // the newest request's only
        QCOMPARE(rig.sent(), QString("rabcr"));
        rig.read(0, 4);
        rig.ask("another user's read", {Operation::Read, ServoId, 0, 4, {}}); // equal, and not joined
        rig.ask("another user's write", writeOf("d"));
        rig.read(0, 4);
        rig.settle();
        QCOMPARE(rig.sent(), QString("rabcrrrdr"));
        QCOMPARE(rig.log, (QStringList{"another user's read Answered 1", "another user's write Answered 1"}));
        QCOMPARE(rig.replies.size(), 2);
    }

    void theNewestRequestDecidesAboutRepeats()
    {
        Rig rig(answering({{}}));
        rig.read(0, 4);
        rig.write(50, "a"); // goes out in spite of the silence, and is given up after six times
        rig.write(50, "b");
        rig.settle();
        QCOMPARE(rig.sent(), QString("rr"
                                     "aaaaaa"
                                     "bbbbbb"));              // the read once, in both framings
        for (const Packet &packet : qAsConst(rig.line->sent)) // no write is sent in a guessed framing
            QVERIFY(packet.instruction != Write || packet.framing == Framing::Protocol2);
        rig.script = answering({status(DataRangeError)});
        rig.write(50, "c");
        rig.settle();
        QCOMPARE(rig.replies, QByteArrayList{protocol1::encode(ServoId, DataRangeError, {})});
        rig.read(0, 4); // refused: nothing is handed over
        rig.settle();
        QCOMPARE(rig.replies.size(), 1);
    }

    // A line that holds answers back a little longer than they are waited for: none may be thrown away for ever.
    void anAnswerCountsWhileTheLineIsDrained()
    {
        for (const bool isDeliveredInTime : {true, false}) { // or is found when the silence should be over
            Rig rig(answering({status(0, "x"), {}}));
            rig.bus().request(ReadOne, {}); // tells the framing
            rig.settle();
            rig.ask("read", ReadOne);
            QVERIFY(rig.clock.turnToNextAlarm()); // the attempt has failed
            rig.line->arrive(status(0, "x"));
            QVERIFY(isDeliveredInTime || rig.clock.turnToNextAlarm());
            rig.settle();
            QCOMPARE(rig.log, QStringList{"read Answered 1"});
            QCOMPARE(rig.sent(), QString("rr"));
        }
    }

    void repeatsGoOutOnASilentLine()
    {
        Rig rig(answering({status(ChecksumError), status(0)}));
        rig.write(50, "a");
        rig.line->deliver();
        rig.clock.turn(2ms);
        rig.line->arrive("noise");
        rig.line->deliver();
        rig.clock.turn(2ms);
        QCOMPARE(rig.sent(), QString("a"));
        rig.clock.turn(1ms);
        QCOMPARE(rig.sent(), QString("aa"));
        rig.settle();
        QCOMPARE(rig.replies.size(), 1);
    }

    void theFramingIsFoundOutOnceAndRemembered()
    {
        Rig rig(Ax12);
        const auto framings = [&] {
            rig.settle();
            QString digits;
            for (const Packet &packet : qAsConst(rig.line->sent))
                digits += packet.framing == Framing::Protocol1 ? "1" : "2";
            return digits;
        };
        rig.read(0, 3);
        QCOMPARE(framings(), QString("21"));
        QCOMPARE(rig.replies[0].mid(5, 2), registers(0, 2));
        rig.read(0, 3);
        rig.write(24, "a");
        QCOMPARE(framings(), QString("2111"));
        rig.port->openSerialPort("line", BaudRate); // another session: it may be another servo
        rig.read(0, 3);
        QCOMPARE(framings(), QString("211121"));
    }

    void rebootAndResetRunToTheEndInsideTheCall()
    {
        // clang-format off
        const std::tuple<const char *, bool, FakeLine::Script, int, int> rows[] = {
            {"reboot",                           false, answering({status(AlertBit)}), 1, 1}, // no failure of the command
            {"reset",                            true,  answering({status(0)}),        1, 1},
            {"reset of an AX-12",                true,  Ax12,                          1, 2},
            {"reboot of an AX-12, which cannot", false, Ax12,                          0, 1},
        };
        // clang-format on
        for (const auto &[name, isReset, servo, replies, packets] : rows) {
            const InRow row(name);
            Rig rig(servo);
            const auto begin = rig.clock.now();
            QVERIFY(isReset ? rig.port->reset(ServoId, rig.collect()) : rig.port->reboot(ServoId, rig.collect()));
            rig.port->closeSerialPort();
            QCOMPARE(rig.replies.join(), protocol1::encode(ServoId, 0, {}).repeated(replies));
            QCOMPARE(rig.line->sent.size(), packets);
            QVERIFY(rig.clock.now() - begin <= 300ms);
            if (isReset)
                QCOMPARE(rig.line->sent[0].parameters, QByteArray(1, char(ResetAllButIdAndBaudRate)));
        }
    }

    // From here on with a real serial port.

    void aStaleAnswerInTheSystemIsThrownAway()
    {
        PtyPeer peer([](const Packet &) { return QByteArray(); });
        ServoBus bus;
        QCOMPARE(bus.open(peer.path(), BaudRate), QString());
        peer.send(status(0));
        const int descriptor = ::open(peer.path().toLocal8Bit(), O_RDONLY | O_NOCTTY);
        pollfd arrival{descriptor, POLLIN, 0};
        QCOMPARE(::poll(&arrival, 1, -1), 1);
        ::close(descriptor);
        BusResult result;
        QVERIFY(bus.carryOut(writeOf("a"), [&](const BusResult &r) { result = r; }));
        QCOMPARE(result.outcome, Outcome::NoAnswer);
    }

    void aCallbackMayDestroyTheInterface()
    {
        PtyPeer peer(ZelvarServo);
        auto port = std::make_unique<ZelvarSerialPortInterface>(nullptr, 2);
        QCOMPARE(port->openSerialPort(peer.path(), BaudRate), QString());
        QPointer<QObject> device; // which calls back, and goes on when that is over
        for (QObject *child : port->bus()->children()) {
            if (child->inherits("QSerialPort"))
                device = child;
        }
        bool isOutlived = false;
        port->readData(ServoId, 0, 8, [&] {
            port.reset();
            isOutlived = device;
        });
        QTRY_VERIFY(!port);
        QVERIFY(isOutlived);
        QTRY_VERIFY(!device);
    }

    void aLostPortIsReportedOnce()
    {
        PtyPeer peer(ZelvarServo);
        ZelvarSerialPortInterface port(nullptr, 2);
        QCOMPARE(port.openSerialPort(peer.path(), BaudRate), QString());
        QSignalSpy lost(&port, &ZelvarSerialPortInterface::connectionLost);
        port.readData(ServoId, 0, 118, [] {});
        peer.hangUp();
        port.writeData(ServoId, 50, "a", [] {}); // some systems notice only when something is sent
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(lost[0][0].toString().contains(peer.path()) && lost[0][0].toString().contains("cable"));
        QVERIFY(!port.readData(ServoId, 0, 1, [] {}));
        QCoreApplication::processEvents();
        QCOMPARE(lost.size(), 1);
    }

    void onlyAnotherReaderIsAnotherReader()
    {
        PtyPeer peer(ZelvarServo);
        // Told of bytes before the bus is, which finds none when its turn comes.
        const int descriptor = ::open(peer.path().toLocal8Bit(), O_RDONLY | O_NOCTTY);
        QSocketNotifier arrival(descriptor, QSocketNotifier::Read);
        ServoBus bus;
        QCOMPARE(bus.open(peer.path(), BaudRate), QString());
        QSignalSpy lost(&bus, &ServoBus::connectionLost);
        int calls = 0;
        connect(&arrival, &QSocketNotifier::activated, this, [&] {
            ++calls;
            bus.carryOut(ReadOne, nullptr); // takes what is there before it asks
        });
        peer.send("noise");
        QTRY_COMPARE(calls, 1);
        QCoreApplication::processEvents();
        QVERIFY(bus.isOpen());

        arrival.disconnect();
        connect(&arrival, &QSocketNotifier::activated, this, [&] {
            char stolen[16];
            QVERIFY(::read(descriptor, stolen, sizeof stolen) > 0);
        });
        peer.send("noise");
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(lost[0][0].toString().contains("Another program reads"));
        ::close(descriptor);
    }

    void openingSaysWhatToDo()
    {
        PtyPeer peer(ZelvarServo);
        ZelvarSerialPortInterface first(nullptr, 2);
        ZelvarSerialPortInterface second(nullptr, 2);
        QCOMPARE(first.openSerialPort(peer.path(), BaudRate), QString());
        QVERIFY(second.openSerialPort({}, BaudRate).contains("No serial port is chosen"));
        QVERIFY(second.openSerialPort("ttyNotThere7", BaudRate).contains("was not found"));
        QVERIFY(second.openSerialPort("/dev/null", BaudRate).contains("could not be opened"));
        QVERIFY(second.openSerialPort("ttyNotThere7", 0).contains("refuses the baud rate 0"));
        QVERIFY(second.openSerialPort(peer.path(), BaudRate).contains("in use by another program"));
        bool isAnswered = false; // and the one that uses it is not disturbed
        first.bus()->carryOut(ReadOne, [&](const BusResult &r) { isAnswered = r.outcome == Outcome::Answered; });
        QVERIFY(isAnswered);

        const auto open = QFileDevice::ReadGroup | QFileDevice::WriteGroup;
        QVERIFY(PortErrors::noPermission("one", "dialout", open).contains("group \"dialout\""));
        for (const auto &[group, permissions] :
             {std::pair("root", open), {"tty", QFileDevice::WriteGroup | QFileDevice::WriteOwner}, {"", open}})
            QVERIFY(PortErrors::noPermission("one", group, permissions).contains("70-zelvar-servo-manager.rules"));
    }
};

ZELVAR_TEST_MAIN(TestBusEngine)
#include "tst_busengine.moc"
