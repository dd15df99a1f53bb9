#pragma once

#include "plot/plotsource.h"
#include "plot/strip.h"
#include "plot/timewindow.h"
#include "recording/steps.h"

#include <QHash>
#include <QWidget>

#include <optional>
#include <vector>

class QVBoxLayout;

namespace plot {

class MarkRow;

/** The strips below one another, what is seen of time in them, and the cursors through all of them. */
class StripArea : public QWidget
{
    Q_OBJECT

public:
    /** @param charts makes what the curves are drawn in. */
    explicit StripArea(const chart::Charts &charts, QWidget *parent = nullptr);
    ~StripArea() override;

    /** Shows the fields @p keys of @p source, which has to stay as it is until another one is shown. */
    void show(const PlotSource &source, const model::Family &family, const QStringList &keys);
    /** Takes over what the source has got since. */
    void refresh();

    TimeWindow &window() { return m_window; }
    const PlotSource &source() const { return m_source; }
    /** What is seen of time. */
    recording::TimeSpan seenSpan() const;
    /** The columns of all curves, from the top. */
    std::vector<recording::Column> columns() const;
    /** The step before the latest one, whose response lies under that of the latest one. */
    void setSteps(const std::vector<recording::Step> &steps);

    /** The range that strip @p key keeps; nothing if it follows its values. */
    std::optional<recording::Extent> fixedRange(const QString &key) const;
    void setFixedRange(const QString &key, const std::optional<recording::Extent> &range);

    /** The cursors' times, or an empty text without one. */
    QString cursorText() const;
    /** A table, separated by tabs, of all curves at the cursors; at the newest sample without one. */
    QString valuesText() const;

Q_SIGNALS:
    /** Another stretch of time is to be seen, or the cursors stand elsewhere. */
    void viewChanged();
    /** The user has fixed or freed the range of the strip @p key. */
    void rangeChosen(const QString &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void rebuild(const model::Family &family, const QStringList &keys);
    void shareHeight();
    void addStrip(const StripCurves &curves, const model::Family &family);
    void onPointed(double seconds);
    void onClicked();
    void moveCursor(int samples);
    void zoom(double factor, double anchor);
    void pan(double seconds);
    void clearCursors();
    std::optional<double> cursor() const;
    std::optional<double> sampleAt(double seconds) const;
    std::vector<chart::VerticalLine> markLines() const;
    QString textOf(const recording::Mark &mark) const;
    void showMarkTexts(const std::vector<chart::VerticalLine> &lines);
    Strip *stripAt(const QPoint &place) const;
    void changed();

    const chart::Charts &m_charts;
    PlotSource m_source;
    const model::Family *m_family = nullptr;
    TimeWindow m_window;
    std::vector<Strip *> m_strips; ///< children, from the top
    MarkRow *m_marks;
    QVBoxLayout *m_layout;
    std::optional<double> m_pointer;   ///< where the cursor is, as a part of the window
    std::optional<double> m_reference; ///< seconds
    FaintCurve m_faint;
    QHash<QString, recording::Extent> m_fixedRanges; ///< by the strips' keys
};

} // namespace plot
