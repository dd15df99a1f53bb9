#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/fields.h"
#include "cli/ports.h"
#include "cli/scan.h"
#include "cli/values.h"
#include "model/baudrates.h"
#include "model/families.h"

#include <QStringList>

#include <algorithm>
#include <cstdio>

#ifdef Q_OS_UNIX
#    include <unistd.h>
#endif

namespace cli {

namespace {

constexpr int HexDigits = 2;
constexpr int Hexadecimal = 16;

QString hex(quint32 number, int digits)
{
    return QStringLiteral("%1").arg(number, digits, Hexadecimal, QLatin1Char('0'));
}

const char *accessText(model::Access access)
{
    switch (access) {
    case model::Access::ReadOnly:
        return "read-only";
    case model::Access::NonVolatile:
        return "non-volatile";
    case model::Access::Volatile:
        break;
    }
    return "volatile";
}

/** Two columns, the first one @p width wide. */
QString row(const QString &name, const QString &text)
{
    constexpr int Width = 10;
    return name.leftJustified(Width) + text;
}

bool isTerminal(FILE *stream)
{
#ifdef Q_OS_UNIX
    return isatty(fileno(stream)) == 1;
#else
    Q_UNUSED(stream)
    return false;
#endif
}

void drawProgress(int done, int all)
{
    constexpr int Width = 40;
    const int filled = all > 0 ? done * Width / all : 0;
    std::fprintf(stderr, "\r[%s%s] %3d %%", QByteArray(filled, '#').constData(),
                 QByteArray(Width - filled, ' ').constData(), all > 0 ? done * 100 / all : 0);
    if (done == all)
        std::fprintf(stderr, "\r%s\r", QByteArray(Width + 10, ' ').constData());
    std::fflush(stderr);
}

QString familyName(const FoundServo &servo)
{
    return QLatin1String(model::familyOf(servo.modelNumber.value_or(0)).name);
}

QString told(const FoundServo &servo)
{
    QString text = QStringLiteral("%1\t%2\t").arg(servo.id).arg(servo.baudRate);
    if (servo.isConflict)
        return text + QStringLiteral("conflict: several servos answer with this id; connect them one at a time and "
                                     "give each its own");
    if (!servo.modelNumber)
        return text + QStringLiteral("speaks 1.0 and answers pings only");
    text += QStringLiteral("%1\tmodel %2").arg(familyName(servo)).arg(*servo.modelNumber);
    return servo.firmware ? text + QStringLiteral("\tfirmware %1").arg(*servo.firmware) : text;
}

QJsonObject asObject(const FoundServo &servo)
{
    QJsonObject object{{QStringLiteral("id"), servo.id},
                       {QStringLiteral("baud"), servo.baudRate},
                       {QStringLiteral("conflict"), servo.isConflict}};
    if (servo.modelNumber) {
        object.insert(QStringLiteral("model"), *servo.modelNumber);
        object.insert(QStringLiteral("family"), familyName(servo));
    }
    if (servo.firmware)
        object.insert(QStringLiteral("firmware"), *servo.firmware);
    return object;
}

/** What stands in front of each line when there are several servos. */
QString prefixFor(int id, const std::vector<int> &ids)
{
    return ids.size() > 1 ? QStringLiteral("%1: ").arg(id) : QString();
}

QJsonObject describe(const model::Field &field, const recording::UnitChoice &unitOf)
{
    QJsonObject object{{QStringLiteral("key"), QLatin1String(field.key)},
                       {QStringLiteral("label"), QLatin1String(field.label)},
                       {QStringLiteral("address"), field.address},
                       {QStringLiteral("size"), field.size},
                       {QStringLiteral("access"), QLatin1String(accessText(field.access))},
                       {QStringLiteral("range"), rangeText(field, unitOf)}};
    const QString unit = unitText(field.kind, unitOf);
    if (!unit.isEmpty())
        object.insert(QStringLiteral("unit"), unit);
    return object;
}

/** Keys, registers, access and ranges of all families; needs no servo. */
ExitStatus listFields(Context &context)
{
    const Options &options = context.options();
    checkPatterns(options.words);
    QJsonArray all;
    for (const model::Family *family : families()) {
        QJsonArray fields;
        context.output().line(QStringLiteral("# %1").arg(QLatin1String(family->name)));
        for (const model::Field *field : matchingFields(*family, options.words)) {
            constexpr int KeyWidth = 36;
            constexpr int AccessWidth = 14;
            const QString place = field->size == 1 ? QString::number(field->address)
                                                   : QStringLiteral("%1-%2").arg(field->address).arg(field->end() - 1);
            context.output().line(QString(QLatin1String(field->key)).leftJustified(KeyWidth) + place.leftJustified(9) +
                                  QString(QLatin1String(accessText(field->access))).leftJustified(AccessWidth) +
                                  rangeText(*field, options.unitOf));
            fields.append(describe(*field, options.unitOf));
        }
        all.append(
            QJsonObject{{QStringLiteral("family"), QLatin1String(family->name)}, {QStringLiteral("fields"), fields}});
    }
    context.answer().insert(QStringLiteral("families"), all);
    return ExitStatus::Done;
}

/** Each register with its byte, as the window's table of registers. */
void printTable(Context &context, const Servo &servo, const QString &prefix)
{
    for (int address = 0; address < servo.family().tableSize; ++address) {
        const model::Field *field = servo.family().fieldAt(address);
        const quint8 byte = servo.image.byte(address).value_or(0);
        QString label = field ? QString(QLatin1String(field->label)) : QStringLiteral("-");
        if (field && field->size > 1)
            label += QStringLiteral(" (byte %1)").arg(address - field->address);
        context.output().line(
            prefix +
            QStringLiteral("%1  %2  %3  %4").arg(address, 3).arg(hex(byte, HexDigits)).arg(byte, 3).arg(label));
    }
}

QJsonArray tableOf(const Servo &servo)
{
    QJsonArray bytes;
    for (int address = 0; address < servo.family().tableSize; ++address)
        bytes.append(servo.image.byte(address).value_or(0));
    return bytes;
}

ExitStatus getFrom(Context &context, int id, QJsonObject &answer)
{
    const Options &options = context.options();
    const Servo servo = context.bus().load(id);
    const QString prefix = prefixFor(id, options.ids);
    answer.insert(QStringLiteral("family"), QLatin1String(servo.family().name));
    if (options.isTable) {
        printTable(context, servo, prefix);
        answer.insert(QStringLiteral("registers"), tableOf(servo));
        return ExitStatus::Done;
    }
    QJsonObject fields;
    for (const model::Field *field : chosenFields(servo.family(), options.words)) {
        const qint32 raw = servo.image.raw(*field).value_or(0);
        const QString text = options.isRaw ? QString::number(raw) : valueText(*field, raw, options.unitOf);
        context.output().line(prefix + QLatin1String(field->key) + QLatin1Char('=') + text);
        fields.insert(QLatin1String(field->key), fieldObject(*field, raw, options.unitOf));
    }
    answer.insert(QStringLiteral("fields"), fields);
    return ExitStatus::Done;
}

ExitStatus tellInfo(Context &context, int id, QJsonObject &answer)
{
    const Servo servo = context.bus().load(id);
    const model::Family &family = servo.family();
    const auto number = [&servo](const char *key) { return servo.image.raw(servo.family()[key]).value_or(0); };
    const bool isOn = servo.image.raw(family.motorSwitch()).value_or(0) != 0;
    const QStringList errors = hardwareErrors(servo);
    Output &output = context.output();
    output.line(row(QStringLiteral("servo"), QStringLiteral("%1 on %2").arg(id).arg(context.bus().portName())));
    output.line(row(QStringLiteral("family"), QLatin1String(family.name)));
    output.line(row(QStringLiteral("model"), QString::number(number("model_number"))));
    output.line(row(QStringLiteral("firmware"), QString::number(number("firmware_version"))));
    output.line(row(QStringLiteral("baud rate"),
                    valueText(family["baud_rate"], number("baud_rate"), context.options().unitOf)));
    output.line(row(QStringLiteral("motor"), isOn ? QStringLiteral("on") : QStringLiteral("off")));
    output.line(
        row(QStringLiteral("errors"), errors.isEmpty() ? QStringLiteral("none") : errors.join(QLatin1String(", "))));
    answer.insert(QStringLiteral("family"), QLatin1String(family.name));
    answer.insert(QStringLiteral("model"), number("model_number"));
    answer.insert(QStringLiteral("firmware"), number("firmware_version"));
    answer.insert(QStringLiteral("baud"), model::baudRateOf(number("baud_rate")));
    answer.insert(QStringLiteral("motor"), isOn);
    answer.insert(QStringLiteral("errors"), QJsonArray::fromStringList(errors));
    return ExitStatus::Done;
}

} // namespace

ExitStatus listPorts(Context &context)
{
    const QString stored = storedPort();
    QJsonArray ports;
    for (const Port &port : presentPorts()) {
        QStringList details{port.name, port.device};
        for (const QString &detail : {port.description, port.manufacturer}) {
            if (!detail.isEmpty())
                details.append(detail);
        }
        if (port.name == stored)
            details.append(QStringLiteral("(chosen in the window)"));
        context.output().line(details.join(QLatin1Char('\t')));
        ports.append(QJsonObject{{QStringLiteral("name"), port.name},
                                 {QStringLiteral("device"), port.device},
                                 {QStringLiteral("description"), port.description},
                                 {QStringLiteral("manufacturer"), port.manufacturer},
                                 {QStringLiteral("vendor"), port.vendor},
                                 {QStringLiteral("product"), port.product},
                                 {QStringLiteral("chosen"), port.name == stored}});
    }
    context.answer().insert(QStringLiteral("ports"), ports);
    return ExitStatus::Done;
}

ExitStatus scanBus(Context &context)
{
    const Options &options = context.options();
    const std::vector<int> rates =
        options.scannedBaudRates.empty() ? std::vector<int>{context.baudRate()} : options.scannedBaudRates;
    Scan scan(context.bus(), options.scannedIds, rates, isTerminal(stderr) ? drawProgress : Scan::Progress());
    bool isInterrupted = false;
    try {
        scan.run();
    } catch (const Interrupted &) {
        isInterrupted = true;
        Output::tell(QStringLiteral("the scan was ended before it was through"));
    }
    for (const QString &refusal : scan.refusals())
        Output::tell(refusal);
    QJsonArray servos;
    for (const FoundServo &servo : scan.found()) {
        context.output().line(told(servo));
        servos.append(asObject(servo));
    }
    context.answer().insert(QStringLiteral("servos"), servos);
    context.answer().insert(QStringLiteral("interrupted"), isInterrupted);
    if (!scan.found().empty() || isInterrupted)
        return ExitStatus::Done;
    throw Failure{ExitStatus::NoAnswer, QStringLiteral("nobody answers on %1; check supply and cable, and try other "
                                                       "ids and baud rates")
                                            .arg(context.bus().portName())};
}

ExitStatus showInfo(Context &context)
{
    return context.forEach(context.servosToRead(),
                           [&context](int id, QJsonObject &answer) { return tellInfo(context, id, answer); });
}

ExitStatus getFields(Context &context)
{
    if (context.options().isList)
        return listFields(context);
    checkPatterns(context.options().words);
    return context.forEach(context.servosToRead(),
                           [&context](int id, QJsonObject &answer) { return getFrom(context, id, answer); });
}

} // namespace cli
