#include "cli/program.h"

#include "cli/commands.h"

#include <QLoggingCategory>

#include <algorithm>
#include <csignal>
#include <utility>

namespace cli {

namespace {

/** A reader that has gone is found out by writing, which then fails. */
void outliveClosedPipes()
{
#ifdef Q_OS_UNIX
    std::signal(SIGPIPE, SIG_IGN);
#else
    // There is no such signal.
#endif
}

const Command &commandNamed(const QString &name)
{
    const auto *found = std::find_if(std::begin(Commands), std::end(Commands),
                                     [&name](const Command &row) { return name == QLatin1String(row.name); });
    Q_ASSERT(found != std::end(Commands));
    return *found;
}

ExitStatus carryOut(Context &context)
{
    try {
        return commandNamed(context.options().command).run(context);
    } catch (const Failure &failure) {
        Output::tell(failure.text);
        context.answer().insert(QStringLiteral("error"), failure.text);
        return failure.status;
    } catch (const Interrupted &) {
        const QString text = QStringLiteral("ended by the user before it was through");
        Output::tell(text);
        context.answer().insert(QStringLiteral("error"), text);
        return ExitStatus::NoAnswer;
    }
}

/** Whether the command has printed its objects on the way and has only its failure to add. */
bool isStream(const Options &options)
{
    return options.command == QLatin1String("monitor");
}

ExitStatus answer(Options options)
{
    if (options.isVerbose)
        QLoggingCategory::setFilterRules(QStringLiteral("zelvar.wire.debug=true"));
    Context context(std::move(options));
    const ExitStatus status = carryOut(context);
    context.answer().insert(QStringLiteral("status"), int(status));
    try {
        if (!isStream(context.options()) || status != ExitStatus::Done)
            context.output().object(context.answer());
    } catch (const Failure &failure) {
        Output::tell(failure.text);
        return worse(status, failure.status);
    }
    return status;
}

} // namespace

int run(const QStringList &arguments)
{
    outliveClosedPipes();
    try {
        auto options = parseCommandLine(arguments);
        return options ? int(answer(*std::move(options))) : int(ExitStatus::Done);
    } catch (const Failure &failure) {
        Output::tell(failure.text);
        if (arguments.contains(QLatin1String("--json")))
            Output(Output::Form::Objects)
                .object({{QStringLiteral("error"), failure.text}, {QStringLiteral("status"), int(failure.status)}});
        return int(failure.status);
    }
}

} // namespace cli
