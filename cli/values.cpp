#include "cli/values.h"

#include "cli/failure.h"
#include "model/baudrates.h"
#include "model/choices.h"
#include "model/fieldvalue.h"
#include "model/units.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QStringList>

#include <cmath>
#include <map>

namespace cli {

using model::Field;
using model::FieldKind;
using recording::UnitChoice;

namespace {

constexpr int UnitsOfAKind = 2;
const QString On = QStringLiteral("on");
const QString Off = QStringLiteral("off");
const QString NoFlag = QStringLiteral("none");
constexpr char FlagSeparator = '+';

/** The unit of model::unit() that values are told in unless another one is asked for. */
int usualUnit(FieldKind kind)
{
    return kind == FieldKind::Angle ? 1 : 0; // degrees; the first one of all others
}

bool hasFlags(const Field &field)
{
    return !field.flags.isEmpty();
}

bool isSwitch(const Field &field)
{
    return field.kind == FieldKind::PlainValue && field.range.rawMax == 1;
}

QString choiceName(FieldKind kind, qint32 value)
{
    for (const model::Choice &row : model::Choices) {
        if (row.kind == kind && row.value == value)
            return QLatin1String(row.name);
    }
    return {};
}

QStringList choiceNames(FieldKind kind)
{
    QStringList names;
    for (const model::Choice &row : model::Choices) {
        if (row.kind == kind)
            names.append(QLatin1String(row.name));
    }
    return names;
}

QStringList baudRateNames()
{
    QStringList names;
    for (const model::BaudRate &row : model::BaudRates)
        names.append(QString::number(row.bitsPerSecond));
    return names;
}

QStringList flagsOf(const Field &field, qint32 raw)
{
    QStringList names;
    for (const model::Flag &flag : field.flags) {
        if (quint32(raw) & (1U << flag.bit))
            names.append(QLatin1String(flag.key));
    }
    return names;
}

QString numberText(const Field &field, qint32 raw, const UnitChoice &unitOf)
{
    const recording::Column column{&field, unitOf(field.kind)};
    return QString::number(column.value(raw), 'f', model::stepDecimals(field, column.unit));
}

[[noreturn]] void reject(const Field &field, const QString &text, const QString &why)
{
    throw Failure{ExitStatus::Usage, QStringLiteral("%1=%2: %3").arg(QLatin1String(field.key), text, why)};
}

qint32 wholeNumber(const Field &field, const QString &text, const QString &expected)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber, 0); // also 0x1F
    if (!isNumber)
        reject(field, text, QStringLiteral("write %1").arg(expected));
    return number;
}

qint32 switchIn(const Field &field, const QString &text)
{
    if (text == On || text == QLatin1String("1"))
        return 1;
    if (text == Off || text == QLatin1String("0"))
        return 0;
    reject(field, text, QStringLiteral("write on or off"));
}

qint32 flagsIn(const Field &field, const QString &text)
{
    if (text == NoFlag)
        return 0;
    const QStringList names = text.split(QLatin1Char(FlagSeparator));
    quint32 bits = 0;
    for (const QString &name : names) {
        quint32 bit = 0;
        for (const model::Flag &flag : field.flags)
            bit |= name == QLatin1String(flag.key) ? 1U << flag.bit : 0;
        if (bit == 0)
            return wholeNumber(field, text,
                               QStringLiteral("none, a number, or flags as \"%1\"")
                                   .arg(flagsOf(field, -1).join(QLatin1Char(FlagSeparator))));
        bits |= bit;
    }
    return qint32(bits);
}

qint32 baudCodeIn(const Field &field, const QString &text)
{
    for (const model::BaudRate &row : model::BaudRates) {
        if (text == QString::number(row.bitsPerSecond))
            return row.code;
    }
    reject(field, text, QStringLiteral("write one of %1").arg(baudRateNames().join(QLatin1String(", "))));
}

qint32 choiceIn(const Field &field, const QString &text)
{
    for (const model::Choice &row : model::Choices) {
        if (row.kind == field.kind && text == QLatin1String(row.name))
            return row.value;
    }
    return wholeNumber(field, text, QStringLiteral("one of %1").arg(choiceNames(field.kind).join(QLatin1String(", "))));
}

QStringList unitNames(FieldKind kind)
{
    QStringList names;
    for (int i = 0; i < UnitsOfAKind; ++i) {
        const QString name = QLatin1String(model::asciiUnit(kind, i));
        if (!name.isEmpty() && !names.contains(name))
            names.append(name);
    }
    return names;
}

/** The unit that the value @p text of @p field ends with. */
int unitIn(const Field &field, const QString &text, const QString &number, const QString &name)
{
    const QStringList names = unitNames(field.kind);
    if (name.isEmpty() && names.size() < 2)
        return 0;
    const int index = names.indexOf(name);
    if (index >= 0)
        return index;
    if (names.isEmpty())
        reject(field, text, QStringLiteral("it has no unit; write %1").arg(number));
    const QString write = number + names.join(QStringLiteral(" or %1").arg(number));
    reject(field, text,
           name.isEmpty() ? QStringLiteral("in which unit? write %1").arg(write)
                          : QStringLiteral("\"%1\" is no unit of it; write %2").arg(name, write));
}

