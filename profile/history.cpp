#include "profile/history.h"

#include "profile/profilefile.h"
#include "profile/restoreplan.h"
#include "profile/text.h"
#include "storage/replacefile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>

#include <algorithm>
#include <limits>
#include <utility>

namespace profile {

namespace {

constexpr int LockPatience = 1000; ///< ms; a writer needs some for the disk
const QString NotesFile = QStringLiteral("names.json");
const QString NameKey = QStringLiteral("name");
const QString PinnedKey = QStringLiteral("pinned");
const QString TimeFormat = QStringLiteral("yyyyMMdd'T'HHmmss'Z'");

/** The name of an entry's file. The number puts entries in order, also where the clock was set back in between. */
struct EntryFile
{
    QString name;
    int number;
    QDateTime time; ///< in UTC
};

QString entryName(int number, const QDateTime &time)
{
    return QStringLiteral("%1-%2.zservo").arg(number, 6, 10, QLatin1Char('0')).arg(time.toUTC().toString(TimeFormat));
}

std::optional<EntryFile> entryFile(const QString &name)
{
    const int number = name.section(QLatin1Char('-'), 0, 0).toInt();
    const QString timeText = name.section(QLatin1Char('-'), 1).section(QLatin1Char('.'), 0, 0);
    QDateTime time = QDateTime::fromString(timeText, TimeFormat);
    time.setTimeSpec(Qt::UTC);
    // Written anew, so that nobody else's file is taken for an entry.
    if (!time.isValid() || entryName(number, time) != name)
        return std::nullopt;
    return EntryFile{name, number, time};
}

/** The entries in @p folder, newest first. */
std::vector<EntryFile> entryFiles(const QString &folder)
{
    std::vector<EntryFile> files;
    const QStringList names = QDir(folder).entryList(QDir::Files); // with a filter Qt compiles a pattern each time
    for (const QString &name : names) {
        if (const auto file = entryFile(name))
            files.push_back(*file);
    }
    std::sort(files.begin(), files.end(),
              [](const EntryFile &one, const EntryFile &other) { return one.number > other.number; });
    return files;
}

QString servoName(const ServoKey &servo)
{
    return QStringLiteral("model-%1-id-%2").arg(servo.model).arg(servo.id);
}

std::optional<ServoKey> servoOf(const QString &folderName)
{
    const QStringList parts = folderName.split(QLatin1Char('-'));
    const ServoKey servo{parts.value(1).toUShort(), quint8(parts.value(3).toUShort())};
    // Written anew, so that no other folder is taken for the servo's.
    return servoName(servo) == folderName ? std::optional<ServoKey>(servo) : std::nullopt;
}

/** What the user has noted of the entries in one folder, by their files. */
struct Notes
{
    QJsonObject ofFiles;
    QString error; ///< why they cannot be read

    QJsonObject of(const QString &file) const { return ofFiles.value(file).toObject(); }
    bool isPinned(const QString &file) const { return of(file).value(PinnedKey).toBool(); }
};

Notes readNotes(const QString &folder)
{
    const QString path = QDir(folder).filePath(NotesFile);
    QFile file(path);
    if (!file.exists())
        return {};
    const auto broken = [&path](const QString &reason) {
        return Text::tr("The names and pins in %1 cannot be read: %2").arg(QDir::toNativeSeparators(path), reason);
    };
    if (!file.open(QIODevice::ReadOnly))
        return {{}, broken(file.errorString())};
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject())
        return {{}, broken(error.errorString())};
    return {document.object(), {}};
}

/** Locks the history in @p folder against other programs. @return why not, for the user; empty when done. */
QString lockError(QLockFile &lock, const QString &folder)
{
    if (lock.tryLock(LockPatience))
        return {};
    if (lock.error() == QLockFile::LockFailedError)
        return Text::tr("Another program is using the history.");
    return Text::tr("Nothing can be written to %1: is the disk full, or the folder write-protected?")
        .arg(QDir::toNativeSeparators(folder));
}

QString lockPath(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("lock"));
}

KeepResult failure(const QString &error)
{
    return {KeepResult::Outcome::Failed, error};
}

bool isEqual(const Profile &one, const Profile &other)
{
    const Comparison comparison = compare(one, other, nonVolatileFields(one.family()));
    return comparison.missing.empty() && comparison.differences().empty();
}

} // namespace

History::History(QString folder) : m_folder(std::move(folder)) {}

QString History::folderOf(const ServoKey &servo) const
{
    return QDir(m_folder).filePath(servoName(servo));
}

