#include "device/fieldbinding.h"

#include "model/families.h"
#include "model/registerimage.h"

#include <algorithm>
#include <map>

namespace {

void bind(const model::Field &field, std::vector<FieldBinding> &bindings)
{
    using Part = FieldBinding::Part;
    const model::Shown &shown = field.shown;
    if (shown.control)
        bindings.push_back({shown.control, &field, shown.direction ? Part::Magnitude : Part::Value});
    if (shown.direction)
        bindings.push_back({shown.direction, &field, Part::Direction, field.encoding.directionBit});
    for (const model::Flag &flag : field.flags) {
        if (flag.control)
            bindings.push_back({flag.control, &field, Part::Flag, flag.bit});
    }
}

std::map<QString, const FieldBinding *> bindingsByControl()
{
    std::map<QString, const FieldBinding *> byControl;
    for (const FieldBinding &binding : fieldBindings())
        byControl.emplace(QLatin1String(binding.control), &binding);
    return byControl;
}

} // namespace

model::FieldKind FieldBinding::kind() const
{
    if (part == Part::Direction)
        return model::FieldKind::Direction;
    return part == Part::Flag ? model::FieldKind::PlainValue : field->kind;
}

quint32 FieldBinding::mask() const
{
    switch (part) {
    case Part::Direction:
    case Part::Flag:
        return quint32(1) << bit;
    case Part::Magnitude:
        return ~field->directionMask();
    case Part::Value:
        break;
    }
    return ~quint32(0);
}

qint32 FieldBinding::shownValue(quint32 bits) const
{
    const quint32 own = bits & mask();
    if (part == Part::Value)
        return model::rawValue(*field, own);
    return qint32(part == Part::Direction ? own >> bit : own);
}

const std::vector<FieldBinding> &fieldBindings()
{
    static const std::vector<FieldBinding> bindings = [] {
        std::vector<FieldBinding> all;
        for (const model::Field &field : model::ZelvarV1Family.fields)
            bind(field, all);
        return all;
    }();
    return bindings;
}

model::Rows<FieldBinding> fieldBindings(const model::Field &field)
{
    const auto isBefore = [](const FieldBinding &binding, int address) { return binding.field->address < address; };
    const std::vector<FieldBinding> &all = fieldBindings();
    const auto first = std::lower_bound(all.begin(), all.end(), int(field.address), isBefore);
    const auto last = std::lower_bound(first, all.end(), field.end(), isBefore);
    return {all.data() + (first - all.begin()), std::size_t(last - first)};
}

const FieldBinding *fieldBinding(const QString &objectName)
{
    static const std::map<QString, const FieldBinding *> byControl = bindingsByControl();
    const auto found = byControl.find(objectName);
    return found == byControl.end() ? nullptr : found->second;
}
