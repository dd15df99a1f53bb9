#include "plot/steprow.h"

#include "plot/curves.h"

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include <algorithm>

namespace plot {

using recording::Step;

namespace {

using Gains = std::vector<session::AppliedField>;

QString secondsText(const std::optional<double> &seconds)
{
    return seconds ? StepRow::tr("%1 s").arg(QLocale().toString(*seconds, 'f', 3)) : QStringLiteral("\u2013");
}

QString gainText(const session::AppliedField &gain, const model::Family &family)
{
    const Curve curve{{gain.field, 0}, {}};
    return curve.name(family) + QLatin1Char(' ') +
           curve.text(curve.column.value(model::rawValue(*gain.field, gain.wanted)));
}

/** Those of @p gains that are not as in @p others; all of them without others. */
Gains different(const Gains &gains, const Gains &others)
{
    const auto isOther = [&others](const session::AppliedField &gain) {
        return std::none_of(others.begin(), others.end(), [&gain](const session::AppliedField &other) {
            return other.field == gain.field && other.wanted == gain.wanted;
        });
    };
    Gains found;
    std::copy_if(gains.begin(), gains.end(), std::back_inserter(found), isOther);
    return found;
}

QString gainsText(const Gains &gains, const model::Family &family, const QString &separator)
{
    QStringList texts;
    for (const session::AppliedField &gain : gains)
        texts.append(gainText(gain, family));
    return texts.join(separator);
}

/** What stands in one column of the table. */
struct ColumnRow
{
    const char *title;
    const char *tip;
};

constexpr ColumnRow Columns[] = {
    {"", ""},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Target"), QT_TRANSLATE_NOOP("plot::StepRow", "The target that was applied")},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Rise"),
     QT_TRANSLATE_NOOP("plot::StepRow", "Rise time: from 10 % to 90 % of the way to the target")},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Overshoot"),
     QT_TRANSLATE_NOOP("plot::StepRow", "How far the value went beyond the target, in percent of the way")},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Settling"),
     QT_TRANSLATE_NOOP("plot::StepRow", "Settling time: from the Apply until the value stays within 2 % of the way "
                                        "around the target")},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Off by"),
     QT_TRANSLATE_NOOP("plot::StepRow", "What was left to the target at the last sample, ten seconds after the Apply "
                                        "at most")},
    {QT_TRANSLATE_NOOP("plot::StepRow", "Gains"),
     QT_TRANSLATE_NOOP("plot::StepRow", "The gains that differ between the two steps; all of them in the tips below. "
                                        "The step before is the grey curve, moved and scaled to this step")},
};

QStringList cellsOf(const Step &step, const Gains &shownGains, const model::Family &family)
{
    const Curve target{step.target, {}};
    return {(target.text(step.to) + QLatin1Char(' ') + target.unitText()).trimmed(),
            secondsText(step.figures->riseTime),
            StepRow::tr("%1 %").arg(QLocale().toString(step.figures->overshoot, 'f', 1)),
            secondsText(step.figures->settlingTime),
            target.text(step.figures->remaining),
            gainsText(shownGains, family, QStringLiteral(", "))};
}

} // namespace

StepRow::StepRow(QWidget *parent)
    : QWidget(parent), m_latest{}, m_before{}, m_writeBack(new QPushButton(tr("&Write these gains back"), this))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setVerticalSpacing(1);
    layout->setHorizontalSpacing(3 * fontMetrics().averageCharWidth());
    layout->setColumnStretch(ColumnCount - 1, 1);
    const Row titles = addRow(0, QStringLiteral("plotStepTitle"));
    for (std::size_t column = 0; column < titles.size(); ++column) {
        titles[column]->setText(tr(Columns[column].title));
        titles[column]->setToolTip(tr(Columns[column].tip));
    }
    m_latest = addRow(1, QStringLiteral("plotLatestStep"));
    m_before = addRow(2, QStringLiteral("plotStepBefore"));
    m_latest[0]->setText(tr("This step"));
    m_before[0]->setText(tr("Step before"));
    m_writeBack->setObjectName(QStringLiteral("plotWriteGainsButton"));
    m_writeBack->setToolTip(tr("Gives the servo the gains again that it had at the step before"));
    layout->addWidget(m_writeBack, 0, ColumnCount - 1, Qt::AlignRight); // leaves the gains below all of the width
    connect(m_writeBack, &QPushButton::clicked, this, [this] { Q_EMIT gainsWanted(m_gainsBefore); });
    hide();
}

StepRow::Row StepRow::addRow(int row, const QString &objectName)
{
    Row labels{};
    for (int column = 0; column < ColumnCount; ++column) {
        auto *label = new QLabel(this);
        label->setObjectName(objectName + QString::number(column));
        label->setTextFormat(Qt::PlainText);
        static_cast<QGridLayout *>(layout())->addWidget(label, row, column);
        labels[std::size_t(column)] = label;
    }
    labels.back()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // gains do not widen the pane
    return labels;
}

void StepRow::fill(const Row &row, const Step &step, const Gains &otherGains, const model::Family &family) const
{
    const QStringList cells = cellsOf(step, different(step.gains, otherGains), family);
    for (int column = 1; column < ColumnCount; ++column)
        row[std::size_t(column)]->setText(cells[column - 1]);
    row.back()->setToolTip(gainsText(step.gains, family, QStringLiteral("\n")));
}

void StepRow::setSteps(const std::vector<Step> &steps, const model::Family &family)
{
    setVisible(!steps.empty());
    if (steps.empty())
        return;
    const bool hasBefore = steps.size() > 1;
    m_gainsBefore = hasBefore ? steps[1].gains : Gains();
    fill(m_latest, steps[0], m_gainsBefore, family);
    if (hasBefore)
        fill(m_before, steps[1], steps[0].gains, family);
    for (QLabel *label : m_before)
        label->setVisible(hasBefore);
    m_writeBack->setEnabled(!different(m_gainsBefore, steps[0].gains).empty());
}

} // namespace plot
