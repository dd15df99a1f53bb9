#pragma once

#include <QProcess>
#include <QString>

/** A program with a window, as it was built, watched by a plugin that Qt loads into it. */
class WatchedProgram
{
public:
    /** What is done in it once its window is painted. */
    struct Wish
    {
        int tab = -1;         ///< unless negative, the program shows this tab and connects
        bool isLarge = false; ///< its window then has the size that shows all of the tab
    };

    /** Starts @p path and waits until its window is painted. */
    explicit WatchedProgram(const QString &path) : WatchedProgram(path, Wish()) {}
    WatchedProgram(const QString &path, const Wish &wish);
    ~WatchedProgram();
    Q_DISABLE_COPY(WatchedProgram)

    qint64 pid() const { return m_process.processId(); }
    /** Microseconds from the start until the window was painted. */
    double startTime() const { return m_startTime; }

private:
    QProcess m_process;
    double m_startTime = 0.0;
};
