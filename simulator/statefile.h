#pragma once

#include "simulator/isimulatedservo.h"

#include <QString>

#include <vector>

namespace simulator {

/** The non-volatile registers of the servos of a bus in a file: JSON, by servo and address. */
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
     * Gives the servos what the file has for them, then writes the file for the first time.
     * @return an empty text on success, otherwise what is wrong with the file.
     */
    QString open();
    /** Writes the file if a register has changed; it is never found half written. @return as open(). */
    QString save();

private:
    QString load();
    QByteArray contents() const;

    QString m_path;
    std::vector<Entry> m_entries;
    QByteArray m_saved;
};

} // namespace simulator
