#include "process/terminationsignals.h"
#include "simulator/simulator.h"
#include "simulator/simulatoroptions.h"

#include <QCoreApplication>

#include <cstdio>

using namespace simulator;

namespace {

constexpr int UsageError = 2;

/** Prints @p text as one line, whatever the arguments and file names in it are made of. */
void say(QString text)
{
    for (QChar &character : text) {
        if (!character.isPrint())
            character = QLatin1Char('?');
    }
    std::fprintf(stderr, "zelvar-servo-simulator: %s\n", qPrintable(text));
}

int fail(const QString &error)
{
    say(error);
    return UsageError;
}

int run(const SimulatorOptions &options)
{
    process::TerminationSignals terminationSignals;
    Simulator simulator(options);
    QString failure;
    QObject::connect(&terminationSignals, &process::TerminationSignals::requested, qApp, &QCoreApplication::quit);
    QObject::connect(&simulator, &Simulator::finished, qApp, [&failure](const QString &error) {
        failure = error;
        QCoreApplication::quit();
    });

    QObject::connect(&simulator, &Simulator::noticed, qApp, say);

    const QString error = simulator.start();
    if (!error.isEmpty())
        return fail(error);
    std::printf("%s is ready at %s\n", qPrintable(simulator.name()), qPrintable(simulator.devicePath()));
    std::fflush(stdout);
    const int status = QCoreApplication::exec();
    return failure.isEmpty() ? status : fail(failure);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zelvar-servo-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELVAR_VERSION));

    const SimulatorCommandLine commandLine = SimulatorCommandLine::parse(QCoreApplication::arguments());
    switch (commandLine.action) {
    case SimulatorCommandLine::Action::ShowText:
        std::fputs(qPrintable(commandLine.text), stdout);
        return 0;
    case SimulatorCommandLine::Action::ShowError:
        return fail(commandLine.text);
    case SimulatorCommandLine::Action::Run:
        break;
    }
    return run(commandLine.options);
}
