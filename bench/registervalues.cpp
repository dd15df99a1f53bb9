#include "bench/registervalues.h"

#include "device/pollmap.h"
#include "device/zelvarv1.h"
#include "link/serialhelper.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int FirstRealtimeAddress = 86;
constexpr int LastRealtimeAddress = 97;
constexpr unsigned DirectionBit = 0x8000;
constexpr int BaudRateRegister = 4;
constexpr int BaudRateCount = 11;

struct ChoiceRow
{
    int address;
    int greatest; ///< the values go from 0 to this
};

// What shows no quantity: the entries of the lists, and the boxes of the hardware error.
// clang-format off
constexpr ChoiceRow Choices[] = {
    {6,   4 }, // operating mode
    {26,  1 }, // input mode
    {48,  1 }, // motor
    {49,  1 }, // pending shadow instruction
    {99,  1 }, // moving
    {107, 31}, // hardware error
};
// clang-format on

const ChoiceRow *choiceOf(int address)
{
    const auto found = std::find_if(std::begin(Choices), std::end(Choices),
                                    [address](const ChoiceRow &row) { return row.address == address; });
    return found == std::end(Choices) ? nullptr : found;
}

bool isRealtime(int address)
{
    return address >= FirstRealtimeAddress && address <= LastRealtimeAddress;
}

} // namespace

RegisterValues::RegisterValues() : m_table(TableSize, '\0')
{
    changeAll();
}

void RegisterValues::change(Changing changing)
{
    if (changing == Changing::Nothing)
        return;
    const QByteArray before = m_table;
    changeAll();
    if (changing == Changing::Everything)
        return;
    for (int address = 0; address < TableSize; ++address) {
        if (!isRealtime(address))
            m_table[address] = before[address];
    }
}

void RegisterValues::changeAll()
{
    const ZelvarV1 device;
    for (const pollmap::Item &item : pollmap::Items) {
        if (item.address + item.size > TableSize)
            continue;
        const QString field = QLatin1String(item.field ? item.field : "");
        if (const ChoiceRow *choice = choiceOf(item.address)) {
            changeOne(item.address, item.size, 0, choice->greatest);
        } else if (item.address == BaudRateRegister) {
            int index = 0;
            const auto code = [&index] { return unsigned(SerialHelper::baudRateRegisterValue(index)); };
            do {
                index = int(m_random() % BaudRateCount);
            } while (code() == number(item.address, item.size));
            put(item.address, item.size, code());
        } else if (device.definesField(field)) {
            const FieldLimits limits = device.limits(field);
            changeOne(item.address, item.size, limits.rawMin, limits.rawMax, item.directionField ? DirectionBit : 0);
        } else {
            for (int offset = 0; offset < item.size; ++offset)
                changeOne(item.address + offset, 1, 0, 255);
        }
    }
}

/** Any number of the range but the one that is there; @p flag changes each time. */
void RegisterValues::changeOne(int address, int size, int least, int greatest, unsigned flag)
{
    const unsigned mask = size == 4 ? ~0U : (1U << (8 * size)) - 1;
    // More than a field of its width can hold is never read.
    const int highest = size == 4 ? greatest : std::min(greatest, int(mask));
    std::uniform_int_distribution<int> numbers(least, highest);
    const unsigned before = number(address, size) & ~flag;
    unsigned next = before;
    while (next == before)
        next = unsigned(numbers(m_random)) & mask;
    put(address, size, next | (~number(address, size) & flag));
}

unsigned RegisterValues::number(int address, int size) const
{
    unsigned value = 0;
    for (int i = 0; i < size; ++i)
        value |= unsigned(quint8(m_table[address + i])) << (8 * i);
    return value;
}

void RegisterValues::put(int address, int size, unsigned number)
{
    for (int i = 0; i < size; ++i)
        m_table[address + i] = char(number >> (8 * i));
}
