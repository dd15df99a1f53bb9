#include "simulator/lockfile.h"

#include <QDeadlineTimer>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace simulator {

namespace {

/** A client that looks whether the simulator is alive holds its lock for a moment. */
constexpr int PatienceMilliseconds = 200;

} // namespace

LockFile::~LockFile()
{
    if (m_descriptor < 0)
        return;
    struct stat status = {};
    // While it is locked, so that nobody else can have claimed what is removed here.
    if (fstat(m_descriptor, &status) == 0 && status.st_size == 0 && isInPlace())
        unlinkat(m_folder, m_name.constData(), 0);
    close();
}

LockFile::Claim LockFile::claim()
{
    const QDeadlineTimer deadline(PatienceMilliseconds);
    while (open()) {
        const bool isLocked = flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
        if (isLocked && isInPlace())
            return Claim::Made;
        const int error = isLocked ? EWOULDBLOCK : errno;
        close();
        errno = error;
        if (error != EWOULDBLOCK)
            return Claim::Failed;
        if (deadline.hasExpired())
            return Claim::HeldByAnother;
        QThread::msleep(1);
    }
    return Claim::Failed;
}

bool LockFile::open()
{
    constexpr int Flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    m_descriptor = openat(m_folder, m_name.constData(), Flags, S_IRUSR | S_IWUSR);
    if (m_descriptor < 0)
        return false;
    struct stat status = {};
    if (fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode))
        return true;
    close();
    errno = EINVAL;
    return false;
}

void LockFile::close()
{
    ::close(m_descriptor);
    m_descriptor = -1;
}

bool LockFile::isInPlace() const
{
    struct stat opened = {};
    struct stat named = {};
    return fstat(m_descriptor, &opened) == 0 &&
           fstatat(m_folder, m_name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

} // namespace simulator
