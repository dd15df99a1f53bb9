#include "serialport/protocol2.h"
#include "tests/fuzz/codecfuzz.h"

namespace {

QByteArray encoded(quint8 id, quint8 instruction, quint8 error, const QByteArray &parameters)
{
    return instruction == wire::Status ? wire::protocol2::encodeStatus(id, error, parameters)
                                       : wire::protocol2::encodeInstruction(id, instruction, parameters);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    codecfuzz::run<wire::protocol2::Parser>(
        FuzzInput(bytes, size),
        [](FuzzInput &input) {
            const quint8 id = input.byte();
            const quint8 instruction = input.byte() % 2 ? input.byte() : quint8(wire::Status);
            const quint8 error = input.byte();
            return encoded(id, instruction, error, input.bytes(140));
        },
        [](const wire::Packet &packet) {
            // Another sender may fill its packets up to the bound with bytes that needed no stuffing.
            return packet.parameters.size() > wire::protocol2::MaximumParameters
                       ? packet.raw
                       : encoded(packet.id, packet.instruction, packet.error, packet.parameters);
        });
    return 0;
}
