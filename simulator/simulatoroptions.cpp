#include "simulator/simulatoroptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>

namespace simulator {

namespace {

const QString DefaultName = QStringLiteral("zelvar-sim");
constexpr const char *DefaultServos[] = {"zelvar:0", "zelvar:3", "zelvar:7:57600", "ax12:5"};
constexpr int LongestDelay = 60000; ///< ms
constexpr int LongestName = 64;
constexpr int MostReplies = 1000000000;

/** A command-line option. */
struct OptionText
{
    const char *name;
    const char *description;
    const char *valueName = nullptr; ///< null for a switch
    const char *shortName = nullptr;
};

// clang-format off
constexpr OptionText ServoOption{"servo",
    "A servo on the bus; repeatable. MODEL is zelvar or ax12, ID 0 to 253, BAUD 1000000 unless given. "
    "Without this option: zelvar:0, zelvar:3, zelvar:7:57600 and ax12:5.",
    "MODEL:ID[:BAUD]"};
constexpr OptionText MotionOption{"motion",
    "A servo that moves by itself until a client tells it what to do; repeatable. KIND is sine, step or sweep, ID that "
    "of the servo, SECONDS how long one round takes.",
    "KIND:ID[:SECONDS]"};
constexpr OptionText NameOption{"name",
    "Name of the bus in the list of ports; zelvar-sim, or zelvar-sim-2 and so on when that is taken, "
    "unless given.",
    "NAME"};
constexpr OptionText LinkOption{"link",
    "Make a link to the bus at PATH as well; only a link left by an earlier simulator is replaced.", "PATH"};
constexpr OptionText PaceOption{"pace",
    "Hold every reply back for as long as request, acknowledge time and reply take on a wire at the "
    "client's baud rate."};
constexpr OptionText StateOption{"state",
    "Keep the non-volatile registers in FILE from run to run. The id and baud rate in it go before those "
    "given with --servo, under whose MODEL:ID they are kept.",
    "FILE"};
constexpr OptionText SeedOption{"seed",
    "Seed of the faults, 1 unless given: the same seed spoils the same replies.", "N"};
constexpr OptionText FaultOption{"fault",
    "Something that goes wrong; repeatable. With the probability P (0 to 1) a reply is lost (drop=P), "
    "has a wrong byte (corrupt=P), lacks its end (truncate=P) or follows stray bytes (garbage=P); "
    "each reply is late by MS milliseconds (delay=MS) or come in pieces (chunk); requests come back to "
    "the client (echo); after N replies there are no more (mute-after=N), or the port goes away when "
    "the next one is due (vanish-after=N).",
    "KIND[=VALUE]"};
constexpr OptionText HelpOption{"help", "Show this help.", nullptr, "h"};
constexpr OptionText VersionOption{"version", "Show the version.", nullptr, "v"};

// clang-format on

QString nameOf(const OptionText &option)
{
    return QString::fromLatin1(option.name);
}

QCommandLineOption parserOption(const OptionText &option)
{
    QStringList names;
    if (option.shortName)
        names.append(QString::fromLatin1(option.shortName));
    names.append(nameOf(option));
    return {names, QString::fromLatin1(option.description), QString::fromLatin1(option.valueName)};
}

QStringList defaultServos()
{
    QStringList servos;
    for (const char *servo : DefaultServos)
        servos.append(QString::fromLatin1(servo));
    return servos;
}

// clang-format off
struct ProbabilityFault { const char *name; double FaultSettings::*member; };
constexpr ProbabilityFault ProbabilityFaults[] = {
    {"drop",     &FaultSettings::drop},
    {"corrupt",  &FaultSettings::corrupt},
    {"truncate", &FaultSettings::truncate},
    {"garbage",  &FaultSettings::garbage},
};

struct CountFault { const char *name; std::optional<int> FaultSettings::*member; };
constexpr CountFault CountFaults[] = {
    {"mute-after",   &FaultSettings::muteAfter},
    {"vanish-after", &FaultSettings::vanishAfter},
};

struct SwitchFault { const char *name; bool FaultSettings::*member; };
constexpr SwitchFault SwitchFaults[] = {
    {"chunk", &FaultSettings::chunk},
    {"echo",  &FaultSettings::echo},
};
// clang-format on

template <typename Row, std::size_t Count>
const Row *rowNamed(const Row (&rows)[Count], const QString &name)
{
    for (const Row &row : rows) {
        if (name == QLatin1String(row.name))
            return &row;
    }
    return nullptr;
}

std::optional<int> numberIn(const QString &text, int least, int greatest)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return isNumber && value >= least && value <= greatest ? std::optional<int>(value) : std::nullopt;
}

/** Each of these reads one kind of option into @p options and returns an empty text or what is wrong with it. */
QString readFault(const QString &text, FaultSettings &faults)
{
    const int separator = text.indexOf(QLatin1Char('='));
    const QString name = text.left(separator);
    const QString value = separator < 0 ? QString() : text.mid(separator + 1);

    if (const auto *row = rowNamed(ProbabilityFaults, name)) {
        bool isNumber = false;
        const double probability = value.toDouble(&isNumber);
        if (!isNumber || !(probability >= 0 && probability <= 1))
            return QStringLiteral("fault \"%1\": expected %2=P with P from 0 to 1").arg(text, name);
        faults.*row->member = probability;
        return {};
    }
    if (const auto *row = rowNamed(CountFaults, name)) {
        faults.*row->member = numberIn(value, 0, MostReplies);
        return faults.*row->member ? QString()
                                   : QStringLiteral("fault \"%1\": expected %2=N with N replies").arg(text, name);
    }
    if (const auto *row = rowNamed(SwitchFaults, name)) {
        faults.*row->member = true;
        return separator < 0 ? QString() : QStringLiteral("fault \"%1\": %2 takes no value").arg(text, name);
    }
    if (name == QLatin1String("delay")) {
        const auto delay = numberIn(value, 0, LongestDelay);
        if (!delay)
            return QStringLiteral("fault \"%1\": expected delay=MS with MS from 0 to %2").arg(text).arg(LongestDelay);
        faults.delay = std::chrono::milliseconds(*delay);
        return {};
    }
    return QStringLiteral("unknown fault \"%1\"").arg(name);
}

QString readServos(const QCommandLineParser &parser, SimulatorOptions &options)
{
    const QStringList texts = parser.isSet(nameOf(ServoOption)) ? parser.values(nameOf(ServoOption)) : defaultServos();
    for (const QString &text : texts) {
        QString error;
        const auto choice = ServoChoice::fromText(text, &error);
        if (!choice)
            return error;
        options.servos.push_back(*choice);
    }
    return {};
}

QString readMotions(const QCommandLineParser &parser, SimulatorOptions &options)
{
    const QStringList texts = parser.values(nameOf(MotionOption));
    for (const QString &text : texts) {
        QString error;
        const auto choice = SelfMotionChoice::fromText(text, &error);
        if (!choice)
            return error;
        const auto isMeant = [&choice](const ServoChoice &servo) { return servo.id == choice->servoId; };
        if (std::none_of(options.servos.begin(), options.servos.end(), isMeant))
            return QStringLiteral("motion \"%1\": there is no servo %2").arg(text).arg(choice->servoId);
        options.motions.push_back(*choice);
    }
    return {};
}

QString readFaults(const QCommandLineParser &parser, SimulatorOptions &options)
{
    const QStringList texts = parser.values(nameOf(FaultOption));
    for (const QString &text : texts) {
        QString error = readFault(text, options.faults);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString readName(const QCommandLineParser &parser, SimulatorOptions &options)
{
    options.isNameGiven = parser.isSet(nameOf(NameOption));
    options.name = options.isNameGiven ? parser.value(nameOf(NameOption)) : DefaultName;
    // It becomes a file name, and beside it lies one with ".lock" behind it.
    static const QRegularExpression pattern(QStringLiteral("\\A[A-Za-z0-9_][A-Za-z0-9_.-]*\\z"));
    if (!pattern.match(options.name).hasMatch() || options.name.size() > LongestName ||
        options.name.endsWith(QLatin1String(".lock")))
        return QStringLiteral("\"%1\" is no name for a bus: expected up to %2 letters, digits, \"-\", \"_\" and \".\"")
            .arg(options.name)
            .arg(LongestName);
    return {};
}

QString readSeed(const QCommandLineParser &parser, SimulatorOptions &options)
{
    if (!parser.isSet(nameOf(SeedOption)))
        return {};
    bool isNumber = false;
    options.seed = parser.value(nameOf(SeedOption)).toUInt(&isNumber);
    return isNumber
               ? QString()
               : QStringLiteral("\"%1\" is no seed: expected 0 to 4294967295").arg(parser.value(nameOf(SeedOption)));
}

QString readPaths(const QCommandLineParser &parser, SimulatorOptions &options)
{
    options.link = parser.value(nameOf(LinkOption));
    options.stateFile = parser.value(nameOf(StateOption));
    for (const auto &option : {LinkOption, StateOption}) {
        if (parser.isSet(nameOf(option)) && parser.value(nameOf(option)).isEmpty())
            return QStringLiteral("--%1 needs a path").arg(nameOf(option));
    }
    return {};
}

QString readOptions(const QCommandLineParser &parser, SimulatorOptions &options)
{
    const QStringList unexpected = parser.positionalArguments();
    if (!unexpected.isEmpty())
        return QStringLiteral("unexpected argument \"%1\"").arg(unexpected.first());
    options.isPaced = parser.isSet(nameOf(PaceOption));
    for (const auto read : {readServos, readMotions, readName, readPaths, readSeed, readFaults}) {
        QString error = read(parser, options);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

} // namespace

SimulatorCommandLine SimulatorCommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Simulates a bus of smart servos behind a serial port of its own, which the servo manager "
                       "lists by name."));
    for (const OptionText &option : {ServoOption, MotionOption, NameOption, LinkOption, PaceOption, StateOption,
                                     SeedOption, FaultOption, HelpOption, VersionOption})
        parser.addOption(parserOption(option));

    SimulatorCommandLine result;
    const bool isParsed = parser.parse(arguments);
    if (isParsed && parser.isSet(nameOf(HelpOption))) {
        result.action = Action::ShowText;
        result.text = parser.helpText();
    } else if (isParsed && parser.isSet(nameOf(VersionOption))) {
        result.action = Action::ShowText;
        result.text = QStringLiteral("zelvar-servo-simulator " ZELVAR_VERSION "\n");
    } else {
        result.text = isParsed ? readOptions(parser, result.options) : parser.errorText();
        result.action = result.text.isEmpty() ? Action::Run : Action::ShowError;
    }
    return result;
}

} // namespace simulator
