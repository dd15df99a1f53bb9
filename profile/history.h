#pragma once

#include "profile/profile.h"

#include <QDateTime>
#include <QJsonValue>
#include <QString>

#include <optional>
#include <vector>

namespace profile {

/** A servo as the history tells them apart. An id is no identity: another servo may have it tomorrow. */
struct ServoKey
{
    quint16 model = 0;
    quint8 id = 0;

    bool operator==(const ServoKey &other) const { return model == other.model && id == other.id; }
};

/** What a servo had once. */
struct HistoryEntry
{
    ServoKey servo;
    QString file;   ///< its name in the folder of its servo; tells the entry from all others of this servo
    QDateTime time; ///< in UTC: when the servo had it
    QString name;   ///< that the user has given it; empty without one
    bool isPinned = false;
    std::optional<Profile> profile; ///< nothing when the file cannot be read
    QString error;                  ///< why it cannot, for the user
};

/** What is kept of one servo. */
struct HistoryListing
{
    std::vector<HistoryEntry> entries; ///< newest first
    QString error;                     ///< why names and pins could not be read, for the user; else empty
};

/** A servo of which something is kept. */
struct KnownServo
{
    ServoKey servo;
    QDateTime last; ///< in UTC: when the latest entry was made
};

/** What has become of keep(). */
struct KeepResult
{
    enum class Outcome {
        Kept,
        Same,   ///< it was not different from the last entry
        Failed, ///< nothing was written
    };

    Outcome outcome = Outcome::Failed;
    QString error; ///< why it failed, for the user
};

/**
 * The parameters that servos had, in files: one folder a servo, one parameter file an entry, names and pins in a file
 * beside them. Files are made whole or not at all, and a lock keeps programs that run at once from each other's
 * entries; each call looks at the files anew, and no call throws. Waits for the disk, and for another program a second
 * at most.
 */
class History
{
public:
    /** Entries of one servo that stay; pinned ones are not counted. */
    static constexpr int Capacity = 100;

    /** @param folder need not be there yet. */
    explicit History(QString folder);

    /**
     * Makes @p profile, which is not partial, the latest entry of its servo, unless the parameters are those of the
     * last one. Then the oldest entries beyond Capacity go, but for those that are pinned or cannot be read.
     */
    KeepResult keep(const Profile &profile);

    /** The latest entry of @p servo that can be read. */
    std::optional<Profile> last(const ServoKey &servo) const;
    /** All that is kept of @p servo. */
    HistoryListing entries(const ServoKey &servo) const;
    /** All servos of which something is kept, by model and id. */
    std::vector<KnownServo> servos() const;

    /** Names @p entry; an empty @p name takes its name away. @return why it failed, for the user; empty when done. */
    QString setName(const HistoryEntry &entry, const QString &name);
    /** Has @p entry stay however many follow, or not any more. @return as setName(). */
    QString setPinned(const HistoryEntry &entry, bool isPinned);

private:
    QString setNote(const HistoryEntry &entry, const QString &key, const QJsonValue &value);
    QString folderOf(const ServoKey &servo) const;
    QString pathOf(const ServoKey &servo, const QString &file) const;
    void prune(const ServoKey &servo) const;

    QString m_folder;
};

} // namespace profile
