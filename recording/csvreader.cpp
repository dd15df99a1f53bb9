#include "recording/csvreader.h"

#include "model/families.h"
#include "model/littleendian.h"
#include "recording/csvwriter.h"

#include <QCoreApplication>

#include <algorithm>

namespace recording {

namespace {

constexpr const model::Family *Families[] = {&model::ZelvarV1Family, &model::DynamixelAx12Family};
constexpr int UnitCount = 2;

/** Takes records of comma-separated values apart. */
class Records
{
public:
    Records(const QByteArray &file, char separator) : m_file(file), m_separator(separator) {}

    int line() const { return m_line; }

    /** The places of the next record; nothing at the end, or when the record has no end. */
    std::optional<std::vector<QByteArray>> next()
    {
        std::vector<QByteArray> places(1);
        bool isQuoted = false;
        while (m_at < m_file.size()) {
            const char character = m_file.at(m_at++);
            if (isQuoted && character == '"' && peek() == '"') {
                places.back() += '"';
                ++m_at;
            } else if (character == '"') {
                isQuoted = !isQuoted;
            } else if (!isQuoted && character == '\n') {
                ++m_line;
                return places;
            } else if (!isQuoted && character == m_separator) {
                places.emplace_back();
            } else if (isQuoted || character != '\r') {
                places.back() += character;
            }
        }
        return std::nullopt;
    }

private:
    char peek() const { return m_at < m_file.size() ? m_file.at(m_at) : '\0'; }

    const QByteArray &m_file;
    char m_separator;
    int m_at = 0;
    int m_line = 0;
};

char separatorOf(const QByteArray &file)
{
    const QByteArray titles = file.left(file.indexOf('\n'));
    for (const char separator : {';', '\t'}) {
        if (titles.contains(separator))
            return separator;
    }
    return ',';
}

std::optional<Column> columnTitled(const QByteArray &title, const model::Family &family)
{
    const int keyEnd = title.indexOf(" [");
    const QByteArray key = keyEnd < 0 ? title : title.left(keyEnd);
    const model::Field *field = family.field(QLatin1String(key));
    for (int unit = 0; field && unit < UnitCount; ++unit) {
        const Column column{field, unit};
        if (column.title() == title)
            return column;
    }
    return std::nullopt;
}

/** The columns that @p titles stand for; empty unless all are of @p family. */
std::vector<Column> columnsTitled(const std::vector<QByteArray> &titles, const model::Family &family)
{
    std::vector<Column> columns;
    for (const QByteArray &title : titles) {
        const auto column = columnTitled(title, family);
        if (!column)
            return {};
        columns.push_back(*column);
    }
    return columns;
}

/** Reads lines into a recording whose columns are known. */
class Reader
{
public:
    Reader(const model::Family &family, std::vector<Column> columns, bool hasEvents)
        : m_image(&family), m_hasEvents(hasEvents)
    {
        m_recording.samples = std::make_shared<SampleStore>(family);
        m_recording.columns = std::move(columns);
    }

    bool take(const std::vector<QByteArray> &places)
    {
        const std::size_t columns = m_recording.columns.size();
        if (places.size() != LeadingColumns + columns + (m_hasEvents ? 1 : 0))
            return false;
        bool isNumber = false;
        const double seconds = places[1].toDouble(&isNumber);
        if (!isNumber)
            return false;
        const TimePoint when(std::chrono::microseconds(qRound64(seconds * 1e6)));
        takeWallTime(when, places[0]);
        const QString event = m_hasEvents ? QString::fromUtf8(places.back()) : QString();
        if (!event.isEmpty()) {
            addMark(Mark::fromFileText(when, event));
            return true;
        }
        return addSample(when, places);
    }

    const Recording &recording() const { return m_recording; }

    static constexpr std::size_t LeadingColumns = 2;

private:
    /** The first line tells the origin's time on the wall. */
    void takeWallTime(TimePoint when, const QByteArray &place)
    {
        if (m_recording.origin.wall.isValid())
            return;
        const QDateTime wall = QDateTime::fromString(QString::fromLatin1(place), Qt::ISODateWithMs);
        const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(when.time_since_epoch());
        m_recording.origin.wall = wall.addMSecs(-since.count());
    }

    void addMark(const Mark &mark)
    {
        m_recording.marks.push_back(mark);
        if (mark.kind == Mark::Kind::Gap)
            m_recording.samples->markGap();
    }

    bool addSample(TimePoint when, const std::vector<QByteArray> &places)
    {
        if (when < m_image.lastRead())
            return false; // time does not go back
        m_image.take(0, {}, when);
        for (std::size_t i = 0; i < m_recording.columns.size(); ++i) {
            const QByteArray &place = places[LeadingColumns + i];
            if (place.isEmpty())
                continue;
            bool isNumber = false;
            const double value = place.toDouble(&isNumber);
            if (!isNumber)
                return false;
            const Column &column = m_recording.columns[i];
            QByteArray bytes(column.field->size, '\0');
            model::putLittleEndian(model::bitsOf(*column.field, column.rawAt(value)), column.field->size,
                                   reinterpret_cast<quint8 *>(bytes.data()));
            m_image.take(column.field->address, bytes, when);
        }
        m_recording.samples->add(m_image);
        return true;
    }

    model::RegisterImage m_image;
    bool m_hasEvents;
    Recording m_recording;
};

} // namespace

ReadResult readCsv(const QByteArray &file)
{
    Records records(file, separatorOf(file));
    const auto titles = records.next();
    if (!titles || titles->size() <= Reader::LeadingColumns || titles->at(0) != TimeTitle ||
        titles->at(1) != ElapsedTitle)
        return {std::nullopt,
                QCoreApplication::translate("recording",
                                            "This is no recording: its first line does not have the titles of one.")};
    const bool hasEvents = titles->back() == EventTitle;
    const std::vector<QByteArray> keys(titles->begin() + Reader::LeadingColumns, titles->end() - (hasEvents ? 1 : 0));
    for (const model::Family *family : Families) {
        std::vector<Column> columns = columnsTitled(keys, *family);
        if (columns.empty())
            continue;
        Reader reader(*family, std::move(columns), hasEvents);
        while (const auto places = records.next()) {
            if (!reader.take(*places))
                return {std::nullopt, QCoreApplication::translate("recording", "Line %1 is not what a recording has.")
                                          .arg(records.line())};
        }
        return {reader.recording(), {}};
    }
    return {std::nullopt,
            QCoreApplication::translate("recording", "The titles name fields that no servo known here has.")};
}

} // namespace recording
