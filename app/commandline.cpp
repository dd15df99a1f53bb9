#include "app/commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr char Program[] = "zelvar-servo-manager";
const QString Help = QStringLiteral("help");
const QString Version = QStringLiteral("version");

// In English, like everything that is said to a terminal.
void describe(QCommandLineParser &parser)
{
    // Else "-reverse", which is the toolkit's, would be read as five options, one of them "-v".
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(
        QStringLiteral("Configures and monitors a smart servo motor on a serial bus.\n"
                       "The options of every Qt program, such as -style and -platform, are taken, too."));
    parser.addOption({{QStringLiteral("h"), Help}, QStringLiteral("Show this help.")});
    parser.addOption({{QStringLiteral("v"), Version}, QStringLiteral("Show the version.")});
}

} // namespace

bool commandline::answersQuestion(int argc, char **argv)
{
    if (argc < 2)
        return false;
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    describe(parser);
    parser.parse(QCoreApplication::arguments()); // what it does not know may be the toolkit's
    if (parser.isSet(Help))
        std::fputs(qPrintable(parser.helpText()), stdout);
    else if (parser.isSet(Version))
        std::printf("%s %s\n", Program, ZELVAR_VERSION);
    return parser.isSet(Help) || parser.isSet(Version);
}

bool commandline::isValid(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    QString error = parser.parse(arguments) ? QString() : parser.errorText();
    const QStringList unexpected = parser.positionalArguments();
    if (error.isEmpty() && !unexpected.isEmpty())
        error = QStringLiteral("unexpected argument \"%1\"").arg(unexpected.first());
    if (!error.isEmpty())
        std::fprintf(stderr, "%s: %s\nTry \"%s --help\".\n", Program, qPrintable(error), Program);
    return error.isEmpty();
}
