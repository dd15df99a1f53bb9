#include "bench/processrows.h"

#include "bench/drivenservo.h"
#include "bench/watchedprogram.h"

#include <QThread>

namespace {

const QString Program = QStringLiteral(ZELVAR_PROGRAM);
const QString EmptyProgram = QStringLiteral(ZELVAR_BENCH_EMPTY_WINDOW);
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

double programKilobytes(const DrivenServo &servo, int polls)
{
    const WatchedProgram program(Program, {UnitFieldsTab, false});
    waitForPolls(servo, polls);
    return residentKilobytes(program.pid());
}

double emptyProgramKilobytes()
{
    constexpr int SettleMilliseconds = 300;
    const WatchedProgram program(EmptyProgram);
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
    Comparison time;
    for (int i = 0; i < rounds.starts; ++i) {
        time.ours.add(WatchedProgram(Program).startTime() / MicrosecondsPerMillisecond);
        time.baseline.add(WatchedProgram(EmptyProgram).startTime() / MicrosecondsPerMillisecond);
    }
    return {Figure::atMost(QStringLiteral("start to first painted window"), time.ours.median(), time.baseline.median(),
                           QStringLiteral("ms"), 2.0)};
}

Figures liveProgram(const Rounds &rounds)
{
    constexpr double KilobytesPerMegabyte = 1024.0;
    DrivenServo servo(Changing::RealtimeValues);
    chooseInSettings(servo, ShortestPollingInterval);
    return {Figure::atMost(QStringLiteral("resident memory after %1 polls").arg(rounds.livePolls),
                           programKilobytes(servo, rounds.livePolls) / KilobytesPerMegabyte,
                           emptyProgramKilobytes() / KilobytesPerMegabyte, QStringLiteral("MB"), 1.6),
            shareFigure(QStringLiteral("Unit fields"), coreShare(servo, UnitFieldsTab, rounds.livePolls / 2)),
            shareFigure(QStringLiteral("Register fields"), coreShare(servo, RegisterFieldsTab, rounds.livePolls / 2))};
}
