#pragma once

#include "recording/column.h"
#include "recording/csvwriter.h"
#include "recording/mark.h"
#include "recording/samplestore.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace recording {

/** What has been read from a file. */
struct Recording
{
    std::shared_ptr<SampleStore> samples;
    std::vector<Column> columns; ///< what the file has, in its units; other registers are 0
    std::deque<Mark> marks;
    TimeOrigin origin; ///< where its seconds are counted from
};

/** A recording, or why there is none. */
struct ReadResult
{
    std::optional<Recording> recording;
    QString error; ///< for the user; empty when there is a recording
};

/** Reads what CsvWriter has written with a separator of ",", ";" or a tab. A last line that has no end is passed over:
 *  the program was killed while it wrote it. */
ReadResult readCsv(const QByteArray &file);

} // namespace recording
