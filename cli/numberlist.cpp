#include "cli/numberlist.h"

#include "cli/failure.h"
#include "model/baudrates.h"
#include "serialport/packet.h"

#include <QRegularExpression>
#include <QStringList>

#include <set>

namespace cli {

namespace {

struct TimeUnit
{
    const char *name;
    double milliseconds;
};
constexpr TimeUnit TimeUnits[] = {{"ms", 1}, {"s", 1000}, {"min", 60000}};

constexpr double LongestDuration = 1e9; ///< ms, more than eleven days

} // namespace

std::vector<int> idsIn(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A(\\d{1,3})(?:-(\\d{1,3}))?\\z"));
    std::set<int> ids;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const auto match = pattern.match(part.trimmed());
        const int first = match.captured(1).toInt();
        const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
        if (!match.hasMatch() || first > last || last > wire::MaximumId)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("\"%1\" is no list of ids; write 3, 1,3 or 0-253").arg(text)};
        for (int id = first; id <= last; ++id)
            ids.insert(id);
    }
    return {ids.begin(), ids.end()};
}

std::vector<int> baudRatesIn(const QString &text)
{
    std::vector<int> rates;
    if (text == QLatin1String("all")) {
        for (const model::BaudRate &row : model::BaudRates)
            rates.push_back(row.bitsPerSecond);
        return rates;
    }
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        const int rate = part.trimmed().toInt();
        if (rate <= 0)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("\"%1\" is no list of baud rates; write 57600,1000000 or all").arg(text)};
        rates.push_back(rate);
    }
    return rates;
}

std::chrono::milliseconds durationIn(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A(\\d+\\.?\\d*|\\.\\d+)\\s*([a-z]*)\\z"));
    const auto match = pattern.match(text.trimmed());
    const QString name = match.captured(2).isEmpty() ? QStringLiteral("s") : match.captured(2);
    for (const TimeUnit &unit : TimeUnits) {
        const double duration = match.captured(1).toDouble() * unit.milliseconds;
        if (match.hasMatch() && name == QLatin1String(unit.name) && duration >= 1 && duration <= LongestDuration)
            return std::chrono::milliseconds(qint64(duration));
    }
    throw Failure{ExitStatus::Usage, QStringLiteral("\"%1\" is no time; write 10s, 500ms or 2min").arg(text)};
}

} // namespace cli
