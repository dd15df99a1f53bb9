#pragma once

#include "recording/column.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <chrono>
#include <vector>

class QIODevice;

/** Samples of a servo's registers over time: kept, written to files, read back, and measured. No widgets, no port. */
namespace recording {

using TimePoint = model::RegisterImage::TimePoint;

/** Brings the steady clock, which samples are dated by, together with the one on the wall. */
struct TimeOrigin
{
    TimePoint steady;
    QDateTime wall; ///< at that moment, with its offset from UTC

    static TimeOrigin now();
    /** The wall's time at @p when, as if nobody had set that clock since the origin. */
    QDateTime wallAt(TimePoint when) const;
    /** Seconds from the origin to @p when, with all six digits of its microseconds. */
    QByteArray seconds(TimePoint when) const;
};

// The titles of the columns that every recording has; the last one only with events.
inline constexpr const char *TimeTitle = "time";
inline constexpr const char *ElapsedTitle = "elapsed [s]";
inline constexpr const char *EventTitle = "event";

/** How a table of comma-separated values is written; as RFC 4180 has it unless told otherwise. */
struct CsvFormat
{
    char separator = ',';
    QByteArray lineEnd = "\r\n";
    bool hasEvents = true; ///< whether there is a column "event"
};

/**
 * Writes samples as comma-separated values: a line of titles ("time", "elapsed [s]", the columns, "event"), then a line
 * for each sample or event, in the order in which they are handed in. Times are the ISO 8601 time with milliseconds and
 * the offset from UTC, and seconds from the origin. Numbers have a point whatever the locale, and twelve significant
 * digits: Column::rawAt() finds the very registers again. An empty place is a value that is not known. Text is UTF-8.
 *
 * Each line is handed to the device as one write, unless it takes only a part. Each function that writes returns an
 * empty text, or the device's reason why the line could not be written as a whole.
 */
class CsvWriter
{
public:
    /** @param device is open for writing, not as text, and must outlive the writer. For a file whose lines are to
     *  survive the program, open it with QIODevice::Unbuffered. */
    CsvWriter(QIODevice &device, std::vector<Column> columns, const TimeOrigin &origin, CsvFormat format = {});

    [[nodiscard]] QString writeTitles();
    /** A line for what @p image has, dated by its last reply. */
    [[nodiscard]] QString writeSample(const model::RegisterImage &image);
    /** A line without values. REQUIRES: the format has events. */
    [[nodiscard]] QString writeEvent(TimePoint when, const QString &text);

    const std::vector<Column> &columns() const { return m_columns; }

private:
    QByteArray times(TimePoint when) const;
    QByteArray quoted(const QByteArray &text) const;
    QString write(QByteArray line);

    QIODevice &m_device;
    std::vector<Column> m_columns;
    TimeOrigin m_origin;
    CsvFormat m_format;
};

} // namespace recording
