#pragma once

/** The parts of the plot pane: strips of curves over one axis of time. */
namespace plot {

/**
 * Which stretch of time is seen: the one that ends at the newest sample, or one that is held. In seconds from the
 * origin of what is shown.
 */
class TimeWindow
{
public:
    static constexpr double LeastSpan = 0.05;
    static constexpr double GreatestSpan = 3600.0;

    bool isLive() const { return m_isLive; }
    double span() const { return m_span; }
    double begin() const { return end() - m_span; }
    double end() const { return m_isLive ? m_newest : m_end; }

    void setNewest(double seconds) { m_newest = seconds; }
    void goLive() { m_isLive = true; }
    /** Stays where it is, whatever comes. */
    void hold() { holdAt(end()); }
    void holdAt(double end);
    /** Shows @p seconds up to the same end. */
    void setSpan(double seconds);
    /** Shows @p factor times as much. What is at @p anchor stays there, unless the window is live: then the newest
     *  sample does. */
    void zoom(double factor, double anchor);
    /** Goes on by @p seconds and holds, or is live again when that reaches the newest sample. */
    void pan(double seconds);

private:
    bool m_isLive = true;
    double m_span = 10.0;
    double m_newest = 0.0;
    double m_end = 0.0; ///< while it is held
};

} // namespace plot
