#include "profile/profile.h"

#include "model/families.h"

#include <algorithm>

namespace profile {

namespace {

const QLatin1String IdKey("id");
const QLatin1String BaudRateKey("baud_rate");
const QLatin1String HomeKey("home_position_offset");

} // namespace

const model::Family &Profile::family() const
{
    return model::familyOf(model);
}

std::optional<qint32> Profile::raw(const model::Field &field) const
{
    const auto found =
        std::find_if(values.begin(), values.end(), [&field](const Value &value) { return value.field == &field; });
    return found == values.end() ? std::nullopt : std::optional<qint32>(found->raw);
}

Profile Profile::of(const model::RegisterImage &image, const QDateTime &time)
{
    Profile profile;
    profile.model = quint16(image.raw(QLatin1String("model_number")).value_or(0));
    profile.firmware = quint8(image.raw(QLatin1String("firmware_version")).value_or(0));
    profile.id = quint8(image.raw(IdKey).value_or(0));
    profile.time = time.toUTC();
    for (const model::Field *field : nonVolatileFields(image.family()))
        profile.values.push_back({field, image.raw(*field).value_or(0)});
    const Span span = nonVolatileRegisters(image.family());
    for (int address = span.address; address < span.address + span.size; ++address)
        profile.bytes.append(char(image.byte(address).value_or(0)));
    return profile;
}

std::vector<const model::Field *> nonVolatileFields(const model::Family &family)
{
    std::vector<const model::Field *> fields;
    for (const model::Field &field : family.fields) {
        if (field.access == model::Access::NonVolatile)
            fields.push_back(&field);
    }
    return fields;
}

Span nonVolatileRegisters(const model::Family &family)
{
    const std::vector<const model::Field *> fields = nonVolatileFields(family);
    const int first = fields.front()->address;
    return {first, fields.back()->end() - first};
}

bool isAddress(const model::Field &field)
{
    const QLatin1String key(field.key);
    return key == IdKey || key == BaudRateKey;
}

bool belongsToOneServo(const model::Field &field)
{
    return isAddress(field) || QLatin1String(field.key) == HomeKey;
}

} // namespace profile
