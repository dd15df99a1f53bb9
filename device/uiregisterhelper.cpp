#include "device/uiregisterhelper.h"

#include "device/devicehelper.h"
#include "device/ieditgroup.h"
#include "device/pollmap.h"

#include <algorithm>

namespace {

constexpr qint32 DirectionMask = 1 << pollmap::DirectionBit;

// Model number and firmware version; everything after them differs between the models.
constexpr quint8 RegistersOfAllModels[] = {0, 2};

bool isCommonToAllModels(quint8 address)
{
    return std::find(std::begin(RegistersOfAllModels), std::end(RegistersOfAllModels), address) !=
           std::end(RegistersOfAllModels);
}

qint32 narrowed(pollmap::RawType type, qint32 assembled)
{
    switch (type) {
    case pollmap::U8:
        return static_cast<quint8>(assembled);
    case pollmap::S16:
        return static_cast<qint16>(assembled);
    case pollmap::U16:
        return static_cast<quint16>(assembled);
    case pollmap::S32:
    case pollmap::U32:
        break;
    }
    return assembled;
}

bool isBeingEdited(const QObject *field)
{
    const auto *group = dynamic_cast<const IEditGroup *>(field->parent());
    return group && group->isEditing();
}

} // namespace

UiRegisterHelper::UiRegisterHelper()
{
    for (const pollmap::Item &item : pollmap::Items) {
        const auto handler = [this, &item](qint32 assembled) { receive(item, assembled); };
        m_bindings.emplace(item.address, std::make_shared<RegisterItemHelper>(RegisterItemHelper{item.size, handler}));
    }
}

UiRegisterHelper::~UiRegisterHelper() = default;

const RegisterBindings &UiRegisterHelper::bindings() const
{
    return m_bindings;
}

void UiRegisterHelper::registerField(IUnitDataField *field)
{
    const Tracked<IUnitDataField> tracked(dynamic_cast<QObject *>(field));
    if (!tracked.get())
        return;
    Fields &fields = m_fields[field->objectName()];
    const auto isGone = [](const Tracked<IUnitDataField> &candidate) { return !candidate.get(); };
    fields.erase(std::remove_if(fields.begin(), fields.end(), isGone), fields.end());
    fields.push_back(tracked);
}

std::optional<quint8> UiRegisterHelper::lastByte(quint8 address) const
{
    const std::shared_ptr<IDevice> source = m_readFrom.lock();
    const auto found = m_lastBytes.find(address);
    if (!source || source != DeviceHelper::currentDevice() || found == m_lastBytes.end())
        return std::nullopt;
    return found->second;
}

void UiRegisterHelper::assumeWritten(quint8 address, const QByteArray &bytes)
{
    for (int offset = 0; offset < bytes.size(); ++offset) {
        const auto written = quint8(address + offset);
        if (lastByte(written))
            m_lastBytes[written] = quint8(bytes[offset]);
    }
}

void UiRegisterHelper::forgetValues()
{
    m_lastBytes.clear();
    m_readFrom.reset();
}

void UiRegisterHelper::receive(const pollmap::Item &item, qint32 assembled)
{
    const std::shared_ptr<IDevice> device = DeviceHelper::currentDevice();
    if (!device)
        return;
    if (device->hasRegisterMap())
        recordBytes(device, item, static_cast<quint32>(assembled));
    else if (!isCommonToAllModels(item.address))
        return;
    show(item, narrowed(item.type, assembled));
}

void UiRegisterHelper::recordBytes(const std::shared_ptr<IDevice> &device, const pollmap::Item &item, quint32 assembled)
{
    if (m_readFrom.lock() != device) {
        forgetValues();
        m_readFrom = device;
    }
    for (unsigned offset = 0; offset < item.size; ++offset) {
        const unsigned address = item.address + offset;
        // What is polled past the end of the table was never in the reply.
        if (address < device->controlTableSize())
            m_lastBytes[quint8(address)] = quint8(assembled >> (8 * offset));
    }
}

void UiRegisterHelper::show(const pollmap::Item &item, qint32 value)
{
    if (item.address == pollmap::HardwareErrorRegister)
        showHardwareErrors(value);
    else if (item.directionField)
        showMagnitudeAndDirection(item, value);
    else if (item.field)
        showValue(item.field, value);
}

void UiRegisterHelper::showMagnitudeAndDirection(const pollmap::Item &item, qint32 value)
{
    showValue(item.field, value & ~DirectionMask);
    showValue(item.directionField, (value & DirectionMask) >> pollmap::DirectionBit);
}

void UiRegisterHelper::showHardwareErrors(qint32 status)
{
    for (const pollmap::HardwareError &error : pollmap::HardwareErrors) {
        if (error.field)
            showValue(error.field, status & (1 << error.bit));
    }
}

void UiRegisterHelper::showValue(const char *objectName, qint32 value)
{
    const Tracked<IUnitDataField> field = fieldOf(objectName);
    if (!field.get())
        return;
    // Before the value: the mode locks follow the mode that was shown until now.
    field.get()->applyDependency();
    if (!isBeingEdited(field.object()))
        field.get()->setValue(value);
}

Tracked<IUnitDataField> UiRegisterHelper::fieldOf(const char *objectName) const
{
    const auto found = m_fields.find(QLatin1String(objectName));
    if (found == m_fields.end())
        return {};
    const Fields &fields = found->second;
    const auto latest =
        std::find_if(fields.rbegin(), fields.rend(), [](const Tracked<IUnitDataField> &field) { return field.get(); });
    return latest == fields.rend() ? Tracked<IUnitDataField>() : *latest;
}
