#include "model/family.h"

#include <algorithm>

namespace model {

const Field *Family::field(QLatin1String key) const
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [key](const Field &row) { return QLatin1String(row.key) == key; });
    return found == fields.end() ? nullptr : found;
}

const Field *Family::fieldAt(int address) const
{
    const auto found = std::find_if(fields.begin(), fields.end(), [address](const Field &row) {
        return address >= row.address && address < row.end();
    });
    return found == fields.end() ? nullptr : found;
}

const Field &Family::operator[](const char *key) const
{
    const Field *found = field(QLatin1String(key));
    Q_ASSERT(found);
    return *found;
}

} // namespace model