QString History::pathOf(const ServoKey &servo, const QString &file) const
{
    return QDir(folderOf(servo)).filePath(file);
}

KeepResult History::keep(const Profile &profile)
{
    const ServoKey servo{profile.model, profile.id.value_or(0)};
    const QString folder = folderOf(servo);
    if (!QDir().mkpath(folder))
        return failure(Text::tr("The folder %1 cannot be made.").arg(QDir::toNativeSeparators(folder)));
    QLockFile lock(lockPath(m_folder));
    const QString locked = lockError(lock, m_folder);
    if (!locked.isEmpty())
        return failure(locked);

    if (const auto before = last(servo); before && isEqual(profile, *before))
        return {KeepResult::Outcome::Same, {}};
    const std::vector<EntryFile> files = entryFiles(folder);
    const int number = files.empty() ? 1 : files.front().number + 1;
    const storage::ReplaceResult written = writeFile(pathOf(servo, entryName(number, profile.time)), profile);
    if (!written.isDone())
        return failure(written.text);
    prune(servo);
    return {KeepResult::Outcome::Kept, {}};
}

void History::prune(const ServoKey &servo) const
{
    const Notes notes = readNotes(folderOf(servo));
    if (!notes.error.isEmpty())
        return; // nobody knows what is pinned
    int kept = 0;
    for (const EntryFile &file : entryFiles(folderOf(servo))) {
        if (notes.isPinned(file.name) || ++kept <= Capacity)
            continue;
        const QString path = pathOf(servo, file.name);
        if (readFile(path).profile) // what is damaged may still be of use to somebody
            QFile::remove(path);
    }
}

std::optional<Profile> History::last(const ServoKey &servo) const
{
    for (const EntryFile &file : entryFiles(folderOf(servo))) {
        if (auto profile = readFile(pathOf(servo, file.name)).profile)
            return profile;
    }
    return std::nullopt;
}

HistoryListing History::entries(const ServoKey &servo) const
{
    const Notes notes = readNotes(folderOf(servo));
    HistoryListing listing{{}, notes.error};
    for (const EntryFile &file : entryFiles(folderOf(servo))) {
        const QString path = pathOf(servo, file.name);
        Reading reading = readFile(path);
        if (!reading.profile && !QFile::exists(path))
            continue; // another program has taken it away just now
        HistoryEntry entry{servo,
                           file.name,
                           file.time,
                           notes.of(file.name).value(NameKey).toString(),
                           notes.isPinned(file.name),
                           std::move(reading.profile),
                           reading.error};
        listing.entries.push_back(std::move(entry));
    }
    return listing;
}

std::vector<KnownServo> History::servos() const
{
    std::vector<KnownServo> servos;
    const QStringList names = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const auto servo = servoOf(name);
        if (!servo)
            continue;
        const std::vector<EntryFile> files = entryFiles(folderOf(*servo));
        if (!files.empty())
            servos.push_back({*servo, files.front().time});
    }
    std::sort(servos.begin(), servos.end(), [](const KnownServo &one, const KnownServo &other) {
        return std::pair(one.servo.model, one.servo.id) < std::pair(other.servo.model, other.servo.id);
    });
    return servos;
}

QString History::setName(const HistoryEntry &entry, const QString &name)
{
    const QString plain = name.simplified();
    return setNote(entry, NameKey, plain.isEmpty() ? QJsonValue(QJsonValue::Undefined) : plain);
}

QString History::setPinned(const HistoryEntry &entry, bool isPinned)
{
    return setNote(entry, PinnedKey, isPinned ? true : QJsonValue(QJsonValue::Undefined));
}

/** Notes @p value, which takes the note away when it is undefined. Notes of files that are gone go, too. */
QString History::setNote(const HistoryEntry &entry, const QString &key, const QJsonValue &value)
{
    const QString folder = folderOf(entry.servo);
    QLockFile lock(lockPath(m_folder));
    QString locked = lockError(lock, m_folder);
    if (!locked.isEmpty())
        return locked;
    const Notes notes = readNotes(folder);
    if (!notes.error.isEmpty())
        return notes.error;
    if (!QFile::exists(pathOf(entry.servo, entry.file)))
        return Text::tr("This entry is not there any more.");
    QJsonObject kept;
    for (const EntryFile &file : entryFiles(folder)) {
        QJsonObject note = notes.of(file.name);
        if (file.name == entry.file)
            note.insert(key, value);
        if (!note.isEmpty())
            kept.insert(file.name, note);
    }
    return storage::replaceFile(QDir(folder).filePath(NotesFile), QJsonDocument(kept).toJson()).text;
}

} // namespace profile
