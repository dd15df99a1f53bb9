#include "device/uiregisterhelper.h"

#include "device/devicehelper.h"
#include "device/fieldbinding.h"
#include "device/ieditgroup.h"
#include "model/families.h"
#include "model/littleendian.h"

#include <algorithm>

namespace {

bool isWithheldFrom(const QObject *field)
{
    const auto *group = dynamic_cast<const IEditGroup *>(field->parent());
    return group && group->withholdsValues();
}

/** Whether the registers of @p field mean the same in @p family. */
bool isSameIn(const model::Family &family, const model::Field &field)
{
    const model::Field *there = family.field(QLatin1String(field.key));
    return there && there->address == field.address && there->size == field.size;
}

} // namespace

UiRegisterHelper::UiRegisterHelper()
{
    const auto bind = [this](quint8 address, quint8 size, const model::Field *field) {
        const auto handler = [this, address, size, field](qint32 assembled) {
            record(address, size, quint32(assembled));
            if (field)
                pass(*field, quint32(assembled));
        };
        m_bindings.emplace(address, std::make_shared<RegisterItemHelper>(RegisterItemHelper{size, handler}));
    };
    for (const model::Field &field : model::ZelvarV1Family.fields)
        bind(field.address, field.size, &field);
    for (const model::Gap &gap : model::ZelvarV1Family.gaps)
        bind(gap.address, gap.size, nullptr);
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

void UiRegisterHelper::take(const QByteArray &registers, model::RegisterImage::TimePoint when)
{
    if (followsDevice())
        m_image->take(0, registers, when);
}

std::shared_ptr<const model::RegisterImage> UiRegisterHelper::image() const
{
    return m_image;
}

std::optional<quint8> UiRegisterHelper::lastByte(quint8 address) const
{
    const std::shared_ptr<IDevice> source = m_readFrom.lock();
    if (!source || source != DeviceHelper::currentDevice() || !source->hasRegisterMap())
        return std::nullopt;
    return m_image->byte(address);
}

void UiRegisterHelper::assumeWritten(quint8 address, const QByteArray &bytes)
{
    if (m_readFrom.lock() == DeviceHelper::currentDevice())
        m_image->assumeWritten(address, bytes);
}

void UiRegisterHelper::forgetValues()
{
    *m_image = model::RegisterImage();
    m_readFrom.reset();
}

/** Makes the image that of the current device, empty if it was another one's. @return whether there is a device. */
bool UiRegisterHelper::followsDevice()
{
    const std::shared_ptr<IDevice> device = DeviceHelper::currentDevice();
    if (device && m_readFrom.lock() != device) {
        *m_image = model::RegisterImage(&device->family());
        m_readFrom = device;
    }
    return device != nullptr;
}

// Whoever calls a handler by itself, without a poll's whole table before, has read that value.
void UiRegisterHelper::record(quint8 address, quint8 size, quint32 bits)
{
    if (!followsDevice() || m_image->bits(address, size) == bits || !DeviceHelper::currentDevice()->hasRegisterMap())
        return;
    QByteArray bytes(size, '\0');
    model::putLittleEndian(bits, size, reinterpret_cast<quint8 *>(bytes.data()));
    m_image->take(address, bytes, m_image->lastRead());
}

void UiRegisterHelper::pass(const model::Field &field, quint32 bits)
{
    const std::shared_ptr<IDevice> device = DeviceHelper::currentDevice();
    if (!device || (!device->hasRegisterMap() && !isSameIn(device->family(), field)))
        return;
    for (const FieldBinding &binding : fieldBindings(field)) {
        if (device->hasRegisterMap() || device->definesField(QLatin1String(binding.control)))
            showValue(binding.control, binding.shownValue(bits));
    }
}

void UiRegisterHelper::showValue(const char *objectName, qint32 value)
{
    const Tracked<IUnitDataField> field = fieldOf(objectName);
    if (!field.get())
        return;
    // Before the value: the mode locks follow the mode that was shown until now.
    field.get()->applyDependency();
    if (!isWithheldFrom(field.object()))
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
