// The rules of the bus, one by one, through the exported interface on a real pseudo terminal with a scripted servo.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/zelvarserialportinterface.h"
#include "tests/support/ptypeer.h"
#include "tests/support/testenvironment.h"

#include <QSignalSpy>

using namespace wire;

namespace {
constexpr int BaudRate = 1000000;
constexpr quint8 ServoId = 3;

/** Data that a scripted servo has in its registers: each holds its own address. */
QByteArray registers(int address, int length)
{
    QByteArray data;
    for (int i = 0; i < length; ++i)
        data.append(static_cast<char>(address + i));
    return data;
}

/** A servo of the own family that does what it is told. */
QByteArray zelvarServo(const Packet &instruction)
{
    if (instruction.framing != Framing::Protocol2 || instruction.instruction == Status)
        return {};
    if (instruction.instruction != Read)
        return protocol2::encodeStatus(instruction.id, 0, {});
    return protocol2::encodeStatus(instruction.id, 0,
                                   registers(fromLittleEndian16(instruction.parameters, 0),
                                             fromLittleEndian16(instruction.parameters, 2)));
}

QByteArray ax12(const Packet &instruction)
{
    if (instruction.framing != Framing::Protocol1)
        return {};
    if (instruction.instruction != Read)
        return protocol1::encode(instruction.id, 0, {});
    return protocol1::encode(instruction.id, 0,
                             registers(quint8(instruction.parameters[0]), quint8(instruction.parameters[1])));
}

/** What a test sees of one request: its replies, in order. */
struct Client
{
    ZelvarSerialPortInterface port{nullptr, 2};
    QList<QByteArray> replies;

    explicit Client(const PtyPeer &peer)
    {
        const QString error = port.openSerialPort(peer.path(), BaudRate);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
    }
    std::function<void()> collect()
    {
        return [this] { replies.append(port.readPendingSerialData()); };
    }
    bool read(int address, int length)
    {
        return port.readData(ServoId, quint8(address), quint8(length), collect());
    }
    bool write(int address, const QByteArray &data)
    {
        return port.writeData(ServoId, quint8(address), data, collect());
    }
    /** Makes the engine know the servo's framing. */
    void getAcquainted()
    {
        read(0, 1);
        QTRY_COMPARE(replies.size(), 1);
        replies.clear();
    }
};

QList<int> instructionsOf(const PtyPeer &peer)
{
    QList<int> codes;
    for (const Packet &packet : peer.received())
        codes.append(packet.instruction);
    return codes;
}

} // namespace

class TestBusEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aReadIsAnsweredWhole_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("echo");
        QTest::newRow("clean") << QByteArray() << false;
        QTest::newRow("another servo's packet") << protocol2::encodeStatus(9, 0, registers(0, 118)) << false;
        QTest::newRow("late answer to another read") << protocol2::encodeStatus(ServoId, 0, registers(0, 4)) << false;
        QTest::newRow("packet with a wrong CRC")
            << protocol2::encodeStatus(ServoId, 0, registers(0, 118)).replace(20, 1, "\xAA") << false;
        QTest::newRow("echo") << QByteArray() << true;
    }

    void aReadIsAnsweredWhole()
    {
        QFETCH(QByteArray, before);
        QFETCH(bool, echo);
        for (const auto &servo : {zelvarServo, ax12}) {
            PtyPeer peer([&](const Packet &instruction) {
                const QByteArray reply = servo(instruction);
                return reply.isEmpty() ? reply : (echo ? instruction.raw : QByteArray()) + before + reply;
            });
            Client client(peer);
            QVERIFY(client.read(0, 118));
            QTRY_COMPARE(client.replies.size(), 1);
            QCOMPARE(client.replies[0].size(), 118 + 11);
            QCOMPARE(client.replies[0].mid(9, 118), registers(0, 118));
        }
    }

    void equalReadsJoinTheOneUnderWay()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        int earlier = 0;
        client.port.readData(ServoId, 0, 8, [&] { ++earlier; });
        for (int i = 0; i < 10; ++i)
            client.read(0, 8);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(earlier, 0);
        QCOMPARE(peer.receivedCount(), 1);
    }

    void aNewerReadTakesTheWaitingOnesPlace()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        client.getAcquainted();
        client.read(10, 1);
        client.read(20, 1);
        client.read(30, 1);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(client.replies[0].mid(9, 1), registers(30, 1));
        QCOMPARE(peer.received().mid(1).size(), 2); // the one under way and the newest
    }

    void writesKeepTheirOrderAndReadsSeeThem()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        client.getAcquainted();
        client.read(0, 4);
        client.write(50, "a");
        client.read(0, 4); // must not be answered by the read that went out before the write
        client.write(60, "b");
        client.write(50, "c");
        client.read(0, 4);
        QTRY_COMPARE(client.replies.size(), 1); // the newest request's only
        QCOMPARE(instructionsOf(peer).mid(1), (QList<int>{Read, Write, Write, Write, Read}));
        const auto packets = peer.received();
        QCOMPARE(packets[2].parameters, protocol2::writeParameters(50, "a"));
        QCOMPARE(packets[3].parameters, protocol2::writeParameters(60, "b"));
        QCOMPARE(packets[4].parameters, protocol2::writeParameters(50, "c"));
    }

    void whatGetsNoAnswerIsRepeated()
    {
        for (const bool isWrite : {true, false}) {
            std::atomic<bool> mute{false};
            PtyPeer peer([&](const Packet &instruction) {
                const bool isLast = instruction.parameters.startsWith(littleEndian16(99));
                return mute && !isLast ? QByteArray() : zelvarServo(instruction);
            });
            Client client(peer);
            client.getAcquainted();
            mute = true;
            isWrite ? client.write(50, "a") : client.read(50, 1);
            const int packets = 1 + (isWrite ? 6 : 3);
            QTRY_COMPARE(peer.receivedCount(), packets);
            client.write(99, "z"); // what comes next goes out in spite of it
            QTRY_COMPARE(client.replies.size(), 1);
            QCOMPARE(peer.receivedCount(), packets + 1);
        }
    }

    void aReadThatIsNoLongerTheNewestIsNotRepeated()
    {
        std::atomic<bool> mute{false};
        PtyPeer peer([&](const Packet &instruction) {
            return mute && instruction.instruction == Read ? QByteArray() : zelvarServo(instruction);
        });
        Client client(peer);
        client.getAcquainted();
        mute = true;
        client.read(0, 4);
        client.write(50, "a");
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(instructionsOf(peer).mid(1), (QList<int>{Read, Write}));
    }

    void damagedRequestsAreRepeatedAndRefusedReadsAreNotData()
    {
        std::atomic<int> count{0};
        PtyPeer peer([&](const Packet &instruction) {
            ++count;
            if (count <= 2)
                return protocol2::encodeStatus(instruction.id, ChecksumError, {});
            return instruction.instruction == Read ? protocol2::encodeStatus(instruction.id, AccessError, {})
                                                   : zelvarServo(instruction);
        });
        Client client(peer);
        client.write(50, "a");
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(count.load(), 3);
        client.read(0, 4);
        QTRY_COMPARE(count.load(), 4);
        client.write(50, "b");
        QTRY_COMPARE(client.replies.size(), 2);
        QCOMPARE(client.replies[1].size(), 6);
        QCOMPARE(count.load(), 5);
    }

    void theFramingIsFoundOutOnceAndRemembered()
    {
        PtyPeer peer(ax12);
        Client client(peer);
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(client.replies[0].mid(5, 2), registers(0, 2));
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 2);
        client.write(24, "a");
        QTRY_COMPARE(client.replies.size(), 3);
        QList<Framing> framings;
        for (const Packet &packet : peer.received())
            framings.append(packet.framing);
        QCOMPARE(framings, (QList<Framing>{Framing::Protocol2, Framing::Protocol1, Framing::Protocol1,
                                           Framing::Protocol1}));

        client.port.openSerialPort(peer.path(), BaudRate); // another session: it may be another servo
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 4);
        QCOMPARE(peer.received()[4].framing, Framing::Protocol2);
    }

    void rebootAndResetRunToTheEndInsideTheCall_data()
    {
        QTest::addColumn<bool>("isReset");
        QTest::addColumn<bool>("isAx12");
        QTest::addColumn<int>("replies");
        QTest::addColumn<int>("packets");
        QTest::newRow("reboot") << false << false << 1 << 1;
        QTest::newRow("reset") << true << false << 1 << 1;
        QTest::newRow("reset of an AX-12") << true << true << 1 << 2;
        QTest::newRow("reboot of an AX-12, which cannot") << false << true << 0 << 1;
    }

    void rebootAndResetRunToTheEndInsideTheCall()
    {
        QFETCH(bool, isReset);
        QFETCH(bool, isAx12);
        PtyPeer peer([&](const Packet &instruction) {
            return isAx12 ? ax12(instruction) : protocol2::encodeStatus(instruction.id, AlertBit, {});
        });
        Client client(peer);
        QVERIFY(isReset ? client.port.reset(ServoId, client.collect())
                        : client.port.reboot(ServoId, client.collect()));
        client.port.closeSerialPort();
        QTEST(client.replies.size(), "replies");
        for (const QByteArray &reply : client.replies)
            QCOMPARE(reply, protocol1::encode(ServoId, 0, {})); // the alert bit is no failure of the command
        QTEST(peer.receivedCount(), "packets");
        if (isReset)
            QCOMPARE(peer.received()[0].parameters, QByteArray(1, char(ResetAllButIdAndBaudRate)));
    }

    void queuedWritesGoOutBeforeAReboot()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        client.write(50, "a");
        client.write(60, "b");
        client.read(0, 1);
        QVERIFY(client.port.reboot(ServoId, client.collect()));
        QCOMPARE(instructionsOf(peer), (QList<int>{Write, Write, Read, Reboot}));
        QCOMPARE(client.replies.size(), 1);
    }

    void aLostPortIsReportedOnce()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        client.getAcquainted();
        QSignalSpy lost(&client.port, &ZelvarSerialPortInterface::connectionLost);
        client.read(0, 118);
        peer.hangUp();
        client.write(50, "a"); // some systems notice only when something is sent
        client.write(50, "b");
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(lost[0][0].toString().contains(peer.path()));
        QVERIFY(!client.read(0, 1));
        QVERIFY(!client.write(50, "a"));
        QVERIFY(!client.port.reboot(ServoId, client.collect()));
        QCoreApplication::processEvents();
        QCOMPARE(lost.size(), 1);
        client.port.closeSerialPort();
    }

    void openingSaysWhatToDo()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        ZelvarSerialPortInterface second(nullptr, 2);
        QVERIFY(second.openSerialPort({}, BaudRate).contains("No serial port is chosen"));
        QVERIFY(second.openSerialPort("ttyNotThere7", BaudRate).contains("was not found"));
        QVERIFY(second.openSerialPort("/dev/null", BaudRate).contains("could not be opened"));
        QVERIFY(second.openSerialPort("ttyNotThere7", 0).contains("refuses the baud rate 0"));
        QVERIFY(second.openSerialPort(peer.path(), BaudRate).contains("in use by another program"));
        QVERIFY(!second.readData(1, 0, 1, [] {}));
        client.getAcquainted(); // and the one that uses it is not disturbed
    }

    void aClosedPortTakesNothing()
    {
        PtyPeer peer(zelvarServo);
        Client client(peer);
        client.read(0, 4);
        client.port.closeSerialPort();
        QVERIFY(!client.read(0, 4));
        QVERIFY(!client.write(0, "a"));
        QVERIFY(!client.port.reset(ServoId, client.collect()));
        client.port.openSerialPort(peer.path(), BaudRate);
        client.getAcquainted(); // and what it had taken before is forgotten
    }
};

ZELVAR_TEST_MAIN(TestBusEngine)
#include "tst_busengine.moc"