qint32 numberIn(const Field &field, const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?)\\s*([^\\s\\d.,].*)?\\z"));
    const auto match = pattern.match(text);
    const QString number = match.captured(1);
    if (!match.hasMatch())
        reject(field, text, QStringLiteral("it is no number; write one with a point, and its unit"));
    const recording::Column column{&field, unitIn(field, text, number, match.captured(2))};
    const double value = number.toDouble();
    if (!std::isfinite(value))
        reject(field, text, QStringLiteral("it is too large a number"));
    const bool isCount = unitNames(field.kind).isEmpty() && model::stepDecimals(field, column.unit) == 0;
    if (isCount && value != std::floor(value))
        reject(field, text, QStringLiteral("write a whole number"));
    return column.rawAt(value);
}

qint32 parsed(const Field &field, const QString &text)
{
    if (hasFlags(field))
        return flagsIn(field, text);
    if (isSwitch(field))
        return switchIn(field, text);
    if (field.kind == FieldKind::BaudRate)
        return baudCodeIn(field, text);
    if (model::isChoice(field.kind))
        return choiceIn(field, text);
    return numberIn(field, text);
}

} // namespace

UnitChoice unitsIn(const QString &text)
{
    std::map<FieldKind, int> chosen;
    const QStringList names = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        bool isKnown = false;
        for (auto kind = qint32(FieldKind::AngularVelocity); kind <= qint32(FieldKind::ReturnDelay); ++kind) {
            const int index = unitNames(FieldKind(kind)).indexOf(name.trimmed());
            if (index < 0)
                continue;
            chosen[FieldKind(kind)] = index;
            isKnown = true;
        }
        if (!isKnown)
            throw Failure{ExitStatus::Usage,
                          QStringLiteral("there is no unit \"%1\"; write for example --units rad,rpm,mA").arg(name)};
    }
    return [chosen](FieldKind kind) {
        const auto found = chosen.find(kind);
        return found == chosen.end() ? usualUnit(kind) : found->second;
    };
}

QString unitText(FieldKind kind, const UnitChoice &unitOf)
{
    return QLatin1String(model::asciiUnit(kind, unitOf(kind)));
}

QString valueText(const Field &field, qint32 raw, const UnitChoice &unitOf)
{
    const QJsonValue value = valueObject(field, raw, unitOf);
    if (value.isArray())
        return raw == 0 ? NoFlag : flagsOf(field, raw).join(QLatin1Char(FlagSeparator));
    if (value.isBool())
        return value.toBool() ? On : Off;
    if (value.isString())
        return value.toString();
    if (field.kind == FieldKind::BaudRate)
        return QString::number(value.toInt());
    return numberText(field, raw, unitOf) + unitText(field.kind, unitOf);
}

QJsonValue valueObject(const Field &field, qint32 raw, const UnitChoice &unitOf)
{
    if (hasFlags(field))
        return QJsonArray::fromStringList(flagsOf(field, raw));
    if (isSwitch(field) && (raw == 0 || raw == 1))
        return raw == 1;
    if (field.kind == FieldKind::BaudRate)
        return model::nominalBaudRate(raw);
    const QString name = choiceName(field.kind, raw);
    if (!name.isEmpty())
        return name;
    return numberText(field, raw, unitOf).toDouble();
}

QJsonObject fieldObject(const Field &field, qint32 raw, const UnitChoice &unitOf)
{
    QJsonObject object{{QStringLiteral("value"), valueObject(field, raw, unitOf)}, {QStringLiteral("raw"), raw}};
    const QString unit = unitText(field.kind, unitOf);
    if (!unit.isEmpty())
        object.insert(QStringLiteral("unit"), unit);
    return object;
}

QString rangeText(const Field &field, const UnitChoice &unitOf)
{
    if (hasFlags(field))
        return flagsOf(field, field.range.rawMax).join(QLatin1Char(FlagSeparator));
    if (isSwitch(field))
        return QStringLiteral("off or on");
    if (field.kind == FieldKind::BaudRate)
        return baudRateNames().join(QLatin1Char(' '));
    if (model::isChoice(field.kind))
        return choiceNames(field.kind).join(QLatin1Char(' '));
    const qint32 least = field.isDirected() ? -field.range.rawMax : field.range.rawMin;
    return QStringLiteral("%1 to %2")
        .arg(valueText(field, least, unitOf), valueText(field, field.range.rawMax, unitOf));
}

qint32 rawValueIn(const Field &field, const QString &text, const UnitChoice &unitOf)
{
    const qint32 raw = parsed(field, text.trimmed());
    if (!model::isInRange(field, raw))
        reject(field, text, QStringLiteral("it takes %1").arg(rangeText(field, unitOf)));
    return raw;
}

} // namespace cli
