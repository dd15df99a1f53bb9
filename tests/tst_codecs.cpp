// Both framings: published vectors, slicing, resynchronisation and corruption; and the layout of replies.

#include "serialport/crc16.h"
#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "serialport/replybytes.h"
#include "serialport/replylayout.h"
#include "tests/support/testenvironment.h"

using namespace wire;

namespace {
QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

template <typename Parser>
QList<QByteArray> parsedInSlices(const QByteArray &stream, int sliceSize)
{
    Parser parser;
    QList<QByteArray> packets;
    for (int i = 0; i < stream.size(); i += sliceSize) {
        parser.append(stream.mid(i, sliceSize));
        while (const auto packet = parser.next())
            packets.append(packet->raw);
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
    void instructionVectors()
    {
        using namespace protocol2;
        const QByteArray data = hex("FFFFFD00");
        const std::tuple<const char *, QByteArray, const char *> rows[] = {
            {"2.0 ping", encodeInstruction(1, Ping, {}), "FFFFFD00010300 01 194E"},
            {"2.0 read", encodeInstruction(1, Read, readParameters(132, 4)), "FFFFFD0001070002 84000400 1D15"},
            {"2.0 write", encodeInstruction(1, Write, writeParameters(116, hex("00020000"))),
             "FFFFFD0001090003 740000020000 CA89"},
            {"2.0 reset", encodeInstruction(1, FactoryReset, hex("01")), "FFFFFD0001040006 01 A1E6"},
            {"2.0 reboot", encodeInstruction(1, Reboot, {}), "FFFFFD0001030008 2F4E"},
            {"2.0 stuffed write", encodeInstruction(1, Write, writeParameters(0x74, data)),
             "FFFFFD00010A0003 7400FFFFFDFD00 21E7"},
            {"2.0 status", encodeStatus(1, 0, hex("A6000000")), "FFFFFD0001080055 00 A6000000 8CC0"},
            {"2.0 stuffed status", encodeStatus(1, 0, data), "FFFFFD0001090055 00FFFFFDFD00 D89C"},
            {"1.0 read", protocol1::encode(1, Read, protocol1::readParameters(43, 1)), "FFFF0104022B01CC"},
            {"1.0 status", protocol1::encode(1, 0, hex("20")), "FFFF01030020DB"},
            {"1.0 reset", protocol1::encode(0, FactoryReset, {}), "FFFF000206F7"},
            {"1.0 identification", protocol1::encode(1, 0, hex("0C0018")), "FFFF0105000C0018D5"},
        };
        for (const auto &[name, built, expected] : rows)
            QVERIFY2(built == hex(expected), name);
    }

    void anySlicingGivesTheSamePackets()
    {
        // clang-format off
        const std::pair<const char *, QByteArray> rows[] = {
            {"clean",                           {}                                         },
            {"repeated header bytes",           hex("FFFFFF")                              },
            {"impossible length",               hex("FFFFFD0001FEFF0101")                  },
            {"length too small",                hex("FFFF0101")                            },
            {"packet cut short by the next",    hex("FFFFFD0001300055 00 0102")            },
            {"wrong checksums",                 hex("FFFFFD0001040055 00 A10D FFFF010224D9")},
        };
        // clang-format on
        const QByteArrayList packets2{protocol2::encodeStatus(1, 0, hex("FFFFFDFFFFFD00FF")),
                                      protocol2::encodeStatus(253, 7, {})};
        const QByteArrayList packets1{protocol1::encode(1, 0, hex("FF00FE")), protocol1::encode(0, 0x24, {})};
        for (const auto &[name, noise] : rows) {
            const InRow row(name);
            for (int size = 1; size <= 64; ++size) {
                QCOMPARE(parsedInSlices<protocol2::Parser>(noise + packets2.join(noise), size), packets2);
                QCOMPARE(parsedInSlices<protocol1::Parser>(noise + packets1.join(noise), size), packets1);
            }
        }
    }

    void nothingDamagedIsBelieved()
    {
        QCOMPARE(unnoticedErrors<protocol2::Parser>(protocol2::encodeStatus(1, 0, hex("A6000000"))), 0);
        QCOMPARE(unnoticedErrors<protocol1::Parser>(protocol1::encode(1, 0, hex("A6000000"))), 0);
    }

    void errorBitsInTheOwnFamilysNumbering()
    {
        const std::pair<quint8, int> rows[] = {{0, 0}, {0x08, 4}, {0x10, 3}, {0x40, 2}, {0x24, 0x80}, {0x09, 0x84}};
        for (const auto &[bits, number] : rows) {
            Packet status;
            status.framing = Framing::Protocol1;
            status.instruction = bits;
            QCOMPARE(int(replylayout::errorByte(status)), number);
        }
    }

    void replyLayouts()
    {
        protocol2::Parser parser2;
        parser2.append(hex("FFFFFD0001090055 00FFFFFDFD00 D89C"));
        const QByteArray reply2 = replylayout::readReply(*parser2.next());
        QCOMPARE(reply2.size(), 4 + replybytes::ReadOverhead);
        QCOMPARE(reply2.mid(0, 13), hex("FFFFFD0001080055 00 FFFFFD00"));
        QCOMPARE(crc16(reply2.constData(), 13), fromLittleEndian16(reply2, 13));

        protocol1::Parser parser1;
        parser1.append(hex("FFFF0105000C0018D5"));
        const QByteArray reply1 = replylayout::readReply(*parser1.next());
        QCOMPARE(reply1.size(), 3 + replybytes::ReadOverhead);
        QCOMPARE(reply1.left(7), hex("FFFF0105000C00"));
        QCOMPARE(reply1.mid(9, 3), hex("0C0018"));

        QCOMPARE(replylayout::shortReply(1, 0), hex("FFFF010200FC"));
    }
};

ZELVAR_TEST_MAIN(TestCodecs)
#include "tst_codecs.moc"
