#include "cli/profilecommands.h"

#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/fields.h"
#include "cli/values.h"
#include "profile/profilefile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace cli {

using profile::Comparison;
using profile::Pair;
using profile::Profile;

namespace {

constexpr int KeyWidth = 36;
constexpr int ValueWidth = 18;

/** Throws a Failure where @p path has something that @p kept would take the place of: other values, or no values at
 * all.
 */
void checkReplacement(const QString &path, const Profile &kept)
{
    if (!QFileInfo::exists(path))
        return;
    const auto old = profile::readFile(path).profile;
    if (old && old->model == kept.model && old->bytes == kept.bytes)
        return;
    throw Failure{ExitStatus::Usage,
                  QStringLiteral("%1 has something else than the servo has now; choose another name, "
                                 "or add --replace")
                      .arg(path)};
}

ExitStatus backUp(Context &context, int id, const QString &place, QJsonObject &answer)
{
    const Profile kept = profileOf(context, id);
    const QString path = QFileInfo(place).isDir() ? QDir(place).filePath(profile::proposedName(kept)) : place;
    if (!context.options().isReplacing)
        checkReplacement(path, kept);
    const auto result = profile::writeFile(path, kept);
    if (!result.isDone())
        throw Failure{ExitStatus::Usage, QStringLiteral("%1 cannot be written: %2").arg(path, result.text)};
    answer.insert(QStringLiteral("family"), QLatin1String(kept.family().name));
    answer.insert(QStringLiteral("file"), path);
    context.output().line(QStringLiteral("%1: %2 fields kept in %3")
                              .arg(context.bus().nameOf(id), QString::number(kept.values.size()), path));
    return ExitStatus::Done;
}

/** The fields that either has. */
std::vector<const model::Field *> allFields(const Profile &one, const Profile &other)
{
    std::vector<const model::Field *> fields;
    for (const model::Field *field : profile::nonVolatileFields(one.family())) {
        if (one.raw(*field) || other.raw(*field))
            fields.push_back(field);
    }
    return fields;
}

/** What of a servo is compared with @p file: all that the file has, but of several servos not what is each one's own.
 */
std::vector<const model::Field *> comparedWith(const Profile &file, const Context &context)
{
    const Options &options = context.options();
    if (!options.only.isEmpty())
        return askedFor(options, file.family());
    std::vector<const model::Field *> fields;
    for (const profile::Value &value : file.values) {
        if (options.ids.size() < 2 || !profile::belongsToOneServo(*value.field))
            fields.push_back(value.field);
    }
    return fields;
}

QStringList keysOf(const std::vector<const model::Field *> &fields)
{
    QStringList keys;
    for (const model::Field *field : fields)
        keys.append(QLatin1String(field->key));
    return keys;
}

ExitStatus judge(Context &context, const Comparison &comparison, const QString &names, QJsonObject &answer)
{
    const std::vector<Pair> differences = comparison.differences();
    const QStringList missing = keysOf(comparison.missing);
    const auto compared = int(comparison.pairs.size());
    const auto different = int(differences.size());
    print(context, answer.value(QLatin1String("id")).toInt(), differences);
    for (const QString &key : missing)
        context.output().line(key.leftJustified(KeyWidth) + QStringLiteral("one of them does not have it"));
    context.output().line(QStringLiteral("%1: compared %2, equal %3, different %4, missing %5")
                              .arg(names)
                              .arg(compared)
                              .arg(compared - different)
                              .arg(different)
                              .arg(missing.size()));
    answer.insert(QStringLiteral("fields"), fieldObjects(differences, context.options().unitOf));
    answer.insert(QStringLiteral("counts"), QJsonObject{{QStringLiteral("compared"), compared},
                                                        {QStringLiteral("equal"), compared - different},
                                                        {QStringLiteral("missing"), missing.size()}});
    return differences.empty() && missing.isEmpty() ? ExitStatus::Done : ExitStatus::Different;
}

} // namespace

Profile loadProfile(const QString &path)
{
    const profile::Reading reading = profile::readFile(path);
    for (const QString &edit : reading.edits)
        Output::tell(QStringLiteral("%1: %2").arg(path, edit));
    if (!reading.profile)
        throw Failure{ExitStatus::Usage, QStringLiteral("%1: %2").arg(path, reading.error)};
    return *reading.profile;
}

Profile profileOf(Context &context, int id)
{
    return Profile::of(context.bus().load(id).image, QDateTime::currentDateTimeUtc());
}

