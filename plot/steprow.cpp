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

QString gainValue(const session::AppliedField &gain)
{
    const Curve curve{{gain.field, 0}, {}};
    return curve.text(curve.column.value(model::rawValue(*gain.field, gain.wanted)));
}

/**
 * Those of @p gains that are otherwise in @p before, with both values; all of them when there is no step before, which
 * else has the same fields.
 */
QStringList gainTexts(const Gains &gains, const Gains &before, const model::Family &family)
{
    QStringList texts;
    for (std::size_t i = 0; i < gains.size(); ++i) {
        const QString name = Curve{{gains[i].field, 0}, {}}.name(family);
        const QString value = gainValue(gains[i]);
        if (before.empty())
            texts.append(name + QLatin1Char(' ') + value);
        else if (before[i].wanted != gains[i].wanted)
            texts.append(QStringLiteral("%1 %2 \u2192 %3").arg(name, gainValue(before[i]), value));
    }
    return texts;
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
};

QStringList cellsOf(const Step &step)
{
    const Curve target{step.target, {}};
    return {(target.text(step.to) + QLatin1Char(' ') + target.unitText()).trimmed(),
            secondsText(step.figures->riseTime),
            StepRow::tr("%1 %").arg(QLocale().toString(step.figures->overshoot, 'f', 1)),
            secondsText(step.figures->settlingTime), target.text(step.figures->remaining)};
}

} // namespace

StepRow::StepRow(QWidget *parent)
    : QWidget(parent), m_latest{}, m_before{}, m_gains(new QLabel(this)),
      m_writeBack(new QPushButton(tr("&Write these gains back"), this))
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
    m_before[0]->setToolTip(tr("The grey curve, moved and scaled to this step"));
    addGains();
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
    return labels;
}

/** In a line of their own, since several of them are longer than all figures. */
void StepRow::addGains()
{
    m_gains->setObjectName(QStringLiteral("plotStepGains"));
    m_gains->setTextFormat(Qt::PlainText);
    m_gains->setWordWrap(true);
    m_writeBack->setObjectName(QStringLiteral("plotWriteGainsButton"));
    m_writeBack->setToolTip(tr("Gives the servo the gains again that it had at the step before"));
    auto *line = new QHBoxLayout;
    line->addWidget(m_gains, 1);
    line->addWidget(m_writeBack);
    static_cast<QGridLayout *>(layout())->addLayout(line, 3, 0, 1, ColumnCount);
    connect(m_writeBack, &QPushButton::clicked, this, [this] { Q_EMIT gainsWanted(m_gainsBefore); });
}

void StepRow::setSteps(const std::vector<Step> &steps, const model::Family &family)
{
    setVisible(!steps.empty());
    if (steps.empty())
        return;
    const auto fill = [](const Row &row, const Step &step) {
        const QStringList cells = cellsOf(step);
        for (int column = 1; column < ColumnCount; ++column)
            row[std::size_t(column)]->setText(cells[column - 1]);
    };
    const bool hasBefore = steps.size() > 1;
    const Gains &gains = steps[0].gains;
    m_gainsBefore = hasBefore ? steps[1].gains : Gains();
    fill(m_latest, steps[0]);
    m_latest[0]->setToolTip(gainTexts(gains, {}, family).join(QLatin1Char('\n')));
    if (hasBefore)
        fill(m_before, steps[1]);
    for (QLabel *label : m_before)
        label->setVisible(hasBefore);
    const QStringList texts = gainTexts(gains, m_gainsBefore, family);
    m_gains->setText(texts.isEmpty() ? tr("The gains are those of the step before")
                                     : tr("Gains: %1").arg(texts.join(QLatin1String(", "))));
    m_writeBack->setEnabled(!texts.isEmpty());
    // An AX-12 has none.
    m_gains->setVisible(!m_gainsBefore.empty());
    m_writeBack->setVisible(!m_gainsBefore.empty());
}

} // namespace plot
