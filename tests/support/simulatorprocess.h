#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/** A running zelvar-servo-simulator; ended when this goes. */
class SimulatorProcess
{
public:
    /** Starts it and waits for its line that it is ready, or for its end. */
    explicit SimulatorProcess(const QStringList &arguments = {});
    ~SimulatorProcess();
    Q_DISABLE_COPY(SimulatorProcess)

    /** The program that this runs. */
    static QString program();
    /** Name of its bus in the port list; empty when it did not start. */
    QString name() const { return m_readyLine.section(QLatin1Char(' '), 0, 0); }
    QString device() const { return m_readyLine.section(QLatin1Char(' '), -1); }
    /** The line that it printed when it was ready. */
    QString readyLine() const { return m_readyLine; }
    /** Ends it like a crash: nothing is cleaned up. */
    void kill();
    QProcess &process() { return m_process; }

private:
    QProcess m_process;
    QString m_readyLine;
};
