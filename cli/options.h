#pragma once

#include "recording/column.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace cli {

/** What the command line says; what a command does not know it leaves alone. */
struct Options
{
    QString command;
    QStringList words; ///< fields, assignments or files, as given

    QString port; ///< empty when not given
    std::optional<int> baudRate;
    std::vector<int> ids; ///< empty when not given
    bool isJson = false;
    bool isVerbose = false;
    recording::UnitChoice unitOf;
    std::chrono::milliseconds timeout{0}; ///< how long a silent servo is asked

    bool isList = false;
    bool isRaw = false;
    bool isTable = false;
    bool isDryRun = false;

    bool isReplacing = false;
    QStringList only; ///< fields to restore or compare, with wildcards; empty for all
    bool withId = false;
    bool withHome = false;
    bool motorOff = false;

    std::vector<int> scannedIds;
    std::vector<int> scannedBaudRates; ///< empty: the port's

    double rate = 0; ///< samples a second
    std::optional<int> count;
    std::optional<std::chrono::milliseconds> duration;
    char delimiter = ',';
    QString outputFile; ///< empty for standard output
};

/**
 * The options in @p arguments, which begin with the program's name.
 * @return nothing when they were asked for help or version, which has been printed then.
 * Throws a Failure for what cannot be understood.
 */
std::optional<Options> parseCommandLine(const QStringList &arguments);

} // namespace cli
