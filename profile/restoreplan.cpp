#include "profile/restoreplan.h"

#include "model/littleendian.h"

#include <algorithm>

namespace profile {

namespace {

/** A field that keeps another one from being greater. In each table the limit stands first. */
struct Limit
{
    const char *limit;
    const char *limited;
};
// clang-format off
constexpr Limit Limits[] = {
    {"angular_velocity_limit", "default_angular_velocity_profile"},
    {"acceleration_limit",     "default_acceleration_profile"    },
};
// clang-format on

/** What is written later; inside a stage it goes by address. */
enum class Stage {
    Ordinary,
    LoweredLimit,
    Answers, ///< a servo may not answer writes afterwards
    Address,
};

bool hasKey(const Pair &pair, const char *key)
{
    return qstrcmp(pair.field->key, key) == 0;
}

bool isLoweredLimit(const Pair &pair, const std::vector<Pair> &differences)
{
    const auto isOf = [&](const Limit &row) {
        const auto isLimited = [&row](const Pair &other) { return hasKey(other, row.limited); };
        return hasKey(pair, row.limit) && std::any_of(differences.begin(), differences.end(), isLimited);
    };
    return pair.file < pair.servo && std::any_of(std::begin(Limits), std::end(Limits), isOf);
}

Stage stageOf(const Pair &pair, const std::vector<Pair> &differences)
{
    if (isAddress(*pair.field))
        return Stage::Address;
    if (hasKey(pair, "status_return_level"))
        return Stage::Answers;
    return isLoweredLimit(pair, differences) ? Stage::LoweredLimit : Stage::Ordinary;
}

} // namespace

std::vector<Pair> Comparison::differences() const
{
    std::vector<Pair> different;
    std::copy_if(pairs.begin(), pairs.end(), std::back_inserter(different),
                 [](const Pair &pair) { return !pair.isEqual(); });
    return different;
}

Comparison compare(const Profile &servo, const Profile &file, const std::vector<const model::Field *> &chosen)
{
    Comparison comparison;
    for (const model::Field *field : chosen) {
        const auto one = servo.raw(*field);
        const auto other = file.raw(*field);
        if (one && other)
            comparison.pairs.push_back({field, *one, *other});
        else
            comparison.missing.push_back(field);
    }
    return comparison;
}

QByteArray Block::bytes() const
{
    QByteArray bytes;
    for (const Pair &pair : fields) {
        QByteArray own(pair.field->size, '\0');
        model::putLittleEndian(model::bitsOf(*pair.field, pair.file), pair.field->size,
                               reinterpret_cast<quint8 *>(own.data()));
        bytes += own;
    }
    return bytes;
}

std::vector<Block> restorePlan(const Comparison &comparison)
{
    const std::vector<Pair> differences = comparison.differences();
    std::vector<Block> blocks;
    for (const Stage stage : {Stage::Ordinary, Stage::LoweredLimit, Stage::Answers, Stage::Address}) {
        bool isNewStage = true;
        for (const Pair &pair : differences) {
            if (stageOf(pair, differences) != stage)
                continue;
            if (isNewStage || blocks.back().fields.back().field->end() != pair.field->address)
                blocks.emplace_back();
            blocks.back().fields.push_back(pair);
            isNewStage = false;
        }
    }
    return blocks;
}

} // namespace profile
