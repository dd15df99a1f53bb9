#pragma once

#include "recording/csvwriter.h"
#include "recording/mark.h"
#include "recording/samplestore.h"

#include <QFile>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <memory>

namespace recording {

/**
 * A recording that grows in a file. Each line is handed to the system at once, which a kill of the program does not
 * undo, and is on the disk within a second, unless the disk takes longer. To be used in one thread.
 */
class FileRecording : public QObject
{
    Q_OBJECT

public:
    explicit FileRecording(const TimeOrigin &origin);
    /** Ends the recording. */
    ~FileRecording() override;

    /** Begins a file at @p path, which replaces one that is there. @return an empty text, or why there is none. */
    [[nodiscard]] QString begin(const QString &path, std::vector<Column> columns);

    void add(const model::RegisterImage &image);
    void add(const Mark &mark);
    /** The samples and marks of the past; to be called first. */
    void addPast(const SampleStore &samples, const std::deque<Mark> &marks, TimePoint from);

    QString path() const { return m_file.fileName(); }
    qint64 sampleCount() const { return m_sampleCount; }
    /** From the first sample to the last one. */
    std::chrono::seconds duration() const;
    bool isRunning() const { return m_writer != nullptr; }
    const std::vector<Column> &columns() const { return m_writer->columns(); }

Q_SIGNALS:
    /** The file takes no more, for @p reason; what is in it stays, up to the last whole line. */
    void failed(const QString &reason);

private:
    void takeOver(const QString &error);
    void lookAfterFile();
    void reachDisk();
    void fail(const QString &reason);

    TimeOrigin m_origin;
    QFile m_file;
    std::unique_ptr<CsvWriter> m_writer; ///< null before and after the recording
    qint64 m_goodSize = 0;               ///< bytes, up to the last whole line
    qint64 m_sampleCount = 0;
    TimePoint m_firstSample;
    TimePoint m_lastSample;
    QTimer m_look;
    QThreadPool m_disk; ///< where the disk is waited for: one thread at most
    std::atomic<int> m_diskError{0};
    std::atomic<bool> m_isReachingDisk{false};
};

} // namespace recording
