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
    gains.model = quint16(*image.raw(QLatin1String("model_number")));
    for (const model::Field &field : family.fields) {
        const model::Field *inForce = fieldInForce(family, field);
        if (inForce && field.access == model::Access::NonVolatile)
            gains.values.push_back({&field, *image.raw(*inForce)});
    }
    return gains;
}

std::vector<Pair> differingGains(const model::RegisterImage &image)
{
    std::vector<Pair> different;
    for (const Value &value : tunedGains(image).values) {
        const Pair pair{value.field, *image.raw(*value.field), value.raw};
        if (!pair.isEqual())
            different.push_back(pair);
    }
    return different;
}

} // namespace profile
