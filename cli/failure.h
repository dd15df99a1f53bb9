#pragma once

#include <QString>

namespace cli {

/** What the program ends with; several servos make the highest. */
enum class ExitStatus {
    Done = 0,      ///< done and proved
    Different = 1, ///< a comparison has found differences
    Usage = 2,     ///< the command line asks for what cannot be; nothing was sent that changes a servo
    NoAnswer = 3,  ///< somebody who was asked does not answer
    Port = 4,      ///< the port could not be opened, or was lost
    Refused = 5,   ///< a servo refused something or did not keep it
};

inline ExitStatus worse(ExitStatus one, ExitStatus other)
{
    return one > other ? one : other;
}

/**
 * Why something was not done; thrown. A command for one servo ends with it, and so does the whole command when nothing
 * can come after it. Never thrown out of what Qt calls.
 */
struct Failure
{
    ExitStatus status;
    QString text; ///< one line for the user: what is wrong and what to do about it
};

/** Thrown in place of waiting on once the user has pressed Ctrl+C. */
struct Interrupted
{
};

} // namespace cli
