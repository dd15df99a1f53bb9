#include "bench/countedprogram.h"

#include <QProcess>
#include <QProcessEnvironment>

double millionInstructions(const QString &path, RunUntil until)
{
    constexpr double Million = 1e6;
    constexpr int Patience = 120000; // ms: a counted program is fifty times slower
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(ZELVAR_BENCH_PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("zelvarbench"));
    environment.insert(until == RunUntil::Painted ? QStringLiteral("ZELVAR_BENCH_LEAVE")
                                                  : QStringLiteral("ZELVAR_BENCH_CLOSE"),
                       QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("valgrind"),
                  {QStringLiteral("--tool=callgrind"), QStringLiteral("--callgrind-out-file=/dev/null"), path});
    if (!process.waitForFinished(Patience))
        qFatal("%s cannot be counted: %s", qPrintable(path), qPrintable(process.errorString()));
    // "==PID== Collected : 123456789"
    for (const QByteArray &line : process.readAllStandardError().split('\n')) {
        const int colon = line.indexOf(':');
        if (line.contains("Collected") && colon >= 0)
            return line.mid(colon + 1).trimmed().toDouble() / Million;
    }
    qFatal("%s was not counted", qPrintable(path));
}
