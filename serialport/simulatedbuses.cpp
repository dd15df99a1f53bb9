#include "serialport/simulatedbuses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <optional>

#ifdef Q_OS_UNIX
#    include <dirent.h>
#    include <fcntl.h>
#    include <sys/file.h>
#    include <sys/stat.h>
#    include <unistd.h>
#endif

namespace simulatedbuses {

QString linkPath(const QString &name)
{
    return QDir(folder()).filePath(name);
}

QByteArray lockName(const QString &name)
{
    return QFile::encodeName(name) + ".lock";
}

#ifdef Q_OS_UNIX

namespace {

QString runtimeFolder()
{
    return qEnvironmentVariable("XDG_RUNTIME_DIR");
}

bool hasRuntimeFolder()
{
    return !runtimeFolder().isEmpty() && QFileInfo(runtimeFolder()).isDir();
}

/** What stands in for the runtime folder in the temporary one, which everybody may write to. */
QString substitute()
{
    return QDir::temp().filePath(QStringLiteral("%1-%2").arg(QLatin1String(FolderName)).arg(getuid()));
}

int openOwnFolder(int parent, const QByteArray &name, IfMissing ifMissing)
{
    if (ifMissing == IfMissing::Make && mkdirat(parent, name.constData(), S_IRWXU) != 0 && errno != EEXIST)
        return -1;
    const int descriptor = openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return -1;
    struct stat status = {};
    if (fstat(descriptor, &status) == 0 && status.st_uid == getuid() && !(status.st_mode & (S_IWGRP | S_IWOTH)))
        return descriptor;
    ::close(descriptor);
    errno = EPERM;
    return -1;
}

/** The bus whose link is @p name in @p folder; nothing when that is no link, or its simulator or device is gone. */
std::optional<Bus> busAt(int folder, const char *name)
{
    struct stat status = {};
    if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISLNK(status.st_mode))
        return std::nullopt;
    if (!isPublished(folder, QFile::decodeName(name))) {
        unlinkat(folder, name, 0);
        return std::nullopt;
    }
    char target[PATH_MAX];
    const ssize_t size = readlinkat(folder, name, target, sizeof target);
    if (size <= 0 || fstatat(folder, name, &status, 0) != 0)
        return std::nullopt;
    return Bus{QFile::decodeName(name), QFile::decodeName(QByteArray(target, static_cast<int>(size)))};
}

} // namespace

QString folder()
{
    return QDir(hasRuntimeFolder() ? runtimeFolder() : substitute()).filePath(QLatin1String(FolderName));
}

int openFolder(IfMissing ifMissing)
{
    if (hasRuntimeFolder())
        return openOwnFolder(AT_FDCWD, QFile::encodeName(folder()), ifMissing);
    const int parent = openOwnFolder(AT_FDCWD, QFile::encodeName(substitute()), ifMissing);
    if (parent < 0)
        return -1;
    const int descriptor = openOwnFolder(parent, FolderName, ifMissing);
    const int error = errno;
    ::close(parent);
    errno = error;
    return descriptor;
}

bool isPublished(int folder, const QString &name)
{
    // Not waiting for a pipe's other end, and not following a link: what is no plain file is no lock.
    const int descriptor =
        openat(folder, lockName(name).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    struct stat status = {};
    const bool isLocked = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
                          flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(descriptor);
    return isLocked;
}

std::vector<Bus> published()
{
    std::vector<Bus> buses;
    const int descriptor = openFolder(IfMissing::Fail);
    if (descriptor < 0)
        return buses;
    DIR *entries = fdopendir(descriptor); // owns the descriptor from here on
    if (!entries) {
        ::close(descriptor);
        return buses;
    }
    while (const dirent *entry = readdir(entries)) {
        if (auto bus = busAt(descriptor, entry->d_name))
            buses.push_back(std::move(*bus));
    }
    closedir(entries);
    std::sort(buses.begin(), buses.end(), [](const Bus &left, const Bus &right) { return left.name < right.name; });
    return buses;
}

#else

// There are no simulated buses where there are no pseudo terminals.

QString folder()
{
    return {};
}

int openFolder(IfMissing)
{
    errno = ENOENT;
    return -1;
}

bool isPublished(int, const QString &)
{
    return false;
}

std::vector<Bus> published()
{
    return {};
}

#endif

} // namespace simulatedbuses
