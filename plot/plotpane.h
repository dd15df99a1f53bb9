#pragma once

#include "plot/plotsource.h"
#include "recording/csvreader.h"
#include "settings/settings.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QToolBar;
class QToolButton;

namespace chart {
class Charts;
}

namespace recording {
class Sampler;
}

namespace plot {

class StepRow;
class StripArea;

/**
 * What the servo has done over time, as curves: those of the connection, or of a recording. GUI thread only.
 *
 * Opens no boxes and writes no files: it says what is wanted and hands the contents out.
 */
class PlotPane : public QWidget
{
    Q_OBJECT

public:
    /** What is seen, to be saved. */
    enum class Format { Png, Svg, Csv };

    /** @param sampler must outlive the pane. @param charts makes what the curves are drawn in. */
    PlotPane(recording::Sampler &sampler, const chart::Charts &charts, QWidget *parent = nullptr);
    ~PlotPane() override;

    /** Shows @p recording in place of the connection until the user goes back. @param name of its file. */
    void showRecording(recording::Recording recording, const QString &name);
    /** What is seen as a file of @p format. */
    QByteArray contents(Format format) const;
    /** The columns of what is shown, in the units of the settings. */
    std::vector<recording::Column> columns() const;

Q_SIGNALS:
    void saveWanted(plot::PlotPane::Format format);
    void openWanted();
    void gainsWanted(const std::vector<session::AppliedField> &gains);

protected:
    void showEvent(QShowEvent *event) override;

private:
    enum class Trigger { Never, Apply, Fault };

    void addActions();
    QAction *addAction(const QString &name, const QString &text, const QString &tip, const QKeySequence &key);
    QMenu *addMenu(const QString &name, const QString &text, const QString &tip);
    void fillSpans();
    void fillTriggers();
    void fillSaving();
    void fillFields();
    void addFieldMenu(const QString &title, model::Access access);
    void chooseField(const model::Field &field, bool isShown);
    void chooseSpan(int index);
    int storedSpan() const;
    void loadRanges();
    void storeRange(const QString &key);

    const PlotSource &source() const { return m_recording ? m_recorded : m_live; }
    const model::Family &family() const;
    QStringList shownKeys() const;
    void showSource();
    void closeRecording();
    void setPaused(bool isPaused);
    void goLive();
    void onSampled();
    void onMarked(const recording::Mark &mark);
    void scheduleRefresh();
    void refresh();
    void holdIfTriggered();
    void refreshSteps();
    void showState();
    void showSpan();

    QByteArray png() const;
    QByteArray csv() const;

    recording::Sampler &m_sampler;
    const chart::Charts &m_charts;
    Settings m_settings;
    PlotSource m_live;
    PlotSource m_recorded; ///< of m_recording
    std::optional<recording::Recording> m_recording;
    QToolBar *m_toolBar;
    StripArea *m_area;
    StepRow *m_steps;
    QAction *m_pause = nullptr;
    QAction *m_goLive = nullptr;
    QAction *m_close = nullptr;
    QComboBox *m_span = nullptr;
    QMenu *m_fields = nullptr;
    QLabel *m_cursor;
    Trigger m_trigger = Trigger::Never;
    std::optional<double> m_holdAt; ///< seconds: where the view is to end once there are samples
    QTimer m_refresh;
};

} // namespace plot
