#pragma once

#include "recording/csvreader.h"
#include "recording/filerecording.h"
#include "recording/sampler.h"
#include "settings/settings.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <memory>

class LinkLine;
class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;

namespace plot {
class PlotPane;
}

/**
 * The plot pane in the window, and recording to files: actions, dock, file dialogs, boxes, and what the link line says
 * of a recording. Samples are kept from the start; the pane is made when it is first shown. GUI thread only.
 */
class Plotting : public QObject
{
    Q_OBJECT

public:
    /** All must outlive this object. @param window gets the dock and owns the actions. */
    Plotting(QMainWindow &window, LinkLine &line, const session::Connection &connection,
             const session::ApplyProof &proof);
    ~Plotting() override;

    /** Puts the actions into @p menu. */
    void addTo(QMenu &menu);
    /** Shows the pane if it was shown when the program ended. To be called before the window's state is restored. */
    void restore();
    /** Keeps whether the pane is shown. */
    void store();

    /** Shows or hides the pane. */
    void setPaneShown(bool isShown);
    /** Says in a recording why there is no connection any more. */
    void tellPortLost(const QString &reason) { m_sampler.tellPortLost(reason); }

    /** Records to the file @p path what comes from now on. */
    void record(const QString &path) { recordFrom(path, recording::TimePoint::max()); }
    /** Shows the recording at @p path in the pane, once it has been read. */
    void open(const QString &path);

Q_SIGNALS:
    /** The user wants to write @p gains: their bits are in "wanted". */
    void gainsWanted(const std::vector<session::AppliedField> &gains);

private:
    void makeDock();
    void placeDock();
    QAction *makeAction(const char *name, const QString &text, const QKeySequence &key);
    void toggleRecording(bool isOn);
    void recordPast();
    void recordFrom(const QString &path, recording::TimePoint from);
    void askAndRecord(recording::TimePoint from);
    void stopRecording();
    void onRecordingFailed(const QString &reason);
    void onSampled(const model::RegisterImage &image);
    void keepParameters(const model::RegisterImage &image);
    void showRecording();
    std::vector<recording::Column> recordedColumns() const;
    QString suggestedPath(const QString &suffix) const;
    QString askWhereTo(const QString &title, const QString &suffix);
    void rememberFolder(const QString &path);
    void openFile();
    void showOpened(const QString &path, recording::ReadResult result);
    void tellError(const QString &title, const QString &path, const QString &reason);

    QMainWindow &m_window;
    LinkLine &m_line;
    const session::Connection &m_connection;
    Settings m_settings;
    recording::Sampler m_sampler;
    std::unique_ptr<recording::FileRecording> m_recording; ///< null while there is none
    bool m_isParameterFileDue = false;
    QDockWidget *m_dock = nullptr;    ///< the window's, as the actions; null until first shown
    plot::PlotPane *m_pane = nullptr; ///< the dock's
    QAction *m_showPane;
    QAction *m_record;
    QAction *m_recordPast;
    QAction *m_recordAll;
    QTimer m_tellRecording;
    QThreadPool m_reader; ///< an hour takes seconds to read, in which the motor can be stopped; one thread
};
