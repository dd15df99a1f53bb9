#include "cli/busclient.h"
#include "cli/commands.h"
#include "cli/fields.h"
#include "cli/linedevice.h"
#include "cli/values.h"
#include "model/families.h"
#include "recording/csvwriter.h"

#include <QFile>

#include <algorithm>

namespace cli {

namespace {

using recording::Column;
using recording::CsvFormat;
using recording::CsvWriter;

/** A servo that is watched, and the registers that its columns lie in. */
struct Watched
{
    Servo servo;
    std::vector<Column> columns;
    int first = 0;
    int end = 0;
};

/** What a servo tells of itself, unless fields are asked for. */
bool isState(const model::Field &field)
{
    return !field.isWritable() && model::isNumber(field.kind) && field.kind != model::FieldKind::ModelNumber;
}

class Monitor
{
public:
    explicit Monitor(Context &context);

    ExitStatus run();

private:
    Watched watch(int id) const;
    void begin();
    /** Takes one sample of each servo. */
    void sample();
    bool isOver() const;
    void print(const Watched &watched);
    QString write(const QByteArray &line);
    static void check(const QString &error);

    Context &m_context;
    const Options &m_options;
    BusClient &m_bus;
    std::vector<Watched> m_watched;
    QFile m_file;
    LineDevice m_lines;
    const recording::TimeOrigin m_origin = recording::TimeOrigin::now();
    int m_samples = 0;
};

Monitor::Monitor(Context &context)
    : m_context(context), m_options(context.options()), m_bus(context.bus()), m_file(m_options.outputFile),
      m_lines([this](const QByteArray &line) { return write(line); })
{
    for (const int id : context.servosToRead())
        m_watched.push_back(watch(id));
}

Watched Monitor::watch(int id) const
{
    Watched watched{m_bus.load(id), {}};
    for (const model::Field *field : chosenFields(watched.servo.family(), m_options.words)) {
        if (!m_options.words.isEmpty() || isState(*field))
            watched.columns.push_back({field, m_options.unitOf(field->kind)});
    }
    watched.first = watched.servo.family().tableSize;
    for (const Column &column : watched.columns) {
        watched.first = std::min(watched.first, int(column.field->address));
        watched.end = std::max(watched.end, column.field->end());
    }
    return watched;
}

QString Monitor::write(const QByteArray &line)
{
    if (m_options.outputFile.isEmpty())
        return m_context.output().write(line);
    return m_file.write(line) == line.size() ? QString() : m_file.errorString();
}

void Monitor::check(const QString &error)
{
    if (!error.isEmpty())
        throw Failure{ExitStatus::Usage, QStringLiteral("the samples cannot be written: %1").arg(error)};
}

void Monitor::begin()
{
    if (!m_options.outputFile.isEmpty() && !m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw Failure{ExitStatus::Usage,
                      QStringLiteral("%1 cannot be written: %2").arg(m_options.outputFile, m_file.errorString())};
    if (m_options.isJson)
        return;
    const Watched &first = m_watched.front();
    const auto hasSameTitles = [&first](const Watched &other) {
        return std::equal(first.columns.begin(), first.columns.end(), other.columns.begin(), other.columns.end(),
                          [](const Column &one, const Column &two) { return one.title() == two.title(); });
    };
    if (!std::all_of(m_watched.begin(), m_watched.end(), hasSameTitles))
        throw Failure{ExitStatus::Usage, QStringLiteral("these servos have different fields; name fields that all of "
                                                        "them have, or use --json")};
    if (m_watched.size() > 1)
        m_lines.prefix = QByteArray("id") + m_options.delimiter;
    check(CsvWriter(m_lines, first.columns, m_origin, {m_options.delimiter, "\n", false}).writeTitles());
}

ExitStatus Monitor::run()
{
    begin();
    const auto period = std::chrono::duration_cast<Clock::Duration>(std::chrono::duration<double>(1 / m_options.rate));
    const auto start = SystemClock::instance().now();
    try {
        for (qint64 turn = 0; !isOver();) {
            sample();
            // A sample that took longer than it should leaves out the ones whose time is over.
            const auto passed = SystemClock::instance().now() - start;
            turn = std::max<qint64>(turn + 1, std::chrono::duration_cast<Clock::Duration>(passed) / period + 1);
            const bool isEnded = isOver() || (m_options.duration && turn * period >= *m_options.duration);
            if (isEnded)
                break;
            m_bus.waitUntil(start + turn * period);
        }
    } catch (const Interrupted &) {
        return ExitStatus::Done; // which is how it ends usually
    }
    return ExitStatus::Done;
}

bool Monitor::isOver() const
{
    return m_context.output().isClosed() || (m_options.count && m_samples >= *m_options.count);
}

void Monitor::sample()
{
    for (Watched &watched : m_watched) {
        m_bus.refresh(watched.servo, watched.first, watched.end - watched.first);
        print(watched);
    }
    ++m_samples;
}

void Monitor::print(const Watched &watched)
{
    const model::RegisterImage &image = watched.servo.image;
    if (!m_options.isJson) {
        if (m_watched.size() > 1)
            m_lines.prefix = QByteArray::number(watched.servo.id) + m_options.delimiter;
        const CsvFormat format{m_options.delimiter, "\n", false};
        check(CsvWriter(m_lines, watched.columns, m_origin, format).writeSample(image));
        return;
    }
    QJsonObject fields;
    for (const Column &column : watched.columns) {
        const qint32 raw = image.raw(*column.field).value_or(0);
        fields.insert(QLatin1String(column.field->key), fieldObject(*column.field, raw, m_options.unitOf));
    }
    const QJsonObject sample{{QStringLiteral("command"), m_options.command},
                             {QStringLiteral("id"), watched.servo.id},
                             {QStringLiteral("time"), m_origin.wallAt(image.lastRead()).toString(Qt::ISODateWithMs)},
                             {QStringLiteral("elapsed"), m_origin.seconds(image.lastRead()).toDouble()},
                             {QStringLiteral("fields"), fields}};
    check(write(Output::encoded(sample)));
}

} // namespace

ExitStatus monitorFields(Context &context)
{
    checkPatterns(context.options().words);
    return Monitor(context).run();
}

} // namespace cli
