#pragma once

#include <QByteArray>
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

/** Name of the folder of the links; a link that leads into a folder of this name was made by a simulator. */
constexpr const char *FolderName = "zelvar-servo-simulator";

/** Where the folder of the links is or would be; empty where the system has no simulated buses. */
QString folder();

/** What openFolder() does when there is no folder. */
enum class IfMissing {
    Fail,
    Make,
};
/**
 * Opens the folder of the links. It is none unless it is a folder itself, no link to one, that belongs to this user and
 * that nobody else can write to: somebody else's links would lead anywhere. Works with it go through the descriptor,
 * whatever the path comes to lead to.
 * @return a descriptor that the caller closes; -1, and errno the reason, when there is no such folder.
 */
int openFolder(IfMissing ifMissing);

/** The link that publishes the bus @p name. */
QString linkPath(const QString &name);
/** Name, in the folder, of the file whose lock (flock) a simulator holds for as long as it publishes the bus @p name.
 */
QByteArray lockName(const QString &name);
/** Whether a simulator holds that lock in @p folder, which openFolder() gave. */
bool isPublished(int folder, const QString &name);

/** The buses whose simulator is alive, by name. Links left behind by dead ones are removed on the way. */
std::vector<Bus> published();

} // namespace simulatedbuses
