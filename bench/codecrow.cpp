#include "bench/codecrow.h"

#include "serialport/protocol2.h"

#include <array>
#include <cstring>

namespace {

constexpr quint8 ServoId = 1;
constexpr int TableSize = 118;
constexpr int PollsPerRound = 200;
constexpr quint16 Polynomial = 0x8005;

/** Where results go, so that nothing of what is measured can be left out. */
volatile quint32 sink = 0;

std::array<quint16, 256> makeTable()
{
    std::array<quint16, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned remainder = byte << 8;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 0x8000) ? (remainder << 1) ^ Polynomial : remainder << 1;
        table[byte] = static_cast<quint16>(remainder);
    }
    return table;
}

const std::array<quint16, 256> Table = makeTable();

// The baseline's own, so that it stays what it is when the codec's gets better or worse.
quint16 tableDrivenCrc(const char *bytes, int size)
{
    quint16 crc = 0;
    for (int i = 0; i < size; ++i)
        crc = static_cast<quint16>((crc << 8) ^ Table[(crc >> 8) ^ static_cast<quint8>(bytes[i])]);
    return crc;
}

QByteArray registerTable()
{
    QByteArray table(TableSize, '\0');
    for (int i = 0; i < TableSize; ++i)
        table[i] = static_cast<char>(i * 37);
    return table;
}

/** The two packets of a poll, made from what they carry and taken apart again. */
void codecRound(const QByteArray &registers, wire::protocol2::Parser &parser)
{
    for (int i = 0; i < PollsPerRound; ++i) {
        parser.append(
            wire::protocol2::encodeInstruction(ServoId, wire::Read, wire::protocol2::readParameters(0, TableSize)));
        sink += parser.next()->instruction;
        parser.append(wire::protocol2::encodeStatus(ServoId, wire::NoError, registers));
        sink += static_cast<quint8>(parser.next()->parameters.back());
    }
}

/** The bytes of @p packet copied and their CRC computed, once as by a sender and once as by a receiver. */
void copyThereAndBack(const QByteArray &packet, char *line, char *received)
{
    const int size = packet.size();
    std::memcpy(line, packet.constData(), static_cast<std::size_t>(size));
    sink += tableDrivenCrc(line, size);
    std::memcpy(received, line, static_cast<std::size_t>(size));
    sink += tableDrivenCrc(received, size);
}

void baselineRound(const QByteArray &request, const QByteArray &reply)
{
    char line[256];
    char received[256];
    for (int i = 0; i < PollsPerRound; ++i) {
        copyThereAndBack(request, line, received);
        copyThereAndBack(reply, line, received);
    }
}

} // namespace

Figures codecTime(const Rounds &rounds)
{
    const QByteArray registers = registerTable();
    const QByteArray request =
        wire::protocol2::encodeInstruction(ServoId, wire::Read, wire::protocol2::readParameters(0, TableSize));
    const QByteArray reply = wire::protocol2::encodeStatus(ServoId, wire::NoError, registers);
    wire::protocol2::Parser parser;
    Comparison time;
    for (int i = 0; i < rounds.codecRounds; ++i) {
        double begin = threadTime();
        codecRound(registers, parser);
        time.ours.add((threadTime() - begin) / PollsPerRound);
        begin = threadTime();
        baselineRound(request, reply);
        time.baseline.add((threadTime() - begin) / PollsPerRound);
    }
    return {Figure::atMost(QStringLiteral("codec, the packets of a poll both ways"), time.ours.median(),
                           time.baseline.median(), QString::fromUtf8("µs"), 2.0)};
}
