// The rules of the bus, one by one, through the exported interface on a real pseudo terminal with a scripted servo.

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/zelvarserialportinterface.h"
#include "tests/support/ptypeer.h"
#include "tests/support/testenvironment.h"

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
    return protocol2::encodeStatus(
        instruction.id, 0,
        registers(fromLittleEndian16(instruction.parameters, 0), fromLittleEndian16(instruction.parameters, 2)));
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

/** A client on a line with a scripted servo at its other end. */
struct Client
{
    PtyPeer peer;
    ZelvarSerialPortInterface port{nullptr, 2};
    QByteArrayList replies; ///< in order

    explicit Client(PtyPeer::Script script) : peer(std::move(script))
    {
        const QString error = port.openSerialPort(peer.path(), BaudRate);
        if (!error.isEmpty())
            qFatal("%s", qPrintable(error));
    }
    std::function<void()> collect()
    {
        return [this] { replies.append(port.readPendingSerialData()); };
    }
    bool read(int address, int length) { return port.readData(ServoId, quint8(address), quint8(length), collect()); }
    bool write(int address, const QByteArray &data)
    {
        return port.writeData(ServoId, quint8(address), data, collect());
    }
    /** Makes the engine know the servo's framing, however many tries a busy machine takes for that. */
    void getAcquainted()
    {
        for (int answers : {1, 2}) {
            read(0, 1);
            QTRY_COMPARE(replies.size(), answers);
        }
        replies.clear();
        acquaintance = peer.receivedCount();
    }
    /** What the servo got since then. */
    QVector<Packet> received() const { return peer.received().mid(acquaintance); }

    int acquaintance = 0; ///< packets
};

QList<int> instructionsOf(const Client &client)
{
    QList<int> codes;
    for (const Packet &packet : client.received())
        codes.append(packet.instruction);
    return codes;
}

} // namespace

class TestBusEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aReadIsAnsweredWhole()
    {
        const QByteArray packet = protocol2::encodeStatus(ServoId, 0, registers(0, 118));
        // clang-format off
        const std::tuple<const char *, QByteArray, bool> rows[] = {
            {"clean",                       {},                                                      false},
            {"another servo's packet",      protocol2::encodeStatus(9, 0, registers(0, 118)),        false},
            {"late answer to another read", protocol2::encodeStatus(ServoId, 0, registers(0, 4)),    false},
            {"packet with a wrong CRC",     QByteArray(packet).replace(20, 1, "\xAA"),               false},
            {"echo",                        {},                                                      true },
        };
        // clang-format on
        for (const auto &[name, before, echo] : rows) {
            for (const auto &servo : {zelvarServo, ax12}) {
                const InRow row(name);
                Client client([&, noise = before, isEchoed = echo](const Packet &instruction) {
                    const QByteArray reply = servo(instruction);
                    return reply.isEmpty() ? reply : (isEchoed ? instruction.raw : QByteArray()) + noise + reply;
                });
                QVERIFY(client.read(0, 118));
                QTRY_COMPARE(client.replies.size(), 1);
                QCOMPARE(client.replies[0].size(), 118 + 11);
                QCOMPARE(client.replies[0].mid(9, 118), registers(0, 118));
            }
        }
    }

    void equalReadsJoinTheOneUnderWay()
    {
        Client client(zelvarServo);
        client.getAcquainted();
        int earlier = 0;
        client.port.readData(ServoId, 0, 8, [&] { ++earlier; });
        for (int i = 0; i < 10; ++i)
            client.read(0, 8);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(earlier, 0);
        QCOMPARE(client.received().size(), 1);
    }

    void aNewerReadTakesTheWaitingOnesPlace()
    {
        Client client(zelvarServo);
        client.getAcquainted();
        client.read(10, 1);
        client.read(20, 1);
        client.read(30, 1);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(client.replies[0].mid(9, 1), registers(30, 1));
        QCOMPARE(client.received().size(), 2); // the one under way and the newest
    }

    void writesKeepTheirOrderAndReadsSeeThem()
    {
        Client client(zelvarServo);
        client.getAcquainted();
        client.read(0, 4);
        client.write(50, "a");
        client.read(0, 4); // must not be answered by the read that went out before the write
        client.write(60, "b");
        client.write(50, "c");
        client.read(0, 4);
        QTRY_COMPARE(client.replies.size(), 1); // the newest request's only
        QCOMPARE(instructionsOf(client), (QList<int>{Read, Write, Write, Write, Read}));
        const auto packets = client.received();
        QCOMPARE(packets[1].parameters, protocol2::writeParameters(50, "a"));
        QCOMPARE(packets[2].parameters, protocol2::writeParameters(60, "b"));
        QCOMPARE(packets[3].parameters, protocol2::writeParameters(50, "c"));
    }

    void whatGetsNoAnswerIsRepeated()
    {
        std::atomic<bool> mute{false};
        const auto script = [&mute](const Packet &instruction) {
            const bool isLast = instruction.parameters.startsWith(littleEndian16(99));
            return mute && !isLast ? QByteArray() : zelvarServo(instruction);
        };
        Client reader(script);
        Client writer(script);
        reader.getAcquainted();
        mute = true;
        reader.read(50, 1);
        writer.write(50, "a");
        QTRY_COMPARE(writer.received().size(), 6);
        QCOMPARE(reader.received().size(), 3); // there has been time for a fourth
        for (Client *client : {&reader, &writer}) {
            client->write(99, "z"); // what comes next goes out in spite of it
            QTRY_COMPARE(client->replies.size(), 1);
            QCOMPARE(client->received().size(), client == &reader ? 3 + 1 : 6 + 1);
            for (const Packet &packet : client->received()) // above all, no write is sent in a guessed framing
                QCOMPARE(packet.framing, Framing::Protocol2);
        }
    }

    void aReadThatIsNoLongerTheNewestIsNotRepeated()
    {
        std::atomic<bool> mute{false};
        Client client([&](const Packet &instruction) {
            return mute && instruction.instruction == Read ? QByteArray() : zelvarServo(instruction);
        });
        client.getAcquainted();
        mute = true;
        client.read(0, 4);
        client.write(50, "a");
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(instructionsOf(client), (QList<int>{Read, Write}));
    }

    void damagedRequestsAreRepeatedOnASilentLineAndRefusedReadsAreNotData()
    {
        std::atomic<int> count{0};
        std::atomic<qint64> shortestSilence{1000};
        QElapsedTimer silence; // used in the peer's thread only
        Client client([&](const Packet &instruction) {
            if (++count <= 3 && silence.isValid())
                shortestSilence = qMin(shortestSilence.load(), silence.elapsed());
            silence.start();
            if (count <= 2) // and an answer to what was given up is still on its way
                return protocol2::encodeStatus(instruction.id, ChecksumError, {}) +
                       protocol2::encodeStatus(instruction.id, 0, {});
            return instruction.instruction == Read ? protocol2::encodeStatus(instruction.id, AccessError, {})
                                                   : zelvarServo(instruction);
        });
        client.write(50, "a");
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(count.load(), 3);
        QVERIFY(shortestSilence >= 3);
        client.read(0, 4);
        QTRY_COMPARE(count.load(), 4);
        client.write(50, "b");
        QTRY_COMPARE(client.replies.size(), 2);
        QCOMPARE(client.replies[1].size(), 6);
        QCOMPARE(count.load(), 5);
    }

    void aLateAnswerInTheFirstFramingStillCounts()
    {
        Client client([](const Packet &instruction) { // held back until the other framing has been tried
            return instruction.framing == Framing::Protocol1
                       ? protocol2::encodeStatus(instruction.id, 0, registers(0, 2))
                       : QByteArray();
        });
        client.read(0, 2);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(client.replies[0].mid(9, 2), registers(0, 2));
    }

    void theFramingIsFoundOutOnceAndRemembered()
    {
        Client client(ax12);
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 1);
        QCOMPARE(client.replies[0].mid(5, 2), registers(0, 2));
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 2);
        client.write(24, "a");
        QTRY_COMPARE(client.replies.size(), 3);
        QList<Framing> framings;
        for (const Packet &packet : client.peer.received())
            framings.append(packet.framing);
        QCOMPARE(framings,
                 (QList<Framing>{Framing::Protocol2, Framing::Protocol1, Framing::Protocol1, Framing::Protocol1}));

        client.port.openSerialPort(client.peer.path(), BaudRate); // another session: it may be another servo
        client.read(0, 3);
        QTRY_COMPARE(client.replies.size(), 4);
        QCOMPARE(client.peer.received()[4].framing, Framing::Protocol2);
    }

    void rebootAndResetRunToTheEndInsideTheCall()
    {
        // clang-format off
        const std::tuple<const char *, bool, bool, int, int> rows[] = {
            {"reboot",                          false, false, 1, 1},
            {"reset",                           true,  false, 1, 1},
            {"reset of an AX-12",               true,  true,  1, 2},
            {"reboot of an AX-12, which cannot", false, true, 0, 1},
        };
        // clang-format on
        for (const auto &[name, isReset, isAx12, replies, packets] : rows) {
            const InRow row(name);
            Client client([speaks1 = isAx12](const Packet &instruction) {
                return speaks1 ? ax12(instruction) : protocol2::encodeStatus(instruction.id, AlertBit, {});
            });
            QVERIFY(isReset ? client.port.reset(ServoId, client.collect())
                            : client.port.reboot(ServoId, client.collect()));
            client.port.closeSerialPort();
            // The alert bit is no failure of the command.
            QCOMPARE(client.replies.join(), protocol1::encode(ServoId, 0, {}).repeated(replies));
            QCOMPARE(client.peer.receivedCount(), packets);
            if (isReset)
                QCOMPARE(client.peer.received()[0].parameters, QByteArray(1, char(ResetAllButIdAndBaudRate)));
        }
    }

    void queuedWritesGoOutBeforeAReboot()
    {
        Client client(zelvarServo);
        client.write(50, "a");
        client.write(60, "b");
        client.read(0, 1);
        QVERIFY(client.port.reboot(ServoId, client.collect()));
        QCOMPARE(instructionsOf(client), (QList<int>{Write, Write, Read, Reboot}));
        QCOMPARE(client.replies.size(), 1);
    }

    void aLostPortIsReportedOnce()
    {
        Client client(zelvarServo);
        client.getAcquainted();
        QSignalSpy lost(&client.port, &ZelvarSerialPortInterface::connectionLost);
        client.read(0, 118);
        client.peer.hangUp();
        client.write(50, "a"); // some systems notice only when something is sent
        client.write(50, "b");
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(lost[0][0].toString().contains(client.peer.path()));
        QVERIFY(!client.read(0, 1) && !client.write(50, "a") && !client.port.reboot(ServoId, client.collect()));
        QCoreApplication::processEvents();
        QCOMPARE(lost.size(), 1);
        client.port.closeSerialPort();
    }

    void openingSaysWhatToDo()
    {
        Client client(zelvarServo);
        ZelvarSerialPortInterface second(nullptr, 2);
        QVERIFY(second.openSerialPort({}, BaudRate).contains("No serial port is chosen"));
        QVERIFY(second.openSerialPort("ttyNotThere7", BaudRate).contains("was not found"));
        QVERIFY(second.openSerialPort("/dev/null", BaudRate).contains("could not be opened"));
        QVERIFY(second.openSerialPort("ttyNotThere7", 0).contains("refuses the baud rate 0"));
        QVERIFY(second.openSerialPort(client.peer.path(), BaudRate).contains("in use by another program"));
        client.getAcquainted(); // and the one that uses it is not disturbed
    }

    void aClosedPortTakesNothing()
    {
        Client client(zelvarServo);
        client.read(0, 4);
        client.port.closeSerialPort();
        QVERIFY(!client.read(0, 4) && !client.write(0, "a") && !client.port.reset(ServoId, client.collect()));
        client.port.openSerialPort(client.peer.path(), BaudRate);
        client.getAcquainted(); // and what it had taken before is forgotten
    }
};

ZELVAR_TEST_MAIN(TestBusEngine)
#include "tst_busengine.moc"
