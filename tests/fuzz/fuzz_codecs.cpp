#include "serialport/protocol1.h"
#include "serialport/protocol2.h"
#include "tests/fuzz/fuzzinput.h"

#include <QVector>

using namespace wire;

namespace {

QByteArray encoded(const Packet &packet)
{
    if (packet.framing == Framing::Protocol1)
        return protocol1::encode(packet.id, packet.instruction, packet.parameters);
    // Another sender may fill its packets up to the bound with bytes that needed no stuffing.
    if (packet.parameters.size() > protocol2::MaximumParameters)
        return packet.raw;
    return packet.instruction == Status
               ? protocol2::encodeStatus(packet.id, packet.error, packet.parameters)
               : protocol2::encodeInstruction(packet.id, packet.instruction, packet.parameters);
}

QByteArray makePacket(FuzzInput &input, Framing framing)
{
    Packet packet;
    packet.framing = framing;
    packet.id = input.byte() % 0xFF;
    packet.instruction = input.byte() % 2 ? input.byte() : quint8(Status);
    packet.error = input.byte();
    packet.parameters = input.bytes(framing == Framing::Protocol1 ? 60 : 140);
    return encoded(packet);
}

template <typename Parser>
QVector<QByteArray> parsed(const QByteArray &stream, int sliceSize)
{
    Parser parser;
    QVector<QByteArray> packets;
    for (int i = 0; i < stream.size(); i += sliceSize) {
        parser.append(stream.mid(i, sliceSize));
        while (const auto packet = parser.next()) {
            require(encoded(*packet) == packet->raw);
            packets.append(packet->raw);
        }
    }
    return packets;
}

} // namespace

// A stream of noise, good packets and damaged ones: however it is sliced, the same packets must come out, and each of
// them must be one that encoding its fields gives again. Both framings are held to it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    enum Piece { Noise, GoodPacket, DamagedPacket, CutPacket, PieceKinds };
    FuzzInput input(bytes, size);
    const Framing framing = input.byte() % 2 ? Framing::Protocol2 : Framing::Protocol1;
    const int sliceSize = 1 + input.byte() % 32;
    QByteArray stream;
    while (!input.isUsedUp()) {
        const int kind = input.byte() % PieceKinds;
        QByteArray piece = kind == Noise ? input.bytes(16) : makePacket(input, framing);
        const int at = kind == Noise ? 0 : input.byte() % piece.size();
        if (kind == DamagedPacket)
            piece[at] = static_cast<char>(piece[at] ^ static_cast<char>(input.byte()));
        else if (kind == CutPacket)
            piece.truncate(at);
        stream += piece;
    }
    const auto parse = framing == Framing::Protocol1 ? parsed<protocol1::Parser> : parsed<protocol2::Parser>;
    require(parse(stream, sliceSize) == parse(stream, stream.size() + 1));
    return 0;
}
