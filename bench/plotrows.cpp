#include "bench/plotrows.h"

#include "bench/connectedwindow.h"
#include "bench/drivenservo.h"
#include "bench/measuring.h"
#include "bench/processrows.h"
#include "bench/registervalues.h"
#include "bench/windowsize.h"
#include "chart/chartlibrary.h"
#include "model/families.h"
#include "plot/curves.h"
#include "plot/striparea.h"
#include "recording/samplestore.h"
#include "settings/settings.h"

#include <chrono>

namespace {

using recording::SampleStore;

constexpr double MicrosecondsPerMillisecond = 1000.0;
constexpr std::chrono::milliseconds Interval{10};
constexpr int SamplesInTenMinutes = 60000;
constexpr int Spans[] = {60, 600};            ///< seconds
constexpr double SpanLimits[] = {10.0, 16.0}; ///< ms: ten frames a second in a tenth of a core, and one frame in time

const QString PlotSettings = QStringLiteral("plot settings");

recording::TimePoint timeOf(int sample)
{
    return recording::TimePoint(sample * Interval);
}

/** Ten minutes in which all realtime values change with each sample. @return microseconds that one has taken. */
double fill(SampleStore &store)
{
    RegisterValues values;
    model::RegisterImage image(&store.family());
    double used = 0;
    for (int i = 0; i < SamplesInTenMinutes; ++i) {
        values.change(Changing::RealtimeValues);
        image.take(0, values.table(), timeOf(i));
        const double begin = threadTime();
        store.add(image);
        used += threadTime() - begin;
    }
    return used / SamplesInTenMinutes;
}

double frameTime(plot::StripArea &area)
{
    const double begin = threadTime();
    area.refresh();
    paintAll();
    return threadTime() - begin;
}

} // namespace

Figures paintedPlot(const Rounds &rounds)
{
    constexpr double SamplesPerSecond = 100.0;
    constexpr double PercentPerMicrosecond = 1e-4; // of a second
    constexpr double BytesPerMegabyte = 1e6;
    const model::Family &family = model::ZelvarV1Family;
    const auto store = std::make_shared<SampleStore>(family, SampleStore::SmallCapacity);
    const double keeping = fill(*store) * SamplesPerSecond * PercentPerMicrosecond;
    Figures figures{Figure::absolute(QStringLiteral("one core, samples kept while the plot is hidden"), keeping,
                                     QStringLiteral("%"), 1.0),
                    Figure::absolute(QStringLiteral("memory of ten minutes at 100 samples a second"),
                                     double(store->bytesUsed()) / BytesPerMegabyte, QStringLiteral("MB"), 8.0)};

    const std::deque<recording::Mark> marks;
    plot::PlotSource source{store, &marks, timeOf(0), [](model::FieldKind) { return 0; }, {}};
    const chart::LoadResult library = chart::load();
    if (!library.charts)
        qFatal("%s", qPrintable(library.error));
    plot::StripArea area(*library.charts);
    area.resize(PlotSize);
    area.show(source, family, plot::defaultKeys(family));
    static_cast<QWidget &>(area).show();
    for (std::size_t i = 0; i < std::size(Spans); ++i) {
        area.window().setSpan(Spans[i]);
        frameTime(area);
        Samples time;
        for (int round = 0; round < rounds.frames; ++round)
            time.add(frameTime(area) / MicrosecondsPerMillisecond);
        figures.push_back(
            Figure::absolute(QStringLiteral("a frame of the plot, %1 s at 100 samples a second").arg(Spans[i]),
                             time.median(), QStringLiteral("ms"), SpanLimits[i]));
    }
    return figures;
}

Figures livePlot(const Rounds &rounds)
{
    DrivenServo servo(Changing::RealtimeValues);
    chooseInSettings(servo, int(Interval.count()));
    Settings(PlotSettings).setValue(QStringLiteral("span"), Spans[0]);
    const double hidden = unitFieldsShare(servo, rounds.livePolls);
    Settings(PlotSettings).setValue(QStringLiteral("shown"), true);
    const double shown = unitFieldsShare(servo, rounds.livePolls);
    Settings(PlotSettings).setValue(QStringLiteral("shown"), false);
    return {Figure::absolute(QStringLiteral("one core more, with the plot shown while polling every 10 ms"),
                             shown - hidden, QStringLiteral("%"), 10.0)};
}
