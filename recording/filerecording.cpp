#include "recording/filerecording.h"

#include "storage/replacefile.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace recording {

namespace {

constexpr std::chrono::milliseconds LookInterval{500};

} // namespace

FileRecording::FileRecording(const TimeOrigin &origin) : m_origin(origin)
{
    m_disk.setMaxThreadCount(1);
    m_look.setInterval(LookInterval);
    connect(&m_look, &QTimer::timeout, this, &FileRecording::lookAfterFile);
}

FileRecording::~FileRecording()
{
    m_disk.waitForDone(); // it uses the file
}

QString FileRecording::begin(const QString &path, std::vector<Column> columns)
{
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return m_file.errorString();
    m_writer = std::make_unique<CsvWriter>(m_file, std::move(columns), m_origin);
    QString error = m_writer->writeTitles();
    m_goodSize = m_file.pos();
    if (error.isEmpty())
        m_look.start();
    else
        m_writer.reset();
    return error;
}

void FileRecording::add(const model::RegisterImage &image)
{
    if (!m_writer)
        return;
    const TimePoint when = image.lastRead();
    if (m_sampleCount++ == 0)
        m_firstSample = when;
    m_lastSample = when;
    takeOver(m_writer->writeSample(image));
}

void FileRecording::add(const Mark &mark)
{
    if (m_writer)
        takeOver(m_writer->writeEvent(mark.when, mark.fileText()));
}

void FileRecording::addPast(const SampleStore &samples, const std::deque<Mark> &marks, TimePoint from)
{
    const auto take = [this](const auto &entry) {
        add(entry);
        return isRunning();
    };
    goThrough(samples, marks, {from, TimePoint::max()}, take, take);
}

std::chrono::seconds FileRecording::duration() const
{
    return std::chrono::duration_cast<std::chrono::seconds>(m_lastSample - m_firstSample);
}

void FileRecording::takeOver(const QString &error)
{
    if (error.isEmpty())
        m_goodSize = m_file.pos();
    else
        fail(error);
}

void FileRecording::lookAfterFile()
{
    if (const int error = m_diskError)
        fail(qt_error_string(error));
    else if (!QFileInfo::exists(m_file.fileName()))
        fail(QCoreApplication::translate("recording", "The file is not there any more."));
    else
        reachDisk();
}

void FileRecording::reachDisk()
{
    if (m_isReachingDisk.exchange(true))
        return; // a slow disk: what came meanwhile is its next turn's
    m_disk.start([this, descriptor = m_file.handle()] {
        m_diskError = storage::reachDisk(descriptor);
        m_isReachingDisk = false;
    });
}

void FileRecording::fail(const QString &reason)
{
    m_look.stop();
    m_disk.waitForDone();
    m_writer.reset();
    m_file.resize(m_goodSize); // half a line is of no use
    m_file.close();
    Q_EMIT failed(reason);
}

} // namespace recording
