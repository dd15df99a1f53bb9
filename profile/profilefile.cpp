#include "profile/profilefile.h"

#include "model/units.h"
#include "profile/filevalue.h"
#include "profile/text.h"

#include <QFile>

namespace profile {

namespace {

constexpr qint64 LargestFile = 1 << 20; ///< bytes; real ones have about three thousand

QString member(const char *name, const QString &json)
{
    return QStringLiteral("  \"%1\": %2").arg(QLatin1String(name), json);
}

QString entry(const Value &value)
{
    const model::Field &field = *value.field;
    const int unit = fileUnit(field.kind);
    QString text =
        QStringLiteral("    \"%1\": {\"raw\": %2, \"value\": %3")
            .arg(QLatin1String(field.key), QString::number(value.raw), jsonText(fileValue(field, value.raw, unit)));
    const QLatin1String unitName(model::asciiUnit(field.kind, unit));
    if (unitName.size() > 0)
        text += QStringLiteral(", \"unit\": \"%1\"").arg(unitName);
    return text + QLatin1Char('}');
}

QString fieldsOf(const Profile &profile)
{
    QStringList entries;
    for (const Value &value : profile.values)
        entries.append(entry(value));
    return QStringLiteral("{\n%1\n  }").arg(entries.join(QStringLiteral(",\n")));
}

QString bytesOf(const Profile &profile)
{
    return QStringLiteral("{\"address\": %1, \"data\": \"%2\", \"crc\": \"%3\"}")
        .arg(QString::number(nonVolatileRegisters(profile.family()).address),
             QString::fromLatin1(profile.bytes.toHex(' ')), checksum(profile.bytes));
}

} // namespace

QByteArray encoded(const Profile &profile)
{
    QStringList members{member("format", jsonText(QLatin1String(FileFormat))),
                        member("version", QString::number(FileVersion)),
                        member("model", QString::number(profile.model)),
                        member("family", jsonText(QLatin1String(profile.family().name)))};
    if (profile.firmware)
        members.append(member("firmware", QString::number(*profile.firmware)));
    if (profile.id)
        members.append(member("id", QString::number(*profile.id)));
    if (profile.time.isValid())
        members.append(member("time", jsonText(profile.time.toUTC().toString(Qt::ISODate))));
    if (profile.isPartial)
        members.append(member("partial", QStringLiteral("true")));
    members.append(member("fields", fieldsOf(profile)));
    if (!profile.isPartial)
        members.append(member("bytes", bytesOf(profile)));
    return QStringLiteral("{\n%1\n}\n").arg(members.join(QStringLiteral(",\n"))).toUtf8();
}

Reading readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {std::nullopt, file.errorString(), {}};
    const QByteArray text = file.read(LargestFile + 1);
    if (file.error() != QFile::NoError)
        return {std::nullopt, file.errorString(), {}};
    if (text.size() > LargestFile)
        return {std::nullopt, Text::tr("line 1: it is too large to be a file of servo parameters"), {}};
    return decoded(text);
}

storage::ReplaceResult writeFile(const QString &path, const Profile &profile)
{
    return storage::replaceFile(path, encoded(profile));
}

QString proposedName(const Profile &profile)
{
    return QStringLiteral("%1-%2-%3.zservo")
        .arg(QLatin1String(profile.family().name), QString::number(profile.id.value_or(0)),
             profile.time.toUTC().date().toString(Qt::ISODate));
}

QString checksum(const QByteArray &bytes)
{
    return QStringLiteral("%1").arg(qChecksum(bytes.constData(), uint(bytes.size())), 4, 16, QLatin1Char('0'));
}

} // namespace profile
