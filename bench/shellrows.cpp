#include "bench/shellrows.h"

#include "tests/support/simulatorprocess.h"

#include <QProcess>
#include <QStringList>

#include <algorithm>

namespace {

constexpr double MicrosecondsPerMillisecond = 1000.0;
const QString Program = QStringLiteral(ZELVAR_SERVO);
const QString BareProgram = QStringLiteral(ZELVAR_BENCH_BARE_GET);

/** Milliseconds from the start of @p program to its end. */
double runTime(const QString &program, const QStringList &arguments)
{
    const double begin = wallTime();
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    const double milliseconds = (wallTime() - begin) / MicrosecondsPerMillisecond;
    if (process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return milliseconds;
}

Figure scanFigure(const SimulatorProcess &bus, const QString &bauds, const QString &name, double limit)
{
    const double milliseconds = runTime(
        Program, {QStringLiteral("scan"), QStringLiteral("--port"), bus.name(), QStringLiteral("--bauds"), bauds});
    return Figure::absolute(name, milliseconds / 1000.0, QStringLiteral("s"), limit);
}

} // namespace

Figures shellGet(const Rounds &rounds)
{
    const SimulatorProcess bus({QStringLiteral("--servo"), QStringLiteral("zelvar:1")});
    const QStringList get{QStringLiteral("get"), QStringLiteral("--port"), bus.name(), QStringLiteral("--id"),
                          QStringLiteral("1")};
    Comparison time;
    for (int i = 0; i < rounds.starts; ++i) {
        time.ours.add(runTime(Program, get));
        time.baseline.add(runTime(BareProgram, {bus.device()}));
    }
    return {Figure::atMost(QStringLiteral("zelvar-servo get, the whole table"), time.ours.median(),
                           time.baseline.median(), QStringLiteral("ms"), 1.7)};
}

Figures shellMonitor(const Rounds &rounds)
{
    constexpr double Period = 10.0; // ms
    constexpr double Percent = 100.0;
    constexpr int ElapsedColumn = 1;
    const SimulatorProcess bus({QStringLiteral("--servo"), QStringLiteral("zelvar:1")});
    QProcess monitor;
    monitor.start(Program, {QStringLiteral("monitor"), QStringLiteral("--port"), bus.name(), QStringLiteral("--id"),
                            QStringLiteral("1"), QStringLiteral("--rate"), QStringLiteral("100")});
    double begin = 0.0;
    double usedBefore = 0.0;
    double first = 0.0;
    double latest = 0.0;
    for (int line = 0; line <= rounds.livePolls; ++line) {
        while (!monitor.canReadLine()) {
            if (!monitor.waitForReadyRead())
                qFatal("zelvar-servo ended: %s", monitor.readAllStandardError().constData());
        }
        const QList<QByteArray> values = monitor.readLine().split(',');
        if (line == 0)
            continue; // the titles
        const double elapsed = values[ElapsedColumn].toDouble() * MicrosecondsPerMillisecond;
        if (line == 1) {
            begin = wallTime();
            usedBefore = processTime(monitor.processId());
            first = elapsed;
        }
        latest = std::max(latest, elapsed - first - (line - 1) * Period);
    }
    const double share = (processTime(monitor.processId()) - usedBefore) * Percent / (wallTime() - begin);
    monitor.terminate();
    monitor.waitForFinished();
    return {
        Figure::absolute(QStringLiteral("zelvar-servo monitor at 100 Hz, one core"), share, QStringLiteral("%"), 5.0),
        Figure::absolute(QStringLiteral("zelvar-servo monitor at 100 Hz, the latest sample"), latest,
                         QStringLiteral("ms"), Period)};
}

Figures shellScan(const Rounds &rounds)
{
    constexpr double MostSeconds = 33.0;
    constexpr double MostSecondsAtOneRate = 2.0;
    const SimulatorProcess bus({QStringLiteral("--servo"), QStringLiteral("zelvar:1"), QStringLiteral("--servo"),
                                QStringLiteral("zelvar:253:57600"), QStringLiteral("--servo"),
                                QStringLiteral("ax12:5")});
    Figures figures{scanFigure(bus, QStringLiteral("1000000"),
                               QStringLiteral("zelvar-servo scan, 254 ids, both framings, 1 Mbit/s"),
                               MostSecondsAtOneRate)};
    if (rounds.scansAllRates)
        figures.push_back(scanFigure(bus, QStringLiteral("all"),
                                     QStringLiteral("zelvar-servo scan, 254 ids, both framings, 11 baud rates"),
                                     MostSeconds));
    return figures;
}
