#include "serialport/protocol1.h"
#include "tests/fuzz/codecfuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    codecfuzz::run<wire::protocol1::Parser>(
        FuzzInput(bytes, size),
        [](FuzzInput &input) {
            const quint8 id = input.byte() % 0xFF;
            const quint8 code = input.byte();
            return wire::protocol1::encode(id, code, input.bytes(60));
        },
        [](const wire::Packet &packet) {
            return wire::protocol1::encode(packet.id, packet.instruction, packet.parameters);
        });
    return 0;
}
