#pragma once

#include "plot/plotsource.h"
#include "recording/steps.h"

#include <QWidget>

#include <array>
#include <vector>

class QLabel;
class QPushButton;

namespace plot {

/** How the servo has answered the latest target that was applied, and the one before, with a way back to its gains. */
class StepRow : public QWidget
{
    Q_OBJECT

public:
    explicit StepRow(QWidget *parent = nullptr);

    /** @param steps the latest one first; hidden without any. */
    void setSteps(const std::vector<recording::Step> &steps, const model::Family &family);

Q_SIGNALS:
    /** The user wants @p gains, which the servo had at the step before: their bits are in "wanted". */
    void gainsWanted(const std::vector<session::AppliedField> &gains);

private:
    static constexpr int ColumnCount = 6;
    using Row = std::array<QLabel *, ColumnCount>;

    Row addRow(int row, const QString &objectName);
    void addGains();

    Row m_latest;
    Row m_before;
    QLabel *m_gains;
    QPushButton *m_writeBack;
    std::vector<session::AppliedField> m_gainsBefore;
};

} // namespace plot
