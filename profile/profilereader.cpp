#include "profile/profilefile.h"

#include "model/families.h"
#include "model/littleendian.h"
#include "model/units.h"
#include "profile/filevalue.h"
#include "profile/memberlines.h"
#include "profile/text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace profile {

namespace {

/** Why a file cannot be taken; thrown, and caught in decoded(). */
struct Damage
{
    QString member; ///< path of the member that says so
    QString text;
};

const QString Fields = QStringLiteral("fields");
const QString Bytes = QStringLiteral("bytes");
constexpr int MaximumId = 253;
constexpr int UnitsOfAKind = 2;

[[noreturn]] void reject(const QString &member, const QString &text)
{
    throw Damage{member, text};
}

/** Whatever @p object has beside @p known is a slip or of a later version, and is not passed over. */
void checkMembers(const QJsonObject &object, const QString &path, const QStringList &known)
{
    const QStringList names = object.keys();
    for (const QString &name : names) {
        if (!known.contains(name))
            reject(path + name,
                   Text::tr("\"%1\" means nothing here; there are: %2").arg(name, known.join(QLatin1String(", "))));
    }
}

std::optional<qint32> wholeNumber(const QJsonValue &value, qint32 least, qint32 greatest)
{
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(number >= least && number <= greatest) || number != std::floor(number))
        return std::nullopt;
    return qint32(number);
}

/** Puts the contents of one file together. */
class Reader
{
public:
    explicit Reader(QJsonObject root) : m_root(std::move(root)) {}

    /** Throws Damage. */
    Profile read();
    /** Where a person has changed something, each with the path of its member. */
    const std::vector<Damage> &edits() const { return m_edits; }

private:
    void checkKind() const;
    void readHead();
    void readBytes();
    void readFields();
    qint32 readField(const model::Field &field, const QJsonObject &entry, std::optional<qint32> kept);
    std::optional<qint32> readValue(const model::Field &field, const QJsonObject &entry,
                                    std::optional<qint32> kept) const;
    int readUnit(const model::Field &field, const QJsonObject &entry) const;
    std::optional<qint32> keptRaw(const model::Field &field) const;
    void noteEdit(const model::Field &field, qint32 raw, qint32 kept);
    qint32 requiredNumber(const char *name, qint32 greatest) const;

    const QJsonObject m_root;
    Profile m_profile;
    std::vector<Damage> m_edits;
};

Profile Reader::read()
{
    checkKind();
    readHead();
    readBytes();
    readFields();
    return m_profile;
}

void Reader::checkKind() const
{
    if (m_root.value(QLatin1String("format")).toString() != QLatin1String(FileFormat))
        reject(QStringLiteral("format"), Text::tr("it is no file of servo parameters, which says \"format\": "
                                                  "\"%1\"")
                                             .arg(QLatin1String(FileFormat)));
    const auto version = wholeNumber(m_root.value(QLatin1String("version")), 1, std::numeric_limits<qint32>::max());
    if (!version)
        reject(QStringLiteral("version"), Text::tr("\"version\" has to be a number from 1 on"));
    if (*version > FileVersion)
        reject(QStringLiteral("version"),
               Text::tr("it has the version %1, which a later program has written; this one knows %2")
                   .arg(*version)
                   .arg(FileVersion));
    checkMembers(m_root, {},
                 {QStringLiteral("format"), QStringLiteral("version"), QStringLiteral("comment"),
                  QStringLiteral("model"), QStringLiteral("family"), QStringLiteral("firmware"), QStringLiteral("id"),
                  QStringLiteral("time"), QStringLiteral("partial"), Fields, Bytes});
}

qint32 Reader::requiredNumber(const char *name, qint32 greatest) const
{
    const QLatin1String key(name);
    const auto number = wholeNumber(m_root.value(key), 0, greatest);
    if (!number)
        reject(key, Text::tr("\"%1\" has to be a number from 0 to %2").arg(key).arg(greatest));
    return *number;
}

