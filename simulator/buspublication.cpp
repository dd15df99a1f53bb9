#include "simulator/buspublication.h"

#include "serialport/simulatedbuses.h"
#include "simulator/lockfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace simulator {

namespace {

constexpr int MostNumberedNames = 99;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/** Where the link @p name in @p folder leads to; empty when it is no link. */
QByteArray linkTarget(int folder, const QByteArray &name)
{
    char target[PATH_MAX];
    const ssize_t size = readlinkat(folder, name.constData(), target, sizeof target);
    return size > 0 ? QByteArray(target, static_cast<int>(size)) : QByteArray();
}

/** Removes the link @p name, unless it has come to lead somewhere else. */
void removeLink(int folder, const QByteArray &name, const QByteArray &target)
{
    if (!name.isEmpty() && linkTarget(folder, name) == target)
        unlinkat(folder, name.constData(), 0);
}

} // namespace

BusPublication::BusPublication() = default;

BusPublication::~BusPublication()
{
    removeLink(AT_FDCWD, m_extraLink, m_extraTarget);
    removeLink(m_folder, m_link, m_device);
    m_lock.reset();
    if (m_folder >= 0)
        ::close(m_folder);
}

BusPublication::Claim BusPublication::tryClaim(const QString &name, QString *error)
{
    auto lock = std::make_unique<LockFile>(m_folder, simulatedbuses::lockName(name));
    switch (lock->claim()) {
    case LockFile::Claim::Made:
        break;
    case LockFile::Claim::HeldByAnother:
        *error = QStringLiteral("a bus named \"%1\" is running already: choose another one with --name").arg(name);
        return Claim::Taken;
    case LockFile::Claim::Failed:
        *error = QStringLiteral("cannot lock %1.lock: %2").arg(simulatedbuses::linkPath(name), systemError());
        return Claim::Taken; // the next name may do
    }
    m_lock = std::move(lock);
    m_name = name;
    // What a dead simulator left there may lead to somebody's terminal by now.
    const QByteArray link = QFile::encodeName(name);
    removeLink(m_folder, link, linkTarget(m_folder, link));
    return Claim::Made;
}

BusPublication::Claim BusPublication::claim(const QString &name, QString *error)
{
    m_name = name;
    if (m_folder < 0)
        m_folder = simulatedbuses::openFolder(simulatedbuses::IfMissing::Make);
    if (m_folder >= 0)
        return tryClaim(name, error);
    *error = QStringLiteral("the bus is not in the list of ports, as %1 is no folder of this user's alone: %2")
                 .arg(simulatedbuses::folder(), systemError());
    return Claim::NoFolder;
}

BusPublication::Claim BusPublication::claimAny(const QString &name, QString *error)
{
    Claim result = claim(name, error);
    for (int number = 2; result == Claim::Taken && number <= MostNumberedNames; ++number)
        result = tryClaim(QStringLiteral("%1-%2").arg(name).arg(number), error);
    return result;
}

QString BusPublication::publish(const QString &device)
{
    if (!m_lock)
        return {};
    m_device = QFile::encodeName(device);
    const QByteArray link = QFile::encodeName(m_name);
    if (symlinkat(m_device.constData(), m_folder, link.constData()) != 0)
        return QStringLiteral("cannot make the link %1: %2").arg(simulatedbuses::linkPath(m_name), systemError());
    m_link = link;
    return {};
}

/** Whether a link to @p target is one that a simulator which is gone has left. */
bool BusPublication::isLeftover(const QByteArray &target) const
{
    const QFileInfo info(QFile::decodeName(target));
    if (info.dir().dirName() != QLatin1String(simulatedbuses::FolderName))
        return false;
    if (!m_lock || info.absolutePath() != QFileInfo(simulatedbuses::folder()).absoluteFilePath())
        return !info.exists();
    const bool isOwnName = info.fileName() == m_name; // whose lock is held here now
    return isOwnName || !simulatedbuses::isPublished(m_folder, info.fileName());
}

QString BusPublication::publishAt(const QString &path, const QString &device)
{
    const QByteArray link = QFile::encodeName(QFileInfo(path).absoluteFilePath());
    const QString published = QFileInfo(simulatedbuses::linkPath(m_name)).absoluteFilePath();
    const QByteArray target = QFile::encodeName(m_link.isEmpty() ? device : published);
    const QByteArray present = linkTarget(AT_FDCWD, link);
    if (!present.isEmpty() && isLeftover(present))
        removeLink(AT_FDCWD, link, present);
    if (symlink(target.constData(), link.constData()) != 0) {
        return errno == EEXIST ? QStringLiteral("cannot make the link %1: something else is there").arg(path)
                               : QStringLiteral("cannot make the link %1: %2").arg(path, systemError());
    }
    m_extraLink = link;
    m_extraTarget = target;
    return {};
}

} // namespace simulator
