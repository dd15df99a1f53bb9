#pragma once

#include "model/field.h"
#include "serialport/busrequest.h"

#include <chrono>
#include <optional>
#include <vector>

namespace session {

/** One field of a block: the bits of its registers, lowest byte first. */
struct AppliedField
{
    const model::Field *field;
    quint32 wanted = 0;
    std::optional<quint32> before; ///< read before the block went out
    std::optional<quint32> found;  ///< read after it
};

/** What has become of one block that was applied. */
struct ApplyReport
{
    enum class Verdict {
        Applied,    ///< read back as it was to be
        NotApplied, ///< the servo has something else
        Unknown,    ///< the servo does not answer, so that nothing could be read back
        Elsewhere,  ///< the block has given the servo a baud rate at which it cannot be asked on this connection
        Dropped,    ///< never sent: the connection ended before
        Unproved,   ///< sent, and the connection ended before it could be read back
    };

    Verdict verdict = Verdict::Unknown;
    std::vector<AppliedField> edited;               ///< what the block was to change
    std::vector<AppliedField> others;               ///< what the servo has otherwise than the block said
    std::chrono::steady_clock::time_point sentAt{}; ///< when the block went out; meaningless if it was dropped
    BusResult write;                                ///< meaningless if the block was dropped
};

} // namespace session
