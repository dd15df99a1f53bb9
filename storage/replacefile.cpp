#include "storage/replacefile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_WIN
#    include <io.h>
#else
#    include <unistd.h>
#endif

#include <cerrno>

namespace storage {

namespace {

constexpr int MostLinks = 40; ///< as Linux follows

} // namespace

QString finalPath(const QString &path)
{
    QFileInfo info(path);
    for (int links = 0; info.isSymLink(); ++links) {
        if (links == MostLinks)
            return {};
        info.setFile(info.symLinkTarget());
    }
    return info.absoluteFilePath();
}

ReplaceResult replaceFile(const QString &path, const QByteArray &contents)
{
    const QString place = finalPath(path);
    const QFileInfo info(place);
    if (place.isEmpty() || (info.exists() && !info.isFile()))
        return {ReplaceError::NotRegularFile, QCoreApplication::translate("storage", "It is no regular file.")};

    QSaveFile file(place);
    if (!file.open(QIODevice::WriteOnly))
        return {ReplaceError::CannotCreate, file.errorString()};
    // commit() would not notice that the last bytes found no room and would put an incomplete file in place.
    if (file.write(contents) != contents.size() || !file.flush())
        return {ReplaceError::CannotWrite, file.errorString()};
    if (const int error = reachDisk(file.handle()))
        return {ReplaceError::CannotWrite, qt_error_string(error)};
    if (!file.commit())
        return {ReplaceError::CannotRename, file.errorString()};
    return {};
}

int reachDisk(int descriptor)
{
#ifdef Q_OS_WIN
    return _commit(descriptor) == 0 ? 0 : errno;
#else
    int result = 0;
    do {
        result = fsync(descriptor);
    } while (result != 0 && errno == EINTR);
    // Some file systems know no such thing, which is no sign of a loss.
    return result == 0 || errno == EINVAL || errno == ENOSYS ? 0 : errno;
#endif
}

} // namespace storage
