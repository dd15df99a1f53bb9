#include "simulator/statefile.h"

#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace simulator {

namespace {

RegisterValues valuesFrom(const QJsonObject &object)
{
    RegisterValues values;
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool isAddress = false;
        const int address = it.key().toInt(&isAddress);
        if (isAddress && it.value().isDouble())
            values.emplace(address, it.value().toInt());
    }
    return values;
}

QJsonObject objectFrom(const RegisterValues &values)
{
    QJsonObject object;
    for (const auto &[address, value] : values)
        object.insert(QString::number(address), value);
    return object;
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
    if (QFile::exists(m_path)) {
        QString error = load();
        if (!error.isEmpty())
            return error;
    }
    return save();
}

QString StateFile::load()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read the state file %1: %2").arg(m_path, file.errorString());
    const QByteArray bytes = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    // Writing over a file that is something else would cost the user more than this run.
    if (!bytes.isEmpty() && !document.isObject())
        return QStringLiteral("%1 is no state file of this program").arg(m_path);

    const QJsonObject state = document.object();
    for (const Entry &entry : m_entries)
        entry.servo->restoreNonVolatileRegisters(valuesFrom(state.value(entry.label).toObject()));
    return {};
}

QByteArray StateFile::contents() const
{
    QJsonObject state;
    for (const Entry &entry : m_entries)
        state.insert(entry.label, objectFrom(entry.servo->nonVolatileRegisters()));
    return QJsonDocument(state).toJson();
}

QString StateFile::save()
{
    const QByteArray bytes = contents();
    if (bytes == m_saved)
        return {};
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return QStringLiteral("cannot write the state file %1: %2").arg(m_path, file.errorString());
    m_saved = bytes;
    return {};
}

} // namespace simulator
