#pragma once

#include "serialport/packet.h"

#include <optional>
#include <vector>

namespace simulator {

/** How those whom a group instruction is for answer it. */
enum class GroupReplies {
    None,
    InTurn,   ///< each with a packet of its own
    Together, ///< all in one packet
};

/** A request to several servos at once, as the requests that each of them carries out, in the order of the answers. */
struct GroupRequest
{
    GroupReplies replies = GroupReplies::None;
    std::vector<wire::Packet> parts;
};

/** @p request taken apart; nothing when it is none to a group, so that whoever it is for carries it out as it is. */
std::optional<GroupRequest> groupRequest(const wire::Packet &request);

} // namespace simulator
