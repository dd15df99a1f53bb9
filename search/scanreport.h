#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/** What a scan of a bus did and what came of it. */
class ScanReport
{
    Q_DECLARE_TR_FUNCTIONS(ScanReport)

public:
    int lowerId = 0;
    int upperId = 0;
    QStringList ports;        ///< that were opened
    QVector<int> baudRates;   ///< at which servos were asked, in bits per second, ascending
    int triedBaudRates = 0;   ///< those that are through, also if the port could not be opened
    int skippedBaudRates = 0; ///< those that were chosen but not tried since the user ended the scan
    QVector<int> foundIds;    ///< of the servos that answered
    QStringList portErrors;   ///< texts for the user, each once

    /** Takes in a probe on @p port at @p baudRate; @p openError is why the port could not be opened, empty if it could.
     */
    void addProbe(const QString &port, int baudRate, const QString &openError);
    /** All of it for the user, a paragraph a statement. */
    QString text() const;

private:
    QString course() const;
    QString result() const;
};
