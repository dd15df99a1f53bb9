#pragma once

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QPen>
#include <QPointF>
#include <QString>
#include <QtPlugin>

#include <cstddef>
#include <functional>
#include <vector>

class QWidget;

/**
 * Curves over an axis of time, and the library that draws them. What passes between the two is plain values, so that
 * the library knows nothing of the program.
 */
namespace chart {

/** What there is of a curve: points by ascending time, and where lines begin anew. */
struct Lines
{
    std::vector<QPointF> points;     ///< seconds and value
    std::vector<std::size_t> starts; ///< index of each line's first point
    bool isSparse = false;           ///< whether each point gets a dot
};

/** A vertical line and what it means. */
struct VerticalLine
{
    double seconds;
    QPen pen;
    QString text; ///< not drawn; empty for a cursor
};

using LabelText = std::function<QString(double)>;

/** What stays as it is for as long as there is a chart. */
struct Look
{
    std::vector<QPen> curves; ///< one for each curve, the one on top first
    QPen grid;
    QColor background;
    QFont font;          ///< of the scales
    int valueScaleWidth; ///< pixels, at least
    LabelText timeText;  ///< of a number of seconds at the scale of time
    LabelText valueText; ///< of a value at the other scale
};

/** One chart. Its widget belongs to a parent, as widgets do, and the chart is gone with it. GUI thread only. */
class Chart
{
public:
    Chart() = default;
    virtual ~Chart() = default;
    Q_DISABLE_COPY(Chart)

    virtual QWidget &widget() = 0;
    /** Where the curves are. */
    virtual QWidget &canvas() = 0;

    // What is set is seen after the next replot().
    virtual void setTimeScaleVisible(bool isVisible) = 0;
    /** In pixels; 0 without it. */
    virtual int timeScaleHeight() const = 0;
    virtual void setTimes(double begin, double end) = 0;
    virtual void setValues(double lower, double upper) = 0;
    /** @param curve counted from 0, as in the look. */
    virtual void setCurve(std::size_t curve, Lines lines) = 0;
    /** Vertical lines below the curves. */
    virtual void setMarks(std::vector<VerticalLine> lines) = 0;
    /** Vertical lines above the curves. */
    virtual void setCursors(std::vector<VerticalLine> lines) = 0;
    virtual void replot() = 0;

    // Of places on the canvas, in pixels.
    virtual double secondsAt(int x) const = 0;
    virtual double valueAt(int y) const = 0;
};

/** Makes charts: what the library has to offer. */
class Charts
{
public:
    Charts() = default;
    virtual ~Charts() = default;
    Q_DISABLE_COPY(Charts)

    /** @return a chart whose widget is a child of @p parent. */
    virtual Chart *makeChart(const Look &look, QWidget *parent) const = 0;
    /** @p widget and what is in it as a picture in SVG. */
    virtual QByteArray svg(QWidget &widget, const QString &title) const = 0;
};

} // namespace chart

// With the version, since neither side knows an older or newer one of the other.
#define ZELVAR_CHARTS_IID "com.ostravel.ZelvarServoManager.Charts/" ZELVAR_VERSION
Q_DECLARE_INTERFACE(chart::Charts, ZELVAR_CHARTS_IID)
