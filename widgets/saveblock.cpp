#include "widgets/saveblock.h"

#include "device/igroupinputcomponent.h"
#include "device/iunitdatafield.h"
#include "link/serialhelper.h"
#include "model/families.h"
#include "model/littleendian.h"

#include <QWidget>

#include <algorithm>
#include <iterator>

namespace {

/** What @p binding's control contributes to the registers of its field when it has @p value. */
quint32 registerBits(const FieldBinding &binding, int value)
{
    if (binding.kind() == model::FieldKind::BaudRate)
        return quint32(SerialHelper::baudRateRegisterValue(value));
    if (binding.part == FieldBinding::Part::Direction)
        return value > 0 ? binding.mask() : 0;
    return quint32(value) & binding.mask();
}

bool isDirty(const IUnitDataField &field)
{
    const auto *input = dynamic_cast<const IGroupInputComponent *>(&field);
    return input && input->isDirty();
}

} // namespace

SaveBlock::SaveBlock(model::Access access, const char *last)
{
    const auto isPart = [access](const FieldBinding &binding) { return binding.field->access == access; };
    const std::vector<FieldBinding> &all = fieldBindings();
    std::copy_if(all.begin(), all.end(), std::back_inserter(m_bindings), isPart);
    m_firstAddress = m_bindings.front().field->address;
    m_size = model::ZelvarV1Family[last].end() - m_firstAddress;
}

const SaveBlock &SaveBlock::nonVolatile()
{
    static const SaveBlock block(model::Access::NonVolatile, "default_acceleration_profile");
    return block;
}

const SaveBlock &SaveBlock::volatileParameters()
{
    // The servo takes the block over its own values, which it passes over, up to its error status.
    static const SaveBlock block(model::Access::Volatile, "hardware_error_status");
    return block;
}

QByteArray SaveBlock::bytes(const QWidget &view, const LastByte &lastByte) const
{
    QByteArray block(m_size, '\0');
    for (int offset = 0; offset < m_size; ++offset)
        block[offset] = char(lastByte(quint8(m_firstAddress + offset)).value_or(0));

    for (const FieldBinding &binding : m_bindings) {
        const auto *control =
            dynamic_cast<const IUnitDataField *>(view.findChild<QWidget *>(QLatin1String(binding.control)));
        const model::Field &field = *binding.field;
        if (!control || (!isDirty(*control) && lastByte(field.address)))
            continue;
        auto *registers = reinterpret_cast<quint8 *>(block.data()) + (field.address - m_firstAddress);
        const quint32 kept = model::littleEndian(registers, field.size) & ~binding.mask();
        model::putLittleEndian(kept | registerBits(binding, control->value()), field.size, registers);
    }
    return block;
}
