#include "profile/tunedgains.h"

namespace profile {

namespace {

const QLatin1String DefaultPrefix("default_");

/** The field in force that a restart takes from @p field; null when @p field is no such default. */
const model::Field *fieldInForce(const model::Family &family, const model::Field &field)
{
    const QLatin1String key(field.key);
    return key.startsWith(DefaultPrefix) ? family.field(key.mid(DefaultPrefix.size())) : nullptr;
}

} // namespace

Profile tunedGains(const model::RegisterImage &image)
{
    Profile gains;
    gains.isPartial = true;
    const model::Family &family = image.family();
    if (!image.isKnown(0, family.tableSize))
        return gains;
    const Profile stored = Profile::of(image, {});
    gains.model = stored.model;
    gains.firmware = stored.firmware;
    gains.id = stored.id;
    for (const model::Field *field : nonVolatileFields(family)) {
        if (const model::Field *inForce = fieldInForce(family, *field))
            gains.values.push_back({field, *image.raw(*inForce)});
    }
    return gains;
}

std::vector<Pair> differingGains(const model::RegisterImage &image)
{
    const Profile gains = tunedGains(image);
    if (gains.values.empty())
        return {};
    std::vector<const model::Field *> chosen;
    for (const Value &value : gains.values)
        chosen.push_back(value.field);
    return compare(Profile::of(image, {}), gains, chosen).differences();
}

} // namespace profile
