// Measures what the program costs against what does the least possible work for the same result. See
// docs/performance.md.

#include "bench/codecrow.h"
#include "bench/guirows.h"
#include "bench/linkrows.h"
#include "bench/plotrows.h"
#include "bench/processrows.h"
#include "bench/scanrow.h"
#include "bench/shellrows.h"
#include "bench/stoprow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

namespace {

struct Measurement
{
    const char *name;
    Figures (*measure)(const Rounds &rounds);
};

// clang-format off
constexpr Measurement Measurements[] = {
    {"link",      pollLatency        },
    {"paced",     pacedPolls         },
    {"realtime",  realtimeValuesShown},
    {"nothing",   nothingShown       },
    {"all",       everythingShown    },
    {"registers", registersShown     },
    {"start",     startTime          },
    {"count",     startInstructions  },
    {"live",      liveProgram        },
    {"scan",      silentScan         },
    {"stop",      keyToWire          },
    {"get",       shellGet           },
    {"monitor",   shellMonitor       },
    {"shellscan", shellScan          },
    {"plot",      paintedPlot        },
    {"live-plot", livePlot           },
    {"codec",     codecTime          },
};
// clang-format on

QString measurementNames()
{
    QStringList names;
    for (const Measurement &measurement : Measurements)
        names.append(QLatin1String(measurement.name));
    return names.join(QStringLiteral(", "));
}

/** Keeps the user's settings, history and simulated buses out of this process and its children, and the display too. */
void isolate(const QTemporaryDir &folder)
{
    if (!folder.isValid())
        qFatal("no temporary folder");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
    qputenv("LC_ALL", "C");
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    QLocale::setDefault(QLocale::c());
}

Figures measure(const QString &only, const Rounds &rounds)
{
    Figures figures;
    for (const Measurement &measurement : Measurements) {
        if (!only.isEmpty() && only != QLatin1String(measurement.name))
            continue;
        std::fprintf(stderr, "measuring: %s\n", measurement.name);
        const Figures some = measurement.measure(rounds);
        figures.insert(figures.end(), some.begin(), some.end());
    }
    return figures;
}

} // namespace

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    isolate(folder);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures the servo manager against what does the least possible work for the same result."));
    parser.addHelpOption();
    const QCommandLineOption quick(QStringLiteral("quick"),
                                   QStringLiteral("Few rounds: shows that everything works, not how fast."));
    const QCommandLineOption only(QStringLiteral("only"),
                                  QStringLiteral("Measure one thing: %1.").arg(measurementNames()),
                                  QStringLiteral("NAME"));
    parser.addOptions({quick, only});
    parser.process(application);

    const Figures figures = measure(parser.value(only), parser.isSet(quick) ? QuickRounds : FullRounds);
    if (figures.empty())
        parser.showHelp(1);
    std::fputs(qUtf8Printable(tableOf(figures)), stdout);
    bool isWorse = false;
    for (const Figure &figure : figures) {
        if (!figure.isWorse())
            continue;
        isWorse = true;
        std::fprintf(stderr, "worse than before: %s\n", qPrintable(figure.cells().join(QStringLiteral(" | "))));
    }
    return isWorse ? 1 : 0;
}
