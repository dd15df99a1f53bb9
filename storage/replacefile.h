#pragma once

#include <QByteArray>
#include <QString>

/** Files as wholes: whatever happens, there is the old one or the new one and never a part of either. */
namespace storage {

/** What kept a file from being replaced. */
enum class ReplaceError {
    None,
    NotRegularFile, ///< a folder, a device or a pipe is there, or links that lead in a circle
    CannotCreate,   ///< no file can be made in that folder, or the one there is write-protected
    CannotWrite,    ///< the disk is full or broken, say
    CannotRename,   ///< the new file was written, but cannot take the place of the old one
};

/** The outcome of replaceFile(). */
struct ReplaceResult
{
    ReplaceError error = ReplaceError::None;
    QString text; ///< the reason for the user, without the file's name: "No space left on device"; empty on success

    bool isDone() const { return error == ReplaceError::None; }
};

/**
 * The file that @p path stands for: an absolute path behind which there is no link any more, whether there is a file or
 * not. Empty when the links lead in a circle.
 */
QString finalPath(const QString &path);

/**
 * Makes @p contents the whole of the file at @p path, or leaves what is there as it is.
 *
 * They are written to a file of another name in the same folder, which takes the old one's place once the disk has
 * everything. So whoever opens the file, even after a kill in between, finds the old contents or the new ones; a kill
 * may leave the other file behind, as the name with a dot and six letters. Permissions stay as they were; other hard
 * links keep the old contents. A symbolic link stays, and the file that it leads to is replaced, or made when it leads
 * to nothing. Blocks until the disk is done.
 */
ReplaceResult replaceFile(const QString &path, const QByteArray &contents);

/**
 * Waits until all that was written to the open file @p descriptor is on the disk. May be called in any thread.
 * @return 0, or the system's error number.
 */
int reachDisk(int descriptor);

} // namespace storage
