#include "serialport/busoperation.h"

#include "serialport/protocol1.h"
#include "serialport/protocol2.h"

#include <iterator>

namespace {

using namespace std::chrono_literals;
using namespace wire;
using Operation = BusRequest::Operation;

/** Most data that both framings can write in one packet. */
constexpr int MaximumData = protocol1::MaximumParameters - 1;

constexpr std::chrono::milliseconds EachAnswer{0};

QByteArray empty(const BusRequest &)
{
    return {};
}

QByteArray read1(const BusRequest &request)
{
    return protocol1::readParameters(request.address, request.length);
}

QByteArray read2(const BusRequest &request)
{
    return protocol2::readParameters(request.address, request.length);
}

QByteArray write1(const BusRequest &request)
{
    return protocol1::writeParameters(request.address, request.data);
}

QByteArray write2(const BusRequest &request)
{
    return protocol2::writeParameters(request.address, request.data);
}

/** The servo keeps its id and its baud rate. */
QByteArray keepLink(const BusRequest &)
{
    return QByteArray(1, static_cast<char>(ResetAllButIdAndBaudRate));
}

int nothing(const BusRequest &) noexcept
{
    return 0;
}

int asked(const BusRequest &request) noexcept
{
    return request.length;
}

int identity(const BusRequest &) noexcept
{
    return 2 + 1; // model number and firmware
}

/**
 * In the order of BusRequest::Operation.
 *
 * A write's framing is never guessed, since registers have other addresses in the other family. What is sent once might
 * have been carried out although its answer was lost. There is no 1.0 reboot, but a servo that speaks 1.0 answers the
 * code with an instruction error.
 */
// clang-format off
constexpr BusOperation Table[] = {
    //                        sent   waited      framing carries changes to     who-
    // operation              times  in all      guessed data    servo   all    ever   1.0: code     parameters answer    2.0: code     parameters answer
    {Operation::Read,         1 + 2, EachAnswer, true,   false,  false,  false, false, {Read,         read1,     asked},   {Read,         read2,     asked}   },
    {Operation::Write,        1 + 5, EachAnswer, false,  true,   true,   false, false, {Write,        write1,    nothing}, {Write,        write2,    nothing} },
    {Operation::Reboot,       1,     300ms,      false,  false,  true,   false, false, {Reboot,       empty,     nothing}, {Reboot,       empty,     nothing} },
    {Operation::FactoryReset, 1,     300ms,      true,   false,  true,   false, false, {FactoryReset, empty,     nothing}, {FactoryReset, keepLink,  nothing} },
    {Operation::Tell,         1,     EachAnswer, false,  true,   true,   true,  false, {Write,        write1,    nothing}, {Write,        write2,    nothing} },
    {Operation::Find,         1,     EachAnswer, false,  false,  false,  true,  true,  {Ping,         empty,     nothing}, {Ping,         empty,     identity}},
};
// clang-format on

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < std::size(Table); ++i) {
        if (static_cast<std::size_t>(Table[i].operation) != i)
            return false;
    }
    return true;
}
static_assert(isInOrder(), "the operation is the index");

} // namespace

const BusOperation &BusOperation::of(BusRequest::Operation operation)
{
    return Table[static_cast<std::size_t>(operation)];
}

bool BusOperation::isPossible(const BusRequest &request)
{
    if (static_cast<std::size_t>(request.operation) >= std::size(Table))
        return false;
    const bool isForAll = request.id == BroadcastId && of(request.operation).mayGoToAll;
    if (request.id > MaximumId && !isForAll)
        return false;
    if (isForAll && request.operation == Operation::Find && request.framing == Framing::Protocol1)
        return false; // all would answer at once
    return !of(request.operation).carriesData || (!request.data.isEmpty() && request.data.size() <= MaximumData);
}
