#pragma once

#include <QString>

#include <memory>

namespace simulator {

class LockFile;

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

    /** What came of claiming a name. */
    enum class Claim {
        Made,
        Taken,    ///< another bus has it
        NoFolder, ///< no bus can be published; this one does not need to be
    };

    /** Claims @p name for this process. @p error says, unless it is made, what is in the way. */
    Claim claim(const QString &name, QString *error);
    /** Claims @p name or, when it is taken, the same with a number behind it. */
    Claim claimAny(const QString &name, QString *error);
    QString name() const { return m_name; }

    /** Links the claimed name to @p device. @return an empty text on success, otherwise what is in the way. */
    QString publish(const QString &device);
    /**
     * Links @p path to the bus at @p device, over the published link if there is one: so it never leads to another
     * device when this simulator is killed, and the next one knows it for ours. It takes the place of such a
     * link whose bus is gone, and of nothing else. @return as publish().
     */
    QString publishAt(const QString &path, const QString &device);

private:
    Claim tryClaim(const QString &name, QString *error);
    bool isLeftover(const QByteArray &target) const;

    QString m_name;
    int m_folder = -1; ///< the open folder of the links
    QByteArray m_device;
    QByteArray m_link;      ///< name of the link in the folder
    QByteArray m_extraLink; ///< path of the other one
    QByteArray m_extraTarget;
    std::unique_ptr<LockFile> m_lock;
};

} // namespace simulator
