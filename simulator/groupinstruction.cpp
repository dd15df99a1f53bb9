#include "simulator/groupinstruction.h"

namespace simulator {

namespace {

/** What the parameters of a group instruction are made of. */
enum class Shape {
    SharedRange, ///< address and length once, then each servo
    OwnRanges,   ///< each servo with an address and a length of its own
    Everybody,   ///< it has none, and is for all ids one after the other
    Nobody,      ///< it is refused
};

struct GroupInstruction
{
    wire::Framing framing;
    quint8 code;
    quint8 single; ///< what each servo carries out
    Shape shape;
    GroupReplies replies;
};

constexpr auto Protocol1 = wire::Framing::Protocol1;
constexpr auto Protocol2 = wire::Framing::Protocol2;

// clang-format off
constexpr GroupInstruction GroupInstructions[] = {
    {Protocol2, wire::Ping,         wire::Ping,         Shape::Everybody,   GroupReplies::InTurn},
    {Protocol2, wire::SyncRead,     wire::Read,         Shape::SharedRange, GroupReplies::InTurn},
    {Protocol2, wire::FastSyncRead, wire::Read,         Shape::SharedRange, GroupReplies::Together},
    {Protocol2, wire::SyncWrite,    wire::Write,        Shape::SharedRange, GroupReplies::None},
    {Protocol2, wire::BulkRead,     wire::Read,         Shape::OwnRanges,   GroupReplies::InTurn},
    {Protocol2, wire::BulkWrite,    wire::Write,        Shape::OwnRanges,   GroupReplies::None},
    // Newer servos are not all reset, and given one id, by a single packet.
    {Protocol2, wire::FactoryReset, wire::FactoryReset, Shape::Nobody,      GroupReplies::None},
    {Protocol1, wire::SyncWrite,    wire::Write,        Shape::SharedRange, GroupReplies::None},
};
// clang-format on

/** The request @p parameters of a @p row for servo @p id. */
wire::Packet part(const GroupInstruction &row, quint8 id, const QByteArray &parameters)
{
    wire::Packet packet;
    packet.framing = row.framing;
    packet.id = id;
    packet.instruction = row.single;
    packet.parameters = parameters;
    return packet;
}

std::vector<wire::Packet> partsForEverybody(const GroupInstruction &row)
{
    std::vector<wire::Packet> parts;
    for (int id = 0; id <= wire::MaximumId; ++id)
        parts.push_back(part(row, static_cast<quint8>(id), {}));
    return parts;
}

/** One part for each servo in @p bytes; none when they are cut short. */
std::vector<wire::Packet> listedParts(const GroupInstruction &row, const QByteArray &bytes)
{
    const int addressSize = row.framing == Protocol2 ? 2 : 1;
    const int rangeSize = addressSize + addressSize;
    QByteArray range;
    int at = 0;
    if (row.shape == Shape::SharedRange) {
        range = bytes.left(rangeSize);
        at = rangeSize;
    }

    std::vector<wire::Packet> parts;
    while (at < bytes.size()) {
        const auto id = static_cast<quint8>(bytes[at++]);
        if (row.shape == Shape::OwnRanges) {
            range = bytes.mid(at, rangeSize);
            at += rangeSize;
        }
        if (range.size() < rangeSize)
            return {};
        if (row.single == wire::Read) {
            parts.push_back(part(row, id, range));
            continue;
        }
        const int length =
            addressSize == 1 ? static_cast<quint8>(range[1]) : wire::fromLittleEndian16(range, addressSize);
        const QByteArray data = bytes.mid(at, length);
        if (data.size() < length)
            return {};
        parts.push_back(part(row, id, range.left(addressSize) + data));
        at += length;
    }
    return parts;
}

std::vector<wire::Packet> partsOf(const GroupInstruction &row, const QByteArray &parameters)
{
    switch (row.shape) {
    case Shape::SharedRange:
    case Shape::OwnRanges:
        return listedParts(row, parameters);
    case Shape::Everybody:
        return partsForEverybody(row);
    case Shape::Nobody:
        break;
    }
    return {};
}

} // namespace

std::optional<GroupRequest> groupRequest(const wire::Packet &request)
{
    if (request.id != wire::BroadcastId)
        return std::nullopt;
    for (const GroupInstruction &row : GroupInstructions) {
        if (row.code == request.instruction && row.framing == request.framing)
            return GroupRequest{row.replies, partsOf(row, request.parameters)};
    }
    return std::nullopt;
}

} // namespace simulator
