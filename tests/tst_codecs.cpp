// Both framings: published vectors, slicing, resynchronisation and corruption; and the layout of replies.

#include "serialport/crc16.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/replylayout.h"
#include "tests/support/testenvironment.h"

#include <random>

using namespace wire;

namespace {
QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

template <typename Parser>
QList<QByteArray> packetsOf(Parser &parser)
{
    QList<QByteArray> packets;
    while (const auto packet = parser.next())
        packets.append(packet->raw);
    return packets;
}

template <typename Parser>
QList<QByteArray> parsedInSlices(const QByteArray &stream, int sliceSize)
{
    Parser parser;
    QList<QByteArray> packets;
    for (int i = 0; i < stream.size(); i += sliceSize) {
        parser.append(stream.mid(i, sliceSize));
        packets += packetsOf(parser);
    }
    return packets;
}

/** How many bits of @p packet may be turned over without the parser noticing. */
template <typename Parser>
int unnoticedErrors(const QByteArray &packet)
{
    int unnoticed = 0;
    for (int bit = 0; bit < packet.size() * 8; ++bit) {
        QByteArray damaged = packet;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
        unnoticed += parsedInSlices<Parser>(damaged, damaged.size()).size();
    }
    return unnoticed;
}

} // namespace

class TestCodecs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void instructionVectors_data()
    {
        QTest::addColumn<QByteArray>("built");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray data = hex("FFFFFD00");
        QTest::newRow("2.0 ping") << protocol2::encodeInstruction(1, Ping, {}) << hex("FFFFFD00010300 01 194E");
        QTest::newRow("2.0 read") << protocol2::encodeInstruction(1, Read, protocol2::readParameters(132, 4))
                                  << hex("FFFFFD0001070002 84000400 1D15");
        QTest::newRow("2.0 write")
            << protocol2::encodeInstruction(1, Write, protocol2::writeParameters(116, hex("00020000")))
            << hex("FFFFFD0001090003 740000020000 CA89");
        QTest::newRow("2.0 reset") << protocol2::encodeInstruction(1, FactoryReset, hex("01"))
                                   << hex("FFFFFD0001040006 01 A1E6");
        QTest::newRow("2.0 reboot") << protocol2::encodeInstruction(1, Reboot, {}) << hex("FFFFFD0001030008 2F4E");
        QTest::newRow("2.0 stuffed write")
            << protocol2::encodeInstruction(1, Write, protocol2::writeParameters(0x74, data))
            << hex("FFFFFD00010A0003 7400FFFFFDFD00 21E7");
        QTest::newRow("2.0 status") << protocol2::encodeStatus(1, 0, hex("A6000000"))
                                    << hex("FFFFFD0001080055 00 A6000000 8CC0");
        QTest::newRow("2.0 status without parameters") << protocol2::encodeStatus(1, 0, {})
                                                       << hex("FFFFFD0001040055 00 A10C");
        QTest::newRow("2.0 stuffed status") << protocol2::encodeStatus(1, 0, data)
                                            << hex("FFFFFD0001090055 00FFFFFDFD00 D89C");
        QTest::newRow("1.0 ping") << protocol1::encode(1, Ping, {}) << hex("FFFF010201FB");
        QTest::newRow("1.0 read") << protocol1::encode(1, Read, protocol1::readParameters(43, 1))
                                  << hex("FFFF0104022B01CC");
        QTest::newRow("1.0 status") << protocol1::encode(1, 0, hex("20")) << hex("FFFF01030020DB");
        QTest::newRow("1.0 reset") << protocol1::encode(0, FactoryReset, {}) << hex("FFFF000206F7");
        QTest::newRow("1.0 error status") << protocol1::encode(1, 0x24, {}) << hex("FFFF010224D8");
        QTest::newRow("1.0 identification") << protocol1::encode(1, 0, hex("0C0018")) << hex("FFFF0105000C0018D5");
    }

    void instructionVectors()
    {
        QFETCH(QByteArray, built);
        QTEST(built, "expected");
    }

    void anySlicingGivesTheSamePackets_data()
    {
        QTest::addColumn<QByteArray>("noise");
        QTest::newRow("clean") << QByteArray();
        QTest::newRow("repeated header bytes") << hex("FFFFFF");
        QTest::newRow("impossible length") << hex("FFFFFD0001FEFF0101");
        QTest::newRow("length too small") << hex("FFFF0101");
        QTest::newRow("packet cut short by the next one") << hex("FFFFFD0001300055 00 0102");
        QTest::newRow("wrong checksums") << hex("FFFFFD0001040055 00 A10D FFFF010224D9");
    }

    void anySlicingGivesTheSamePackets()
    {
        QFETCH(QByteArray, noise);
        const QByteArray first2 = protocol2::encodeStatus(1, 0, hex("FFFFFDFFFFFD00FF"));
        const QByteArray second2 = protocol2::encodeStatus(253, 7, {});
        const QByteArray first1 = protocol1::encode(1, 0, hex("FF00FE"));
        const QByteArray second1 = protocol1::encode(0, 0x24, {});
        for (int size = 1; size <= 64; ++size) {
            const QByteArray stream2 = noise + first2 + noise + second2;
            QCOMPARE(parsedInSlices<protocol2::Parser>(stream2, size), (QList<QByteArray>{first2, second2}));
            const QByteArray stream1 = noise + first1 + noise + second1;
            QCOMPARE(parsedInSlices<protocol1::Parser>(stream1, size), (QList<QByteArray>{first1, second1}));
        }
    }

    void nothingDamagedIsBelieved()
    {
        QCOMPARE(unnoticedErrors<protocol2::Parser>(protocol2::encodeStatus(1, 0, hex("A6000000"))), 0);
        QCOMPARE(unnoticedErrors<protocol1::Parser>(protocol1::encode(1, 0, hex("A6000000"))), 0);
    }

    void errorBitsInTheOwnFamilysNumbering()
    {
        const QMap<int, int> expected{{0, 0}, {0x08, 4}, {0x10, 3}, {0x40, 2}, {0x24, 0x80}, {0x09, 0x84}};
        for (auto bits = expected.begin(); bits != expected.end(); ++bits) {
            Packet status;
            status.framing = Framing::Protocol1;
            status.instruction = static_cast<quint8>(bits.key());
            QCOMPARE(int(replylayout::errorByte(status)), bits.value());
        }
    }

    void randomDataSurvivesTheWayThere()
    {
        std::mt19937 random(20);
        const char alphabet[] = {'\xFF', '\xFF', '\xFF', '\xFD', '\xFD', '\x00', '\x55', '\x01'};
        for (int round = 0; round < 5000; ++round) {
            QByteArray data;
            for (unsigned i = random() % 120; i > 0; --i)
                data.append(alphabet[random() % sizeof alphabet]);
            protocol2::Parser parser;
            parser.append(data); // whatever comes before must not matter
            packetsOf(parser);
            parser.append(protocol2::encodeStatus(3, 0, data));
            const auto packet = parser.next();
            QVERIFY2(packet, data.toHex());
            QCOMPARE(packet->parameters, data);
        }
    }

    void replyLayouts()
    {
        protocol2::Parser parser2;
        parser2.append(hex("FFFFFD0001090055 00FFFFFDFD00 D89C"));
        const QByteArray reply2 = replylayout::readReply(*parser2.next());
        QCOMPARE(reply2.size(), 4 + replylayout::ReadOverhead);
        QCOMPARE(reply2.mid(0, 13), hex("FFFFFD0001080055 00 FFFFFD00"));
        QCOMPARE(crc16(reply2.constData(), 13), fromLittleEndian16(reply2, 13));

        protocol1::Parser parser1;
        parser1.append(hex("FFFF0105000C0018D5"));
        const QByteArray reply1 = replylayout::readReply(*parser1.next());
        QCOMPARE(reply1.size(), 3 + replylayout::ReadOverhead);
        QCOMPARE(reply1.left(7), hex("FFFF0105000C00"));
        QCOMPARE(reply1.mid(9, 3), hex("0C0018"));
        QCOMPARE(int(reply1[8]), 0);

        QCOMPARE(replylayout::shortReply(1, 0), hex("FFFF010200FC"));
    }
};

ZELVAR_TEST_MAIN(TestCodecs)
#include "tst_codecs.moc"
