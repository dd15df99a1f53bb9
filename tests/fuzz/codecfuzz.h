#pragma once

#include "tests/fuzz/fuzzinput.h"

#include <QVector>

/**
 * A stream of noise, good packets and damaged ones: however it is sliced, the same packets must come out, and each of
 * them must be one that encoding its fields gives again. Both framings are held to it.
 */
namespace codecfuzz {

template <typename Parser, typename Encode>
void collect(Parser &parser, QVector<QByteArray> &packets, const Encode &encode)
{
    while (const auto packet = parser.next()) {
        require(encode(*packet) == packet->raw);
        packets.append(packet->raw);
    }
}

/** @p makePacket gives a good packet from the input; @p encode gives the bytes that a parsed packet must have had. */
template <typename Parser, typename MakePacket, typename Encode>
void run(FuzzInput input, const MakePacket &makePacket, const Encode &encode)
{
    enum Piece
    {
        Noise,
        GoodPacket,
        DamagedPacket,
        CutPacket,
        PieceKinds,
    };
    constexpr int LongestNoise = 16;

    const int sliceSize = 1 + input.byte() % 32;
    QByteArray stream;
    while (!input.isUsedUp()) {
        const int kind = input.byte() % PieceKinds;
        if (kind == Noise) {
            stream += input.bytes(LongestNoise);
            continue;
        }
        QByteArray packet = makePacket(input);
        const int at = input.byte() % packet.size();
        if (kind == DamagedPacket)
            packet[at] = static_cast<char>(packet[at] ^ static_cast<char>(input.byte()));
        else if (kind == CutPacket)
            packet.truncate(at);
        stream += packet;
    }

    Parser whole;
    whole.append(stream);
    QVector<QByteArray> expected;
    collect(whole, expected, encode);

    Parser sliced;
    QVector<QByteArray> packets;
    for (int i = 0; i < stream.size(); i += sliceSize) {
        sliced.append(stream.mid(i, sliceSize));
        collect(sliced, packets, encode);
    }
    require(packets == expected);
}

} // namespace codecfuzz
