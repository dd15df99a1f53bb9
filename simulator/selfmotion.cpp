#include "simulator/selfmotion.h"

#include <QStringList>

#include <cmath>

namespace simulator {

namespace {

constexpr double Amplitude = 0.5; ///< rad
constexpr double TwoPi = 6.28318530717958647692;
constexpr double SlowestSweep = 0.1; ///< Hz
constexpr double FastestSweep = 2.0; ///< Hz
constexpr double LongestPeriod = 3600;

struct KindRow
{
    SelfMotion::Kind kind;
    const char *name;
    double period; ///< seconds, unless the user gives one
};

// clang-format off
constexpr KindRow Kinds[] = {
    {SelfMotion::Kind::Sine,  "sine",  4 },
    {SelfMotion::Kind::Step,  "step",  6 },
    {SelfMotion::Kind::Sweep, "sweep", 20},
};
// clang-format on

double sweepTurns(double seconds, double period)
{
    return SlowestSweep * seconds + (FastestSweep - SlowestSweep) * seconds * seconds / (2 * period);
}

} // namespace

double SelfMotion::angleAt(SimulationTime time) const
{
    const double seconds = std::fmod(std::chrono::duration<double>(time).count(), period);
    switch (kind) {
    case Kind::Sine:
        return Amplitude * std::sin(TwoPi * seconds / period);
    case Kind::Step:
        return seconds < period / 2 ? Amplitude : -Amplitude;
    case Kind::Sweep:
        return Amplitude * std::sin(TwoPi * sweepTurns(seconds, period));
    }
    return 0;
}

std::optional<SelfMotionChoice> SelfMotionChoice::fromText(const QString &text, QString *error)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    bool hasId = false;
    bool hasPeriod = true;
    const int id = parts.value(1).toInt(&hasId);
    const double given = parts.size() > 2 ? parts[2].toDouble(&hasPeriod) : 0;
    const bool isPeriod = parts.size() < 3 || (hasPeriod && given > 0 && given <= LongestPeriod);
    for (const KindRow &row : Kinds) {
        if (parts[0] == QLatin1String(row.name) && parts.size() <= 3 && hasId && id >= 0 && id <= wire::MaximumId &&
            isPeriod)
            return SelfMotionChoice{{row.kind, parts.size() > 2 ? given : row.period}, quint8(id)};
    }
    *error = QStringLiteral("motion \"%1\": expected sine:ID, step:ID or sweep:ID, and perhaps :SECONDS").arg(text);
    return std::nullopt;
}

} // namespace simulator
