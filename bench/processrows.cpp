#include "bench/processrows.h"

#include "bench/countedprogram.h"
#include "bench/drivenservo.h"
#include "bench/watchedprogram.h"

#include <QThread>

namespace {

const QString Program = QStringLiteral(ZELVAR_PROGRAM);
const QString EmptyProgram = QStringLiteral(ZELVAR_BENCH_EMPTY_WINDOW);
const QString Twin = QStringLiteral(ZELVAR_BENCH_TWIN);
/** The ratios to the bare twin when they were last looked at; a change that makes one worse fails the benchmark. */
constexpr double PaintedRatio = 1.03;
constexpr double EndedRatio = 1.03;
constexpr int ShortestPollingInterval = 10; // ms
constexpr int UnitFieldsTab = 0;
constexpr int RegisterFieldsTab = 1;

void waitForPolls(const DrivenServo &servo, int count)
{
    constexpr int LookMilliseconds = 5;
    const int until = servo.pollCount() + count;
    while (servo.pollCount() < until)
        QThread::msleep(LookMilliseconds);
}

/** Share of one core, in percent, that the program uses while it polls @p servo with @p tab shown as a whole. */
double coreShare(const DrivenServo &servo, int tab, int polls)
{
    constexpr double Percent = 100.0;
    const WatchedProgram program(Program, {tab, true});
    waitForPolls(servo, polls / 10); // connecting is not meant
    const double usedBefore = processTime(program.pid());
    const double begin = wallTime();
    waitForPolls(servo, polls);
    const double duration = wallTime() - begin;
    return (processTime(program.pid()) - usedBefore) * Percent / duration;
}

double programKilobytes(const DrivenServo &servo, int polls, const WatchedProgram::Wish &wish)
{
    const WatchedProgram program(Program, wish);
    waitForPolls(servo, polls);
    return residentKilobytes(program.pid());
}

double idleKilobytes(const QString &path, const WatchedProgram::Wish &wish = {})
{
    constexpr int SettleMilliseconds = 300;
    const WatchedProgram program(path, wish);
    QThread::msleep(SettleMilliseconds);
    return residentKilobytes(program.pid());
}

Figure shareFigure(const QString &tab, double share)
{
    return Figure::absolute(QStringLiteral("one core, polling every 10 ms, realtime values changing, \"%1\"").arg(tab),
                            share, QStringLiteral("%"), 10.0);
}

} // namespace

double unitFieldsShare(const DrivenServo &servo, int polls)
{
    return coreShare(servo, UnitFieldsTab, polls);
}

Figures startTime(const Rounds &rounds)
{
    constexpr double MicrosecondsPerMillisecond = 1000.0;
    const auto milliseconds = [](const QString &path) {
        return WatchedProgram(path).startTime() / MicrosecondsPerMillisecond;
    };
    Samples ours;
    Samples twin;
    Samples empty;
    for (int i = 0; i < rounds.starts; ++i) {
        ours.add(milliseconds(Program));
        twin.add(milliseconds(Twin));
        empty.add(milliseconds(EmptyProgram));
    }
    const QString name = QStringLiteral("start to first painted window, against %1");
    return {Figure::information(name.arg(QStringLiteral("the bare twin")), ours.median(), twin.median(),
                                QStringLiteral("ms")),
            Figure::information(name.arg(QStringLiteral("an empty window")), ours.median(), empty.median(),
                                QStringLiteral("ms"))};
}

Figures startInstructions(const Rounds & /*rounds*/)
{
    struct Row
    {
        const char *name;
        RunUntil until;
        double limit;
        double watchedRatio;
    };
    constexpr Row Rows[] = {
        {"instructions, start to first painted window", RunUntil::Painted, 1.10, PaintedRatio},
        {"instructions, start to end", RunUntil::Ended, 1.10, EndedRatio},
    };
    Figures figures;
    for (const Row &row : Rows)
        figures.push_back(Figure::atMost(QString::fromLatin1(row.name), millionInstructions(Program, row.until),
                                         millionInstructions(Twin, row.until), QStringLiteral("M"), row.limit)
                              .watchedAt(row.watchedRatio));
    return figures;
}

Figures liveProgram(const Rounds &rounds)
{
    constexpr double KilobytesPerMegabyte = 1024.0;
    DrivenServo servo(Changing::RealtimeValues);
    chooseInSettings(servo, ShortestPollingInterval);
    const WatchedProgram::Wish ownSize{UnitFieldsTab, false};
    const WatchedProgram::Wish oneSize{UnitFieldsTab, true};
    const double megabytes = programKilobytes(servo, rounds.livePolls, ownSize) / KilobytesPerMegabyte;
    const QString memory =
        QStringLiteral("resident memory after %1 polls, against ").arg(rounds.livePolls) + QLatin1String("%1");
    return {Figure::atMost(memory.arg(QStringLiteral("the bare twin")), megabytes,
                           idleKilobytes(Twin) / KilobytesPerMegabyte, QStringLiteral("MB"), 0.95),
            Figure::information(memory.arg(QStringLiteral("the bare twin, both windows of one size")),
                                programKilobytes(servo, rounds.livePolls, oneSize) / KilobytesPerMegabyte,
                                idleKilobytes(Twin, oneSize) / KilobytesPerMegabyte, QStringLiteral("MB")),
            Figure::information(memory.arg(QStringLiteral("an empty window")), megabytes,
                                idleKilobytes(EmptyProgram) / KilobytesPerMegabyte, QStringLiteral("MB")),
            shareFigure(QStringLiteral("Unit fields"), coreShare(servo, UnitFieldsTab, rounds.livePolls / 2)),
            shareFigure(QStringLiteral("Register fields"), coreShare(servo, RegisterFieldsTab, rounds.livePolls / 2))};
}
