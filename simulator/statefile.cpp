#include "simulator/statefile.h"

#include "storage/replacefile.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>

namespace simulator {

namespace {

const QString FormatKey = QStringLiteral("format");
const QString VersionKey = QStringLiteral("version");
const QString ServosKey = QStringLiteral("servos");
const QString Format = QStringLiteral("zelvar-servo-simulator state");
constexpr int Version = 1;
constexpr qint64 GreatestSize = 1 << 20; ///< bytes, of some thousand servos

QString message(const char *what, const QString &path, const QString &reason)
{
    return QStringLiteral("cannot %1 the state file %2: %3").arg(QLatin1String(what), path, reason);
}

/** Whether @p value is what a file has for one servo: numbers by the address of a register. */
bool isRegisters(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    const auto isRegister = [&object](const QString &key) {
        bool isAddress = false;
        key.toUShort(&isAddress);
        const QJsonValue number = object.value(key);
        return isAddress && number.isDouble() && number.toDouble() == number.toInt();
    };
    const QStringList keys = object.keys();
    return value.isObject() && std::all_of(keys.begin(), keys.end(), isRegister);
}

bool isServos(const QJsonValue &value)
{
    static const QRegularExpression label(QStringLiteral("\\A(zelvar|ax12):\\d{1,3}(#\\d+)?\\z"));
    const QJsonObject object = value.toObject();
    const QStringList keys = object.keys();
    return value.isObject() && std::all_of(keys.begin(), keys.end(), [&object](const QString &key) {
               return label.match(key).hasMatch() && isRegisters(object.value(key));
           });
}

RegisterValues valuesFrom(const QJsonObject &object)
{
    RegisterValues values;
    for (auto it = object.begin(); it != object.end(); ++it)
        values.emplace(it.key().toInt(), it.value().toInt());
    return values;
}

} // namespace

StateFile::StateFile(const QString &path, std::vector<Entry> entries) : m_path(path), m_entries(std::move(entries))
{
    QHash<QString, int> occurrences;
    for (Entry &entry : m_entries) {
        const int occurrence = ++occurrences[entry.label];
        if (occurrence > 1)
            entry.label += QStringLiteral("#%1").arg(occurrence);
    }
}

QString StateFile::open()
{
    const QString place = storage::finalPath(m_path);
    const QFileInfo info(place);
    // A pipe would keep this program waiting, and a device is no place to put a file.
    if (place.isEmpty() || (info.exists() && !info.isFile()))
        return QStringLiteral("%1 is no regular file").arg(m_path);
    QString error = lock();
    if (error.isEmpty() && info.exists())
        error = load();
    return error.isEmpty() ? save() : error;
}

QString StateFile::lock()
{
    // Beside the file itself, so that whoever comes over a link meets the same lock.
    m_lock.emplace(AT_FDCWD, QFile::encodeName(storage::finalPath(m_path) + QLatin1String(".lock")));
    switch (m_lock->claim()) {
    case LockFile::Claim::Made:
        return {};
    case LockFile::Claim::HeldByAnother:
        return QStringLiteral("another simulator is using the state file %1").arg(m_path);
    case LockFile::Claim::Failed:
        break;
    }
    return message("lock", m_path, QString::fromLocal8Bit(std::strerror(errno)));
}

QString StateFile::load()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return message("read", m_path, file.errorString());
    const QByteArray bytes = file.read(GreatestSize);
    const QJsonObject contents = QJsonDocument::fromJson(bytes).object();
    const bool hasFormat = contents.value(FormatKey) == Format;
    if (hasFormat && contents.value(VersionKey) != Version)
        return QStringLiteral("%1 is a state file of another version of this program").arg(m_path);
    // Before the format had a name, a file held nothing but servos: no other file looks like that.
    const QJsonValue servos = hasFormat ? contents.value(ServosKey) : QJsonValue(contents);
    // Writing over a file that is something else would cost the user more than this run.
    if (contents.isEmpty() || !isServos(servos))
        return QStringLiteral("%1 is no state file of this program").arg(m_path);

    m_servos = servos.toObject();
    if (hasFormat)
        m_contents = contents;
    for (const Entry &entry : m_entries)
        entry.servo->restoreNonVolatileRegisters(valuesFrom(m_servos.value(entry.label).toObject()));
    return {};
}

/** What the file should have now; whatever this bus does not use is as it was. */
QJsonObject StateFile::currentContents() const
{
    QJsonObject servos = m_servos;
    for (const Entry &entry : m_entries) {
        QJsonObject registers = servos.value(entry.label).toObject();
        for (const auto &[address, value] : entry.servo->nonVolatileRegisters())
            registers.insert(QString::number(address), value);
        servos.insert(entry.label, registers);
    }
    QJsonObject contents = m_contents;
    contents.insert(FormatKey, Format);
    contents.insert(VersionKey, Version);
    contents.insert(ServosKey, servos);
    return contents;
}

QString StateFile::save()
{
    const QJsonObject contents = currentContents();
    if (contents == m_contents)
        return {};
    const storage::ReplaceResult result = storage::replaceFile(m_path, QJsonDocument(contents).toJson());
    if (!result.isDone())
        return message("write", m_path, result.text);
    m_contents = contents;
    return {};
}

} // namespace simulator
