#pragma once

#include <QString>

#include <vector>

/** The buses that running simulators of this user publish: a link each, in a folder of the user's runtime directory. */
namespace simulatedbuses {

/** One published bus. */
struct Bus
{
    QString name;   ///< name in the port list
    QString device; ///< the serial device file behind the link
};

/** How the names of links end that a simulator is about to put in place; they are nobody else's business. */
constexpr const char *UnfinishedSuffix = ".tmp";

/** The folder of the links; not made by this call. Empty when the system gives the user no safe place for one. */
QString folder();
/** The link that publishes the bus @p name. */
QString linkPath(const QString &name);
/** The lock (QLockFile) that a simulator holds as long as it publishes the bus @p name. */
QString lockPath(const QString &name);

/** The buses whose simulator is alive, by name. Links left behind by dead ones are removed on the way. */
std::vector<Bus> published();

} // namespace simulatedbuses