void Reader::readHead()
{
    const QJsonValue partial = m_root.value(QLatin1String("partial"));
    if (!partial.isUndefined() && !partial.isBool())
        reject(QStringLiteral("partial"), Text::tr("\"partial\" has to be true or false"));
    m_profile.isPartial = partial.toBool();
    m_profile.model = quint16(requiredNumber("model", std::numeric_limits<quint16>::max()));
    const QLatin1String family(m_profile.family().name);
    if (m_root.value(QLatin1String("family")).toString(family) != family)
        reject(QStringLiteral("family"),
               Text::tr("a servo of model %1 is a %2, not what this says").arg(m_profile.model).arg(family));
    const auto isThere = [this](const char *name) {
        return !m_profile.isPartial || m_root.contains(QLatin1String(name));
    };
    if (isThere("firmware"))
        m_profile.firmware = quint8(requiredNumber("firmware", std::numeric_limits<quint8>::max()));
    if (isThere("id"))
        m_profile.id = quint8(requiredNumber("id", MaximumId));
    if (!isThere("time"))
        return;
    m_profile.time = QDateTime::fromString(m_root.value(QLatin1String("time")).toString(), Qt::ISODate).toUTC();
    if (!m_profile.time.isValid())
        reject(QStringLiteral("time"), Text::tr("\"time\" has to be like 2026-11-22T08:30:00Z"));
}

void Reader::readBytes()
{
    const QJsonValue value = m_root.value(Bytes);
    if (m_profile.isPartial) {
        if (!value.isUndefined())
            reject(Bytes, Text::tr("a partial file has no bytes; remove them"));
        return;
    }
    const QJsonObject object = value.toObject();
    if (object.isEmpty())
        reject(Bytes, Text::tr("the registers' bytes are missing; a file of some fields says \"partial\": true"));
    checkMembers(object, Bytes + QLatin1Char('/'),
                 {QStringLiteral("address"), QStringLiteral("data"), QStringLiteral("crc")});
    QString digits = object.value(QLatin1String("data")).toString();
    digits.remove(QLatin1Char(' '));
    m_profile.bytes = QByteArray::fromHex(digits.toLatin1());
    // The decoder passes over what is no digit.
    const bool isHex = QString::fromLatin1(m_profile.bytes.toHex()) == digits.toLower();
    const Span span = nonVolatileRegisters(m_profile.family());
    if (!isHex || m_profile.bytes.size() != span.size ||
        wholeNumber(object.value(QLatin1String("address")), 0, span.address) != span.address)
        reject(Bytes, Text::tr("a servo of model %1 has %2 bytes from register %3 on")
                          .arg(m_profile.model)
                          .arg(span.size)
                          .arg(span.address));
    if (object.value(QLatin1String("crc")).toString().toLower() != checksum(m_profile.bytes))
        reject(Bytes, Text::tr("the bytes do not fit their CRC, so one of the two is damaged; edit values in "
                               "\"fields\" only"));
}

void Reader::readFields()
{
    if (!m_root.value(Fields).isObject())
        reject(Fields, Text::tr("\"fields\" has to be an object"));
    const QJsonObject entries = m_root.value(Fields).toObject();
    const std::vector<const model::Field *> known = nonVolatileFields(m_profile.family());
    QStringList keys;
    for (const model::Field *field : known)
        keys.append(QLatin1String(field->key));
    const QStringList names = entries.keys();
    for (const QString &name : names) {
        const QString path = Fields + QLatin1Char('/') + name;
        if (!keys.contains(name))
            reject(path, Text::tr("a %1 keeps no field \"%2\"").arg(QLatin1String(m_profile.family().name), name));
        if (!entries.value(name).isObject())
            reject(path, Text::tr("\"%1\" has to be an object").arg(name));
    }
    for (const model::Field *field : known) {
        const QLatin1String key(field->key);
        if (entries.contains(key))
            m_profile.values.push_back({field, readField(*field, entries.value(key).toObject(), keptRaw(*field))});
        else if (!m_profile.isPartial)
            reject(Fields, Text::tr(R"("%1" is missing; a file of some fields says "partial": true)").arg(key));
    }
}

std::optional<qint32> Reader::keptRaw(const model::Field &field) const
{
    if (m_profile.isPartial)
        return std::nullopt;
    const int offset = field.address - nonVolatileRegisters(m_profile.family()).address;
    const auto *bytes = reinterpret_cast<const quint8 *>(m_profile.bytes.constData()) + offset;
    return model::rawValue(field, model::littleEndian(bytes, field.size));
}

