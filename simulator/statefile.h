#pragma once

#include "simulator/isimulatedservo.h"
#include "simulator/lockfile.h"

#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

namespace simulator {

/**
 * The non-volatile registers of the servos of a bus in a file: JSON, by servo and address. What it holds of other
 * servos stays in it. One simulator at a time has it.
 */
class StateFile
{
public:
    /** The servo whose registers are kept under a label, which is the same from run to run. */
    struct Entry
    {
        QString label;
        ISimulatedServo *servo;
    };

    /** REQUIRES: the servos of @p entries live as long as this object. Labels that occur twice are told
     * apart. */
    StateFile(const QString &path, std::vector<Entry> entries);

    /**
     * Locks the file, gives the servos what it has for them, and writes what it has not.
     * @return an empty text on success, otherwise what is wrong with the file, which is then as it was.
     */
    QString open();
    /** Writes the file if a register has changed; it is never found half written. @return as open(). */
    QString save();

private:
    QString lock();
    QString load();
    QJsonObject currentContents() const;

    QString m_path;
    std::vector<Entry> m_entries;
    std::optional<LockFile> m_lock; ///< on a file beside it, since each save() makes the file anew
    QJsonObject m_contents;         ///< of the file; empty when there is none in today's format
    QJsonObject m_servos;           ///< what it had for all servos when it was opened
};

} // namespace simulator
