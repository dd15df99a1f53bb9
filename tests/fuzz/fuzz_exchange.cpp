#include "serialport/busoperation.h"
#include "serialport/exchange.h"
#include "serialport/replylayout.h"
#include "tests/fuzz/fuzzinput.h"

using wire::Framing;

namespace {

BusRequest makeRequest(FuzzInput &input)
{
    BusRequest request;
    request.operation = static_cast<BusRequest::Operation>(input.byte() % 16);
    request.id = input.byte() % (wire::MaximumId + 1);
    request.address = input.byte();
    request.length = input.byte();
    request.data = input.bytes(64) + 'x';
    return request;
}

QByteArray makeAnswer(FuzzInput &input, const BusRequest &request)
{
    const quint8 id = input.byte() % 4 ? request.id : input.byte();
    const quint8 error = input.byte();
    const QByteArray data =
        input.byte() % 4 ? QByteArray(request.length, static_cast<char>(input.byte())) : input.bytes(130);
    if (input.byte() % 2)
        return wire::protocol2::encodeStatus(id, error, data);
    return wire::protocol1::encode(id, error, data.left(wire::protocol1::MaximumParameters));
}

void checkAnswer(const Exchange &exchange, Exchange::Progress progress)
{
    require(exchange.answer().has_value());
    const wire::Packet &answer = *exchange.answer();
    const int size = exchange.operation().in(answer.framing).answerSize(exchange.request());
    require(answer.id == exchange.request().id);
    if (progress == Exchange::Progress::Answered)
        require(answer.parameters.size() == size);
    else
        require(answer.parameters.isEmpty() && (replylayout::errorByte(answer) & ~wire::AlertBit) != wire::NoError);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    constexpr int MostTransmissions = 3; // both framings, and waiting once for an answer that has begun
    FuzzInput input(bytes, size);
    const BusRequest request = makeRequest(input);
    if (!BusOperation::isPossible(request))
        return 0;
    const Framing first = input.byte() % 2 ? Framing::Protocol1 : Framing::Protocol2;
    const std::optional<Framing> knowledge[] = {std::nullopt, Framing::Protocol1, Framing::Protocol2};
    const auto known = knowledge[input.byte() % 3];
    Exchange exchange(request, first, known, 1 + input.byte() * 10000);

    auto sent = exchange.begin();
    int transmissions = 1;
    while (!input.isUsedUp()) {
        require(sent.patience.count() >= 0);
        const int event = input.byte() % 4;
        const auto next = event == 3 ? exchange.timeOut() : std::nullopt;
        if (next) {
            sent = *next;
            require(++transmissions <= MostTransmissions);
        } else if (event == 3) {
            sent = exchange.begin();
            transmissions = 1;
        }
        const auto progress = event == 0   ? exchange.take(input.bytes(24))
                              : event == 1 ? exchange.take(makeAnswer(input, request))
                              : event == 2 ? exchange.take(sent.packet) // the echo of a half-duplex adapter
                                           : Exchange::Progress::Waiting;
        if (progress != Exchange::Progress::Waiting) {
            checkAnswer(exchange, progress);
            return 0;
        }
    }
    return 0;
}
