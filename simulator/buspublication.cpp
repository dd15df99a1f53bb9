#include "simulator/buspublication.h"

#include "serialport/simulatedbuses.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace simulator {

namespace {

constexpr int MostNumberedNames = 99;
/** A client that looks whether the simulator is alive holds its lock for a moment. */
constexpr int LockPatienceMilliseconds = 200;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/** Makes the folder of the links, for this user only. */
QString makeFolder()
{
    const QString folder = simulatedbuses::folder();
    if (folder.isEmpty())
        return QStringLiteral("no safe folder to publish the bus in: set XDG_RUNTIME_DIR");
    const QByteArray path = QFile::encodeName(folder);
    if (mkdir(path.constData(), S_IRWXU) != 0 && errno != EEXIST)
        return QStringLiteral("cannot make the folder %1: %2").arg(folder, systemError());
    // Clients do not trust links that somebody else could have put there.
    if (chmod(path.constData(), S_IRWXU) != 0)
        return QStringLiteral("cannot make the folder %1 private: %2").arg(folder, systemError());
    return {};
}

QString linkTarget(const QString &path)
{
    const QFileInfo info(path);
    return info.isSymLink() ? info.symLinkTarget() : QString();
}

/** Makes the link @p path in one step, so that nobody ever finds half of it. */
QString link(const QString &path, const QString &device)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isSymLink())
        return QStringLiteral("cannot make the link %1: something else is there").arg(path);
    const QByteArray temporary = QFile::encodeName(path + QLatin1String(simulatedbuses::UnfinishedSuffix));
    unlink(temporary.constData());
    if (symlink(QFile::encodeName(device).constData(), temporary.constData()) == 0) {
        if (std::rename(temporary.constData(), QFile::encodeName(path).constData()) == 0)
            return {};
        const int error = errno;
        unlink(temporary.constData());
        errno = error;
    }
    return QStringLiteral("cannot make the link %1: %2").arg(path, systemError());
}

/** Removes the link @p path, unless it has come to lead somewhere else. */
void removeLink(const QString &path, const QString &device)
{
    if (!path.isEmpty() && linkTarget(path) == device)
        QFile::remove(path);
}

} // namespace

BusPublication::BusPublication() = default;

BusPublication::~BusPublication()
{
    removeLink(m_extraLink, m_device);
    removeLink(m_link, m_device);
}

BusPublication::Claim BusPublication::tryClaim(const QString &name, QString *error)
{
    auto lock = std::make_unique<QLockFile>(simulatedbuses::lockPath(name));
    lock->setStaleLockTime(0); // only its owner's death ends it, however long that one lives
    if (lock->tryLock(LockPatienceMilliseconds)) {
        m_lock = std::move(lock);
        // What a dead simulator left there may lead to somebody's terminal by now.
        QFile::remove(simulatedbuses::linkPath(name));
        m_name = name;
        return Claim::Made;
    }
    if (lock->error() == QLockFile::LockFailedError) {
        *error = QStringLiteral("a bus named \"%1\" is running already: choose another one with --name").arg(name);
        return Claim::Taken;
    }
    *error = QStringLiteral("cannot write in the folder %1").arg(simulatedbuses::folder());
    return Claim::Failed;
}

QString BusPublication::claim(const QString &name)
{
    QString error = makeFolder();
    if (error.isEmpty())
        tryClaim(name, &error);
    return error;
}

QString BusPublication::claimAny(const QString &name)
{
    QString error = makeFolder();
    if (!error.isEmpty())
        return error;
    Claim result = tryClaim(name, &error);
    for (int number = 2; result == Claim::Taken && number <= MostNumberedNames; ++number)
        result = tryClaim(QStringLiteral("%1-%2").arg(name).arg(number), &error);
    return result == Claim::Made ? QString() : error;
}

QString BusPublication::publish(const QString &device)
{
    m_device = device;
    m_link = simulatedbuses::linkPath(m_name);
    return link(m_link, device);
}

QString BusPublication::publishAt(const QString &path, const QString &device)
{
    m_device = device;
    m_extraLink = QFileInfo(path).absoluteFilePath();
    return link(m_extraLink, device);
}

} // namespace simulator
