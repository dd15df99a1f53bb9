#pragma once

#include <QString>

#include <memory>

class QLockFile;

namespace simulator {

/**
 * The links under which a bus is found: one in the folder of simulated buses, held by a lock for as long as
 * this object lives, and another one wherever the user wants it. Both go with this object.
 */
class BusPublication
{
public:
    BusPublication();
    ~BusPublication();
    Q_DISABLE_COPY(BusPublication)

    /** Claims @p name for this process. @return an empty text on success, otherwise what is in the way. */
    QString claim(const QString &name);
    /** Claims @p name or, when it is taken, the same with a number behind it. */
    QString claimAny(const QString &name);
    QString name() const { return m_name; }

    /** Links the claimed name to @p device. */
    QString publish(const QString &device);
    /** Links @p path to @p device; takes the place of another link there, but of nothing else. */
    QString publishAt(const QString &path, const QString &device);

private:
    enum class Claim {
        Made,
        Taken,
        Failed,
    };

    Claim tryClaim(const QString &name, QString *error);

    QString m_name;
    QString m_device;
    QString m_link;
    QString m_extraLink;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace simulator
