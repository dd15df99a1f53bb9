#include "profile/filevalue.h"

#include "model/baudrates.h"
#include "model/choices.h"
#include "model/fieldvalue.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>

namespace profile {

using model::Field;
using model::FieldKind;

namespace {

QJsonArray flagsOf(const Field &field, qint32 raw)
{
    QJsonArray names;
    for (const model::Flag &flag : field.flags) {
        if (quint32(raw) & (1U << flag.bit))
            names.append(QLatin1String(flag.key));
    }
    return names;
}

std::optional<qint32> flagsIn(const Field &field, const QJsonArray &names)
{
    quint32 bits = 0;
    for (const QJsonValue &name : names) {
        quint32 bit = 0;
        for (const model::Flag &flag : field.flags)
            bit |= name.toString() == QLatin1String(flag.key) ? 1U << flag.bit : 0;
        if (bit == 0)
            return std::nullopt;
        bits |= bit;
    }
    return qint32(bits);
}

std::optional<qint32> choiceIn(const Field &field, const QString &name)
{
    for (const model::Choice &row : model::Choices) {
        if (row.kind == field.kind && name == QLatin1String(row.name))
            return row.value;
    }
    return std::nullopt;
}

std::optional<qint32> baudCodeIn(const Field &field, double bitsPerSecond)
{
    for (qint32 code = field.range.rawMin; code <= field.range.rawMax; ++code) {
        if (model::nominalBaudRate(code) == bitsPerSecond)
            return code;
    }
    return std::nullopt;
}

} // namespace

int fileUnit(FieldKind kind)
{
    return kind == FieldKind::Angle ? 1 : 0; // degrees; the base unit of all others
}

QJsonValue fileValue(const Field &field, qint32 raw, int unit)
{
    if (!field.flags.isEmpty())
        return flagsOf(field, raw);
    if (field.kind == FieldKind::BaudRate)
        return model::nominalBaudRate(raw);
    for (const model::Choice &row : model::Choices) {
        if (row.kind == field.kind && row.value == raw)
            return QLatin1String(row.name);
    }
    return QString::number(model::valueIn(field, raw, unit), 'f', model::stepDecimals(field, unit)).toDouble();
}

std::optional<qint32> rawOf(const Field &field, const QJsonValue &value, int unit)
{
    if (value.isArray() && !field.flags.isEmpty())
        return flagsIn(field, value.toArray());
    if (value.isString())
        return choiceIn(field, value.toString());
    if (!value.isDouble())
        return std::nullopt;
    const double number = value.toDouble();
    if (field.kind == FieldKind::BaudRate)
        return baudCodeIn(field, number);
    if (model::stepDecimals(field, unit) == 0 && number != std::floor(number))
        return std::nullopt;
    return model::nearestRaw(field, number, unit);
}

QString jsonText(const QJsonValue &value)
{
    const QByteArray inBrackets = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(inBrackets.mid(1, inBrackets.size() - 2));
}

} // namespace profile
