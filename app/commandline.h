#pragma once

class QStringList;

/** The command line of the program, which has no options of its own but those that every program has. */
namespace commandline {

/** Prints version or help when the arguments ask for it. Needs no display. @return whether they do. */
bool answersQuestion(int argc, char **argv);
/**
 * Prints what is wrong with @p arguments, those that the toolkit has left. REQUIRES: an application object.
 * @return whether nothing is.
 */
bool isValid(const QStringList &arguments);

} // namespace commandline
