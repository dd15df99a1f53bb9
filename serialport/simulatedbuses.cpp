#include "serialport/simulatedbuses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#ifdef Q_OS_UNIX
#    include <unistd.h>
#endif

namespace simulatedbuses {

namespace {

const QString FolderName = QStringLiteral("zelvar-servo-simulator");
const QString LockSuffix = QStringLiteral(".lock");

#ifdef Q_OS_UNIX
/** Whether nobody but this user can have put links into @p path. */
bool isOwnFolder(const QString &path)
{
    const QFileInfo info(path);
    const auto othersMayWrite = QFileDevice::WriteGroup | QFileDevice::WriteOther;
    return info.isDir() && info.ownerId() == getuid() && !(info.permissions() & othersMayWrite);
}

/** Whether a simulator holds the lock of the bus @p name. */
bool isAlive(const QString &name)
{
    const QString path = lockPath(name);
    if (!QFileInfo::exists(path))
        return false;
    QLockFile lock(path);
    lock.setStaleLockTime(0); // a lock is as old as its simulator: only a dead owner makes it stale
    if (!lock.tryLock(0))
        return lock.error() == QLockFile::LockFailedError;
    return false;
}
#endif

} // namespace

QString folder()
{
#ifdef Q_OS_UNIX
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtimeFolder.isEmpty() && QFileInfo(runtimeFolder).isDir())
        return QDir(runtimeFolder).filePath(FolderName);
    const QString shared = QDir::temp().filePath(FolderName + QLatin1Char('-') + QString::number(getuid()));
    return !QFileInfo::exists(shared) || isOwnFolder(shared) ? shared : QString();
#else
    return {}; // there are no simulated buses where there are no pseudo terminals
#endif
}

QString linkPath(const QString &name)
{
    return QDir(folder()).filePath(name);
}

QString lockPath(const QString &name)
{
    return linkPath(name) + LockSuffix;
}

std::vector<Bus> published()
{
#ifdef Q_OS_UNIX
    std::vector<Bus> buses;
    const QString path = folder();
    if (path.isEmpty() || !isOwnFolder(path))
        return buses;
    const auto entries = QDir(path).entryInfoList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    for (const QFileInfo &entry : entries) {
        if (!entry.isSymLink() || entry.fileName().endsWith(QLatin1String(UnfinishedSuffix)))
            continue;
        if (!isAlive(entry.fileName()))
            QFile::remove(entry.filePath());
        else if (entry.exists())
            buses.push_back({entry.fileName(), entry.canonicalFilePath()});
    }
    return buses;
#else
    return {};
#endif
}

} // namespace simulatedbuses
