#pragma once

#include "chart/chart.h"
#include "plot/curves.h"
#include "plot/plotsource.h"
#include "plot/timewindow.h"
#include "plot/valuerange.h"
#include "recording/decimation.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace plot {

class LegendRow;

/** What all strips show at one moment. */
struct View
{
    const PlotSource &source;
    const TimeWindow &window;
    std::optional<double> cursor;    ///< seconds
    std::optional<double> reference; ///< the other cursor's
};

/** A curve that lies under the others: how an earlier step was answered, moved and scaled to a later one. */
struct FaintCurve
{
    const model::Field *field = nullptr; ///< null: none
    recording::TimeSpan span;
    double laterBy = 0.0; ///< seconds
    double factor = 1.0;  ///< of the value
    double offset = 0.0;  ///< added to it then
};

/** One strip: the curves of one quantity over the common axis of time, their legend, and their axis of values. */
class Strip : public QWidget
{
    Q_OBJECT

public:
    /** @param family lives as long as the program. */
    Strip(StripCurves curves, const model::Family &family, const chart::Charts &charts, QWidget *parent);
    ~Strip() override;

    const QString &key() const { return m_curves.key; }
    const std::vector<Curve> &curves() const { return m_curves.curves; }
    ValueRange &range() { return m_range; }

    /** Only the strip at the bottom has the scale of time. */
    void setTimeScaleVisible(bool isVisible);
    /** In pixels; 0 without it. */
    int timeScaleHeight() const;
    void showView(const View &view, const FaintCurve &faint, const std::vector<chart::VerticalLine> &marks);

    /** Where the curves are, in the strip. */
    QRect canvasPlace() const;

    /** The value of @p curve nearest to @p seconds, as it was sampled. */
    static std::optional<double> valueAt(const PlotSource &source, const Curve &curve, double seconds);

Q_SIGNALS:
    // In seconds of the common axis.
    void pointed(double seconds);
    void left();
    void clicked(double seconds);
    void dragged(double by);
    void zoomed(double factor, double anchor);
    void rangeChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    double secondsAt(const QPoint &place) const;
    double valueAt(const QPoint &place) const;
    void onWheel(QWheelEvent &event);
    void onMove(const QMouseEvent &event);
    void showCurves(const View &view, const FaintCurve &faint);
    void showScales(const View &view);
    void showLegend(const View &view);
    void showCursors(const View &view);
    chart::Look look() const;
    recording::Polylines linesOf(const View &view, const Curve &curve) const;
    recording::Polylines faintLines(const View &view, const FaintCurve &faint) const;
    double leastSpan() const;

    StripCurves m_curves;
    const model::Family &m_family;
    LegendRow *m_legend;
    chart::Chart *m_chart; ///< its widget is a child
    ValueRange m_range;
    std::optional<QPoint> m_pressedAt;
    QPoint m_draggedTo;
    bool m_isDragging = false;
};

} // namespace plot
