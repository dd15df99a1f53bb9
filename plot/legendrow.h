#pragma once

#include <QPen>
#include <QString>
#include <QWidget>

#include <vector>

namespace plot {

/** A curve in the legend. */
struct LegendEntry
{
    QPen pen;
    QString name;       ///< with the unit, if it has one
    QString value;      ///< what it is now, or at the cursor; may be empty
    QString difference; ///< between the cursors; empty without two of them
};

/**
 * The curves of a strip with their values, in one line above it whose places do not move while values change. Where it
 * is too narrow the names are cut, and no value ever is.
 */
class LegendRow : public QWidget
{
    Q_OBJECT

public:
    explicit LegendRow(QWidget *parent = nullptr);

    void setEntries(std::vector<LegendEntry> entries);
    /** What stands before the curves' names begins here, so that it is above the canvas. */
    void setIndent(int pixels);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int valueWidth(const LegendEntry &entry) const;
    double nameShare() const;

    std::vector<LegendEntry> m_entries;
    std::vector<int> m_rooms; ///< pixels for the values of each entry, the widest ones so far
    int m_indent = 0;
};

} // namespace plot
