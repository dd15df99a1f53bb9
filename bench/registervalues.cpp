#include "bench/registervalues.h"

#include "device/zelvarv1.h"
#include "model/baudrates.h"
#include "model/families.h"
#include "model/littleendian.h"

#include <algorithm>
#include <iterator>

namespace {

bool isRealtime(const model::Field &field)
{
    return field.shown.control && QLatin1String(field.key).startsWith(QLatin1String("actual_"));
}

/** What the control of @p field shows of its registers' values. */
model::Range shownRange(const model::Field &field)
{
    static const ZelvarV1 device;
    const QString control = QLatin1String(field.shown.control);
    const bool isLimited = device.definesField(control) && !model::isChoice(field.kind);
    return isLimited ? device.limits(control) : field.range;
}

quint32 flagsOf(const model::Field &field)
{
    quint32 all = 0;
    for (const model::Flag &flag : field.flags)
        all |= 1U << flag.bit;
    return all;
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
    for (const model::Field &field : model::ZelvarV1Family.fields) {
        if (!isRealtime(field))
            m_table.replace(field.address, field.size, before.mid(field.address, field.size));
    }
}

void RegisterValues::changeAll()
{
    for (const model::Field &field : model::ZelvarV1Family.fields) {
        if (field.kind == model::FieldKind::BaudRate) {
            changeBaudRate(field);
        } else if (!field.flags.isEmpty()) {
            changeOne(field, 0, int(flagsOf(field)));
        } else {
            const model::Range range = shownRange(field);
            changeOne(field, range.rawMin, range.rawMax);
        }
    }
}

void RegisterValues::changeBaudRate(const model::Field &field)
{
    const quint32 before = number(field);
    quint32 next = before;
    while (next == before)
        next = model::BaudRates[m_random() % std::size(model::BaudRates)].code;
    put(field, next);
}

/** Any number of the range but the one that is there; the direction changes each time. */
void RegisterValues::changeOne(const model::Field &field, int least, int greatest)
{
    const quint32 mask = field.size == 4 ? ~0U : (1U << (8 * field.size)) - 1;
    // More than a field of its width can hold is never read.
    const int highest = field.size == 4 ? greatest : std::min(greatest, int(mask));
    std::uniform_int_distribution<int> numbers(least, highest);
    const quint32 direction = field.directionMask();
    const quint32 before = number(field) & ~direction;
    quint32 next = before;
    while (next == before)
        next = quint32(numbers(m_random)) & mask;
    put(field, next | (~number(field) & direction));
}

quint32 RegisterValues::number(const model::Field &field) const
{
    return model::littleEndian(reinterpret_cast<const quint8 *>(m_table.constData()) + field.address, field.size);
}

void RegisterValues::put(const model::Field &field, quint32 number)
{
    model::putLittleEndian(number, field.size, reinterpret_cast<quint8 *>(m_table.data()) + field.address);
}
