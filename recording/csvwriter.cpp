#include "recording/csvwriter.h"

#include <QIODevice>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace recording {

namespace {

using std::chrono::duration_cast;
using std::chrono::floor;
using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr int FractionDigits = 6;
/** Tells any two of 2³² raw values apart, and leaves out what only the rounding of double arithmetic has made. */
constexpr int SignificantDigits = 12;

} // namespace

TimeOrigin TimeOrigin::now()
{
    const QDateTime wall = QDateTime::currentDateTime();
    // A fixed offset: what is recorded while summer time ends must not tell the same hour twice.
    return {std::chrono::steady_clock::now(), wall.toOffsetFromUtc(wall.offsetFromUtc())};
}

QDateTime TimeOrigin::wallAt(TimePoint when) const
{
    return wall.addMSecs(floor<milliseconds>(when - steady).count());
}

QByteArray TimeOrigin::seconds(TimePoint when) const
{
    const qint64 all = duration_cast<microseconds>(when - steady).count();
    const QByteArray sign = all < 0 ? "-" : "";
    const auto parts = std::lldiv(qAbs(all), microseconds::period::den);
    return sign + QByteArray::number(parts.quot) + '.' +
           QByteArray::number(parts.rem).rightJustified(FractionDigits, '0');
}

CsvWriter::CsvWriter(QIODevice &device, std::vector<Column> columns, const TimeOrigin &origin, CsvFormat format)
    : m_device(device), m_columns(std::move(columns)), m_origin(origin), m_format(std::move(format))
{
}

QString CsvWriter::writeTitles()
{
    QByteArray line = QByteArray(TimeTitle) + m_format.separator + ElapsedTitle;
    for (const Column &column : m_columns)
        line += m_format.separator + quoted(column.title());
    if (m_format.hasEvents)
        line += m_format.separator + QByteArray(EventTitle);
    return write(std::move(line));
}

QString CsvWriter::writeSample(const model::RegisterImage &image)
{
    QByteArray line = times(image.lastRead());
    for (const Column &column : m_columns) {
        line += m_format.separator;
        if (const auto value = column.value(image))
            line += QByteArray::number(*value, 'g', SignificantDigits);
    }
    if (m_format.hasEvents)
        line += m_format.separator;
    return write(std::move(line));
}

QString CsvWriter::writeEvent(TimePoint when, const QString &text)
{
    Q_ASSERT(m_format.hasEvents);
    const QByteArray empty(int(m_columns.size()), m_format.separator);
    return write(times(when) + empty + m_format.separator + quoted(text.toUtf8()));
}

QByteArray CsvWriter::times(TimePoint when) const
{
    return m_origin.wallAt(when).toString(Qt::ISODateWithMs).toLatin1() + m_format.separator + m_origin.seconds(when);
}

QByteArray CsvWriter::quoted(const QByteArray &text) const
{
    const auto needsQuotes = [this](char character) {
        return character == m_format.separator || character == '"' || character == '\r' || character == '\n';
    };
    if (std::none_of(text.begin(), text.end(), needsQuotes))
        return text;
    QByteArray doubled = text;
    return '"' + doubled.replace('"', "\"\"") + '"';
}

QString CsvWriter::write(QByteArray line)
{
    line += m_format.lineEnd;
    // A full disk takes a part first, and says why it takes no more when it is asked to.
    for (qint64 written = 0; !line.isEmpty(); line.remove(0, int(written))) {
        written = m_device.write(line);
        if (written <= 0)
            return m_device.errorString();
    }
    return {};
}

} // namespace recording