qint32 Reader::readField(const model::Field &field, const QJsonObject &entry, std::optional<qint32> kept)
{
    const QString path = Fields + QLatin1Char('/') + QLatin1String(field.key);
    checkMembers(entry, path + QLatin1Char('/'),
                 {QStringLiteral("raw"), QStringLiteral("value"), QStringLiteral("unit")});
    std::optional<qint32> raw;
    if (entry.contains(QLatin1String("raw"))) {
        using Limits = std::numeric_limits<qint32>;
        raw = wholeNumber(entry.value(QLatin1String("raw")), Limits::min(), Limits::max());
        if (!raw)
            reject(path, Text::tr("\"raw\" has to be a whole number"));
    }
    const std::optional<qint32> value = readValue(field, entry, kept);
    if (!raw && !value)
        reject(path, Text::tr(R"("%1" has neither "raw" nor "value")").arg(QLatin1String(field.key)));

    const bool isRawEdited = raw && raw != kept;
    const bool isValueEdited = value && value != kept;
    if (isRawEdited && isValueEdited && raw != value)
        reject(path, Text::tr(R"("raw" and "value" disagree, and neither is what the servo had; remove one)"));
    if (!isRawEdited && !isValueEdited)
        return *kept;
    const qint32 edited = isRawEdited ? *raw : *value;
    if (!model::isInRange(field, edited))
        reject(path, Text::tr("%1 is outside what \"%2\" takes, raw values from %3 to %4")
                         .arg(edited)
                         .arg(QLatin1String(field.key))
                         .arg(field.range.rawMin)
                         .arg(field.range.rawMax));
    if (kept)
        noteEdit(field, edited, *kept);
    return edited;
}

std::optional<qint32> Reader::readValue(const model::Field &field, const QJsonObject &entry,
                                        std::optional<qint32> kept) const
{
    const QJsonValue value = entry.value(QLatin1String("value"));
    if (value.isUndefined())
        return std::nullopt;
    const int unit = readUnit(field, entry);
    if (kept && value == fileValue(field, *kept, unit))
        return kept; // also where this tells less than the bytes do
    const auto raw = rawOf(field, value, unit);
    if (!raw)
        reject(Fields + QLatin1Char('/') + QLatin1String(field.key),
               Text::tr("%1 is no value of \"%2\"").arg(jsonText(value), QLatin1String(field.key)));
    return raw;
}

int Reader::readUnit(const model::Field &field, const QJsonObject &entry) const
{
    QStringList names;
    for (int i = 0; i < UnitsOfAKind; ++i)
        names.append(QLatin1String(model::asciiUnit(field.kind, i)));
    const int index = names.indexOf(entry.value(QLatin1String("unit")).toString());
    if (index >= 0)
        return index;
    names.removeAll(QString());
    reject(Fields + QLatin1Char('/') + QLatin1String(field.key),
           names.isEmpty()
               ? Text::tr("\"%1\" has no unit").arg(QLatin1String(field.key))
               : Text::tr("\"%1\" needs a unit: %2").arg(QLatin1String(field.key), names.join(Text::tr(" or "))));
}

void Reader::noteEdit(const model::Field &field, qint32 raw, qint32 kept)
{
    const int offset = field.address - nonVolatileRegisters(m_profile.family()).address;
    model::putLittleEndian(model::bitsOf(field, raw), field.size,
                           reinterpret_cast<quint8 *>(m_profile.bytes.data()) + offset);
    const int unit = fileUnit(field.kind);
    const auto text = [&](qint32 number) {
        return jsonText(fileValue(field, number, unit)) + QLatin1String(model::asciiUnit(field.kind, unit));
    };
    const QLatin1String key(field.key);
    m_edits.push_back({Fields + QLatin1Char('/') + key,
                       Text::tr("\"%1\" was edited: %2 is taken, the servo had %3").arg(key, text(raw), text(kept))});
}

QString sentence(int line, const QString &text)
{
    return Text::tr("line %1: %2").arg(line).arg(text);
}

} // namespace

Reading decoded(const QByteArray &text)
{
    static const QByteArray ByteOrderMark("\xEF\xBB\xBF");
    if (text.startsWith(ByteOrderMark))
        return decoded(text.mid(ByteOrderMark.size()));
    const MemberLines lines(text);
    // Before Qt reads it, which would keep one of the two, and lose the memory of the other.
    if (lines.ambiguousLine() > 0)
        return {std::nullopt,
                sentence(lines.ambiguousLine(), Text::tr("this name is there twice, or written with escapes")),
                {}};
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject())
        return {std::nullopt,
                sentence(MemberLines::lineAt(text, error.offset),
                         Text::tr("it is no JSON object: %1").arg(error.errorString())),
                {}};
    try {
        Reader reader(document.object());
        Reading reading{reader.read(), {}, {}};
        for (const Damage &edit : reader.edits())
            reading.edits.append(sentence(lines.lineOf(edit.member), edit.text));
        return reading;
    } catch (const Damage &damage) {
        return {std::nullopt, sentence(lines.lineOf(damage.member), damage.text), {}};
    }
}

} // namespace profile
