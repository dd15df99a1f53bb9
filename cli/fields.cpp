#include "cli/fields.h"

#include "cli/failure.h"
#include "model/families.h"

#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace cli {

namespace {

/** How many letters have to be put in, left out or replaced to make @p other of @p one. */
int distance(const QString &one, const QString &other)
{
    std::vector<int> row(std::size_t(other.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < one.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < other.size(); ++j) {
            const auto at = std::size_t(j);
            const int replaced = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[at + 1];
            row[at + 1] = std::min({replaced, row[at] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::vector<const model::Field *> matching(const model::Family &family, const QString &pattern)
{
    const QRegularExpression expression(QRegularExpression::wildcardToRegularExpression(pattern));
    std::vector<const model::Field *> fields;
    for (const model::Field &field : family.fields) {
        if (expression.match(QLatin1String(field.key)).hasMatch())
            fields.push_back(&field);
    }
    return fields;
}

/** The key that @p slip was probably meant to be; empty when none is near. */
QString nearest(const QString &slip, const std::vector<const model::Family *> &among)
{
    QString best;
    int least = std::max(2, slip.size() / 3) + 1;
    for (const model::Family *family : among) {
        for (const model::Field &field : family->fields) {
            const QString key = QLatin1String(field.key);
            const bool isBeginning = slip.size() >= 3 && key.startsWith(slip);
            // A slip in a key that is not written to its end is one, too, but less likely.
            const int away = isBeginning ? 0 : std::min(distance(slip, key), distance(slip, key.left(slip.size())) + 1);
            if (away < least) {
                least = away;
                best = key;
            }
        }
    }
    return best;
}

} // namespace

const std::vector<const model::Family *> &families()
{
    static const std::vector<const model::Family *> all{&model::ZelvarV1Family, &model::DynamixelAx12Family};
    return all;
}

std::vector<const model::Field *> matchingFields(const model::Family &family, const QStringList &patterns)
{
    std::vector<const model::Field *> chosen;
    for (const QString &pattern : patterns.isEmpty() ? QStringList{QStringLiteral("*")} : patterns) {
        for (const model::Field *field : matching(family, pattern)) {
            if (std::find(chosen.begin(), chosen.end(), field) == chosen.end())
                chosen.push_back(field);
        }
    }
    return chosen;
}

std::vector<const model::Field *> chosenFields(const model::Family &family, const QStringList &patterns)
{
    for (const QString &pattern : patterns) {
        if (matching(family, pattern).empty())
            throw Failure{ExitStatus::Usage, unknownField(pattern, {&family})};
    }
    return matchingFields(family, patterns);
}

void checkPatterns(const QStringList &patterns)
{
    for (const QString &pattern : patterns) {
        const auto isKnownTo = [&pattern](const model::Family *family) { return !matching(*family, pattern).empty(); };
        if (std::none_of(families().begin(), families().end(), isKnownTo))
            throw Failure{ExitStatus::Usage, unknownField(pattern, families())};
    }
}

QString unknownField(const QString &key, const std::vector<const model::Family *> &among)
{
    const QString whose =
        among.size() == 1 ? QStringLiteral(" of a %1").arg(QLatin1String(among.front()->name)) : QString();
    const QString meant = nearest(key, among);
    const QString hint = meant.isEmpty() ? QString() : QStringLiteral("did you mean \"%1\"? ").arg(meant);
    return QStringLiteral("there is no field \"%1\"%2; %3\"zelvar-servo get --list\" tells all").arg(key, whose, hint);
}

} // namespace cli
