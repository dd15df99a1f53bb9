#include "cli/commands.h"
#include "cli/numberlist.h"
#include "cli/values.h"

#include <CLI/CLI.hpp>

#include <QStringList>

#include <string>
#include <vector>

namespace cli {

namespace {

constexpr const char *About =
    "Configures and watches smart servo motors from a shell. \"zelvar-servo COMMAND --help\" tells about a command, "
    "the man page about all of them.";

/** What the parser fills in; read into Options once all of it is there. */
struct Texts
{
    std::string port;
    int baudRate = 0;
    std::string ids;
    std::string units;
    std::string timeout = "500ms";
    std::string scannedIds = "0-253";
    std::string scannedBaudRates;
    double rate = 10;
    int count = 0;
    std::string duration;
    std::string delimiter = ",";
    std::string outputFile;
    std::vector<std::string> words;
    std::vector<std::string> only;
};

QString text(const std::string &bytes)
{
    return QString::fromStdString(bytes);
}

/** The options that every command takes, before or behind it. */
void addGlobals(CLI::App &app, Options &options, Texts &texts)
{
    constexpr int FastestPort = 4000000;
    app.add_option("--port", texts.port, "Port, by its name or path; else the window's, else the only one")
        ->type_name("PORT");
    app.add_option("--baud", texts.baudRate, "Baud rate; else the window's, else 1000000")
        ->type_name("BAUD")
        ->check(CLI::Range(1, FastestPort));
    app.add_option("--id", texts.ids, "Servos, as 3 or 1,3,5-9")->type_name("IDS");
    app.add_option("--units", texts.units, "Units to tell values in, as rad,rpm,mA")->type_name("UNITS");
    app.add_option("--timeout", texts.timeout, "How long a silent servo is asked")
        ->type_name("TIME")
        ->capture_default_str();
    app.add_flag("--json", options.isJson, "Answer with one JSON object");
    app.add_flag("-v,--verbose", options.isVerbose, "Log all that is sent and received");
}

void addScanOptions(CLI::App &command, Texts &texts)
{
    command.add_option("--ids", texts.scannedIds, "Ids to ask")->type_name("IDS")->capture_default_str();
    command.add_option("--bauds", texts.scannedBaudRates, "Baud rates to ask at, or all; else the port's")
        ->type_name("BAUDS");
}

void addGetOptions(CLI::App &command, Options &options, Texts &texts)
{
    command.add_option("fields", texts.words, "Fields, as actual_position or \"*_limit\"; else all")
        ->type_name("FIELD");
    auto *raw = command.add_flag("--raw", options.isRaw, "Tell raw register values");
    auto *table = command.add_flag("--table", options.isTable, "Show the register table byte by byte");
    auto *list = command.add_flag("--list", options.isList, "Tell which fields there are; asks no servo");
    table->excludes(raw);
    list->excludes(raw)->excludes(table);
}

void addSetOptions(CLI::App &command, Options &options, Texts &texts)
{
    command.add_option("assignments", texts.words, "What to set, as target_position=90deg")
        ->type_name("FIELD=VALUE")
        ->required();
    command.add_flag("--dry-run", options.isDryRun, "Show what would be written, and write nothing");
}

void addMonitorOptions(CLI::App &command, Texts &texts)
{
    constexpr double Slowest = 0.001;
    constexpr double Fastest = 1000;
    command.add_option("fields", texts.words, "Fields; else what the servo tells of its state")->type_name("FIELD");
    command.add_option("--rate", texts.rate, "Samples a second")
        ->type_name("HZ")
        ->check(CLI::Range(Slowest, Fastest))
        ->capture_default_str();
    auto *count =
        command.add_option("--count", texts.count, "Samples to take")->type_name("N")->check(CLI::PositiveNumber);
    command.add_option("--for", texts.duration, "How long, as 10s or 2min")->type_name("TIME")->excludes(count);
    command.add_option("--delimiter", texts.delimiter, "Between two values")->type_name("CHARACTER");
    command.add_option("-o,--output", texts.outputFile, "File for the samples")->type_name("FILE");
}

void addFileArgument(CLI::App &command, Texts &texts, int most)
{
    command.add_option("file", texts.words, "File of parameters, NAME.zservo")
        ->type_name("FILE")
        ->required()
        ->expected(1, most);
}

void addBackupOptions(CLI::App &command, Options &options, Texts &texts)
{
    addFileArgument(command, texts, 1);
    command.add_flag("--replace", options.isReplacing, "Also where a file has something else");
}

void addOnlyOption(CLI::App &command, Texts &texts)
{
    command.add_option("--only", texts.only, "These fields and no others, as \"*_limit\"")->type_name("FIELD");
}

void addRestoreOptions(CLI::App &command, Options &options, Texts &texts)
{
    addFileArgument(command, texts, 1);
    addOnlyOption(command, texts);
    command.add_flag("--dry-run", options.isDryRun, "Show what would be written, and write nothing");
    command.add_flag("--with-id", options.withId, "Also id and baud rate");
    command.add_flag("--with-home", options.withHome, "Also the home position offset");
    command.add_flag("--motor-off", options.motorOff, "Switch the motor off first where it is on");
}

void addCommands(CLI::App &app, Options &options, Texts &texts)
{
    for (const Command &row : Commands) {
        CLI::App *command = app.add_subcommand(row.name, row.summary);
        command->fallthrough();
        const std::string name = row.name;
        if (name == "scan")
            addScanOptions(*command, texts);
        else if (name == "get")
            addGetOptions(*command, options, texts);
        else if (name == "set")
            addSetOptions(*command, options, texts);
        else if (name == "monitor")
            addMonitorOptions(*command, texts);
        else if (name == "backup")
            addBackupOptions(*command, options, texts);
        else if (name == "restore")
            addRestoreOptions(*command, options, texts);
        else if (name == "diff") {
            addFileArgument(*command, texts, 2);
            addOnlyOption(*command, texts);
        }
    }
}

char delimiterIn(const QString &text)
{
    if (text == QLatin1String("\\t") || text == QLatin1String("tab"))
        return '\t';
    if (text.size() == 1 && text[0].isPrint() && text[0].unicode() < 0x80 && !text[0].isLetterOrNumber())
        return text[0].toLatin1();
    throw Failure{ExitStatus::Usage, QStringLiteral("\"%1\" is no delimiter; write one character, or tab").arg(text)};
}

void take(const Texts &texts, Options &options)
{
    for (const std::string &word : texts.words)
        options.words.append(text(word));
    for (const std::string &field : texts.only)
        options.only.append(text(field));
    options.port = text(texts.port);
    if (texts.baudRate > 0)
        options.baudRate = texts.baudRate;
    if (!texts.ids.empty())
        options.ids = idsIn(text(texts.ids));
    options.unitOf = unitsIn(text(texts.units));
    options.timeout = durationIn(text(texts.timeout));
    options.scannedIds = idsIn(text(texts.scannedIds));
    if (!texts.scannedBaudRates.empty())
        options.scannedBaudRates = baudRatesIn(text(texts.scannedBaudRates));
    options.rate = texts.rate;
    if (texts.count > 0)
        options.count = texts.count;
    if (!texts.duration.empty())
        options.duration = durationIn(text(texts.duration));
    options.delimiter = delimiterIn(text(texts.delimiter));
    options.outputFile = text(texts.outputFile);
}

} // namespace

std::optional<Options> parseCommandLine(const QStringList &arguments)
{
    CLI::App app(About, "zelvar-servo");
    app.set_version_flag("--version", "zelvar-servo " ZELVAR_VERSION);
    app.require_subcommand(1);
    Options options;
    Texts texts;
    addGlobals(app, options, texts);
    addCommands(app, options, texts);

    std::vector<std::string> words; // the parser takes the last one first
    for (int i = arguments.size() - 1; i > 0; --i)
        words.push_back(arguments[i].toStdString());
    try {
        app.parse(words);
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() != 0)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("%1; \"zelvar-servo --help\" tells more").arg(text(error.what()).trimmed())};
        app.exit(error); // prints what was asked for
        return std::nullopt;
    }
    options.command = text(app.get_subcommands().front()->get_name());
    take(texts, options);
    return options;
}

} // namespace cli