void checkModels(const Profile &one, const QString &oneName, const Profile &other, const QString &otherName)
{
    if (one.model == other.model) {
        if (one.firmware && other.firmware && *one.firmware != *other.firmware)
            Output::tell(QStringLiteral("%1 is of firmware %2, but %3 is of firmware %4")
                             .arg(oneName)
                             .arg(*one.firmware)
                             .arg(otherName)
                             .arg(*other.firmware));
        return;
    }
    const auto described = [](const Profile &profile, const QString &name) {
        return QStringLiteral("%1 is of a %2, model %3")
            .arg(name, QLatin1String(profile.family().name), QString::number(profile.model));
    };
    throw Failure{ExitStatus::Usage,
                  QStringLiteral("%1, but %2").arg(described(one, oneName), described(other, otherName))};
}

std::vector<const model::Field *> askedFor(const Options &options, const model::Family &family)
{
    std::vector<const model::Field *> fields = chosenFields(family, options.only);
    const auto isKept = [](const model::Field *field) { return field->access == model::Access::NonVolatile; };
    if (std::none_of(fields.begin(), fields.end(), isKept))
        throw Failure{ExitStatus::Usage, QStringLiteral("files keep non-volatile fields only, and %1 is none")
                                             .arg(options.only.join(QLatin1String(", ")))};
    fields.erase(std::stable_partition(fields.begin(), fields.end(), isKept), fields.end());
    std::sort(fields.begin(), fields.end(),
              [](const model::Field *one, const model::Field *other) { return one->address < other->address; });
    return fields;
}

QJsonObject fieldObject(const Pair &pair, const recording::UnitChoice &unitOf)
{
    QJsonObject object{{QStringLiteral("value"), valueObject(*pair.field, pair.servo, unitOf)},
                       {QStringLiteral("wanted"), valueObject(*pair.field, pair.file, unitOf)},
                       {QStringLiteral("raw"), pair.servo}};
    const QString unit = unitText(pair.field->kind, unitOf);
    if (!unit.isEmpty())
        object.insert(QStringLiteral("unit"), unit);
    return object;
}

QJsonObject fieldObjects(const std::vector<Pair> &pairs, const recording::UnitChoice &unitOf)
{
    QJsonObject fields;
    for (const Pair &pair : pairs)
        fields.insert(QLatin1String(pair.field->key), fieldObject(pair, unitOf));
    return fields;
}

void print(Context &context, int id, const std::vector<Pair> &pairs)
{
    const Options &options = context.options();
    const QString prefix = options.ids.size() > 1 ? QStringLiteral("%1: ").arg(id) : QString();
    for (const Pair &pair : pairs) {
        const QString key = QLatin1String(pair.field->key);
        context.output().line(prefix + key.leftJustified(KeyWidth) +
                              valueText(*pair.field, pair.servo, options.unitOf).leftJustified(ValueWidth) +
                              QLatin1Char(' ') + valueText(*pair.field, pair.file, options.unitOf));
    }
}

ExitStatus backUpServos(Context &context)
{
    const QString place = context.options().words.front();
    const std::vector<int> ids = context.servosToRead();
    if (ids.size() > 1 && !QFileInfo(place).isDir())
        throw Failure{ExitStatus::Usage,
                      QStringLiteral("a file keeps one servo; for several give a folder in place of %1").arg(place)};
    return context.forEach(ids, [&](int id, QJsonObject &answer) { return backUp(context, id, place, answer); });
}

ExitStatus showDifferences(Context &context)
{
    const QStringList &paths = context.options().words;
    const Profile file = loadProfile(paths.back());
    if (paths.size() > 1) {
        const Profile other = loadProfile(paths.front());
        checkModels(other, paths.front(), file, paths.back());
        const bool isAll = context.options().only.isEmpty();
        const auto fields = isAll ? allFields(other, file) : askedFor(context.options(), file.family());
        return judge(context, profile::compare(other, file, fields), paths.join(QLatin1String(", ")), context.answer());
    }
    return context.forEach(context.servosToRead(), [&](int id, QJsonObject &answer) {
        const Profile servo = profileOf(context, id);
        const QString name = context.bus().nameOf(id);
        checkModels(file, paths.back(), servo, name);
        answer.insert(QStringLiteral("family"), QLatin1String(servo.family().name));
        return judge(context, profile::compare(servo, file, comparedWith(file, context)),
                     name + QLatin1String(", ") + paths.back(), answer);
    });
}

} // namespace cli
