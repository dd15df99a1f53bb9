#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace simulator {

/**
 * A claim that lasts until this object or its process goes, however that ends: a file that is locked (flock). The
 * file is removed with it if it is empty, as those are that it makes itself.
 */
class LockFile
{
public:
    enum class Claim {
        Made,
        HeldByAnother,
        Failed, ///< errno is the reason; EINVAL when what is there is no regular file
    };

    /** For the file @p name in the open @p folder, or AT_FDCWD. REQUIRES: that stays open as long as this object. */
    LockFile(int folder, const QByteArray &name) : m_folder(folder), m_name(name) {}
    ~LockFile();
    Q_DISABLE_COPY(LockFile)

    /** Somebody who only looks whether the file is locked is waited for. */
    Claim claim();

private:
    /** Opens the file, which may be new. @return whether it is a regular one. */
    bool open();
    void close();
    /** Whether the opened file is the one that bears the name, and none that was removed in between. */
    bool isInPlace() const;

    int m_folder;
    QByteArray m_name;
    int m_descriptor = -1; ///< of the locked file
};

} // namespace simulator
