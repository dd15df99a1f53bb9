#include "dialogs/comparisondialog.h"

#include "dialogs/comparisonmodel.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace dialogs {

namespace {

constexpr int MostNotes = 3;        ///< that are shown
constexpr int LeastRows = 3;        ///< that the table has room for on any screen
constexpr int UsualRows = 6;        ///< that it has room for at first
constexpr int MostRows = 20;        ///< that the dialog makes room for at first
constexpr int LeastColumns = 80;    ///< characters that the dialog is wide
constexpr double ScreenShare = 0.9; ///< of the screen that it takes at most

QLabel *makeLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

/** Lets rows through that are different, or all. */
class DifferenceFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setOnlyDifferences(bool isOn)
    {
        m_isOn = isOn;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        return !m_isOn || sourceModel()->index(row, 0, parent).data(ComparisonModel::DifferentRole).toBool();
    }

private:
    bool m_isOn = true;
};

ComparisonDialog::ComparisonDialog(const FieldText &text, Subject subject, Purpose purpose, QWidget *parent)
    : QDialog(parent), m_subject(std::move(subject)), m_isWriting(purpose != Purpose::Compare), m_purpose(purpose),
      m_model(new ComparisonModel(text, m_subject.fileTitle, m_isWriting, this)), m_filter(new DifferenceFilter(this)),
      m_table(new QTableView(this)), m_statement(makeLabel({}, this)),
      m_onlyDifferences(new QCheckBox(tr("Only &differences"), this)),
      m_stopMotor(
          new QCheckBox(tr("Switch the &motor off first, which frees the shaft: what it carries may fall"), this))
{
    setObjectName(QStringLiteral("comparisonDialog"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_stopMotor->setObjectName(QStringLiteral("stopMotorCheckBox"));
    m_statement->setObjectName(QStringLiteral("statementLabel"));
    m_stopMotor->hide();
    layOut();
    m_model->compare(m_subject.servo, m_subject.file);
    m_model->setAddressChosen(purpose == Purpose::Replace);
    connect(m_model, &ComparisonModel::chosenChanged, this, &ComparisonDialog::onChosen);
    connect(m_stopMotor, &QCheckBox::toggled, this, &ComparisonDialog::onChosen);
    refresh();
    resize(0, 0);
    fit();
}

ComparisonDialog::~ComparisonDialog() = default;

void ComparisonDialog::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeLabel(tr("%1, compared with %2").arg(m_subject.servoName, m_subject.fileName), this));
    addNotes(*layout);
    const auto &values = m_subject.file.values;
    const auto isOwn = [](const profile::Value &value) { return profile::belongsToOneServo(*value.field); };
    const QString leftOut =
        m_purpose == Purpose::Replace
            ? tr("What is ticked is written, id and baud rate last. The home position offset belongs to one servo: it "
                 "is left out unless you tick it.")
            : tr("What is ticked is written. Id, baud rate and home position offset belong to one servo: they are left "
                 "out unless you tick them.");
    if (m_isWriting && std::any_of(values.begin(), values.end(), isOwn))
        layout->addWidget(makeLabel(leftOut, this));
    layout->addWidget(m_onlyDifferences);
    makeTable();
    layout->addWidget(m_table, 1);
    layout->addWidget(m_stopMotor);
    layout->addWidget(m_statement);
    makeButtons();
}

/** So many as leave the table its place; the tip has all. */
void ComparisonDialog::addNotes(QLayout &layout)
{
    QStringList notes = m_subject.notes;
    const QString all = notes.join(QLatin1Char('\n'));
    const int more = notes.size() - MostNotes;
    if (more > 0)
        notes = notes.mid(0, MostNotes) + QStringList{tr("… and %1 more, which the tip of this text tells").arg(more)};
    if (notes.isEmpty())
        return;
    QLabel *label = makeLabel(notes.join(QLatin1Char('\n')), this);
    label->setToolTip(all);
    layout.addWidget(label);
}

void ComparisonDialog::makeTable()
{
    m_filter->setSourceModel(m_model);
    m_onlyDifferences->setChecked(true);
    m_onlyDifferences->setObjectName(QStringLiteral("onlyDifferencesCheckBox"));
    connect(m_onlyDifferences, &QCheckBox::toggled, m_filter, &DifferenceFilter::setOnlyDifferences);

    m_table->setObjectName(QStringLiteral("comparisonTable"));
    m_table->setAccessibleName(tr("Fields"));
    m_table->setModel(m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + fontMetrics().height() / 2);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);

    auto *copyAction = new QAction(tr("&Copy as text"), m_table);
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &ComparisonDialog::copy);
    m_table->addAction(copyAction);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ComparisonDialog::makeButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    m_close = buttons->addButton(QDialogButtonBox::Close);
    QPushButton *copyButton = buttons->addButton(tr("&Copy as text"), QDialogButtonBox::ActionRole);
    connect(copyButton, &QPushButton::clicked, this, &ComparisonDialog::copy);
    const struct
    {
        QString title;
        QString button;
    } texts[] = {
        {tr("Compare"), tr("&Restore…")},
        {tr("Restore"), tr("&Restore")},
        {tr("Keep the tuned gains"), tr("&Keep")},
        {tr("Replace a servo"), tr("&Restore")},
    };
    setWindowTitle(texts[int(m_purpose)].title);
    m_restore = buttons->addButton(texts[int(m_purpose)].button, QDialogButtonBox::ActionRole);
    m_restore->setObjectName(QStringLiteral("restoreButton"));
    connect(m_restore, &QPushButton::clicked, this, &ComparisonDialog::onRestore);
    // Return must not write by the way.
    for (QPushButton *button : {m_restore, copyButton})
        button->setAutoDefault(false);
    m_close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &ComparisonDialog::reject);
    layout()->addWidget(buttons);
}

/** Makes the dialog as large as what there is to show, as far as the screen goes; never smaller than it is. */
void ComparisonDialog::fit()
{
    const int lineHeight = m_table->verticalHeader()->defaultSectionSize();
    const auto heightWith = [&](int rows, int width) {
        m_table->setMinimumHeight(m_table->horizontalHeader()->sizeHint().height() + rows * lineHeight + 4);
        return layout()->totalHeightForWidth(width);
    };
    QHeaderView &header = *m_table->horizontalHeader();
    header.setStretchLastSection(false);
    m_table->resizeColumnsToContents();
    const int columns = header.length();
    header.setStretchLastSection(true);
    const QSize screenSize = screen()->availableSize() * ScreenShare;
    const int leastWidth = LeastColumns * fontMetrics().averageCharWidth();
    const int width = qBound(leastWidth, columns + 2 * lineHeight, screenSize.width());
    const int height = heightWith(qBound(UsualRows, m_filter->rowCount(), MostRows), width);
    setMinimumSize(QSize(leastWidth, heightWith(LeastRows, leastWidth)).boundedTo(screenSize));
    resize(QSize(width, height).boundedTo(screenSize).expandedTo(size()));
}

void ComparisonDialog::setMotorOn(bool isOn)
{
    if (std::exchange(m_isMotorOn, isOn) == isOn)
        return;
    m_stopMotor->setVisible(isOn && m_isWriting && !m_isDone);
    refresh();
    fit();
}

void ComparisonDialog::setHindrance(const QString &reason)
{
    m_hindrance = reason;
    refresh();
}

void ComparisonDialog::onChosen()
{
    m_obstacle.clear();
    refresh();
}

void ComparisonDialog::refresh()
{
    const bool hasFields = m_isWriting ? !m_model->chosenFields().empty() : m_model->differenceCount() > 0;
    const bool mayWrite = !m_isWriting || !m_isMotorOn || m_stopMotor->isChecked();
    m_restore->setEnabled(hasFields && mayWrite && !m_isRunning && !m_isDone && m_hindrance.isEmpty());
    m_restore->setToolTip(m_hindrance);
    m_table->setEnabled(!m_isRunning);
    m_stopMotor->setEnabled(!m_isRunning);
    m_close->setText(m_isRunning ? tr("Stop") : tr("Close"));
    if (m_isRunning || m_isDone)
        return;
    const QString &reason = m_obstacle.isEmpty() ? m_hindrance : m_obstacle;
    m_statement->setText(reason.isEmpty() ? countText() : reason);
}

QString ComparisonDialog::countText() const
{
    const int all = m_model->rowCount();
    const int different = m_model->differenceCount();
    QString counts = tr("%1 fields compared, %2 equal, %3 different").arg(all).arg(all - different).arg(different);
    if (!m_isWriting || different == 0)
        return counts;
    return tr("%1; %2 ticked").arg(counts).arg(m_model->chosenFields().size());
}

void ComparisonDialog::onRestore()
{
    if (m_isWriting)
        Q_EMIT restoreWanted({m_subject.file, m_model->chosenFields(), m_stopMotor->isChecked(), m_subject.servo});
    else
        Q_EMIT restoreOfferWanted();
}

void ComparisonDialog::showBegun()
{
    m_isRunning = true;
    m_statement->setText(tr("Writing and reading back …"));
    refresh();
}

void ComparisonDialog::showReport(const profile::RestoreReport &report, const QString &obstacle)
{
    m_isRunning = false;
    m_isDone = report.obstacle == profile::Obstacle::None;
    const int leftOut = m_model->differenceCount() - int(report.fields.size());
    if (m_isDone)
        m_model->showReport(report);
    m_obstacle = obstacle;
    m_stopMotor->setVisible(m_isMotorOn && !m_isDone);
    refresh();
    if (m_isDone)
        m_statement->setText(resultText(report, leftOut));
    fit();
    m_close->setFocus();
}

/** The word "restored" only when all that was wanted is. */
QString ComparisonDialog::resultText(const profile::RestoreReport &report, int leftOut) const
{
    const int refused = report.refusedCount();
    const int written = report.count(profile::RestoredField::Fate::Written);
    const int all = m_model->rowCount();
    const QString counts = tr("%1 fields compared, %2 equal, %3 written, %4 refused, %5 left out")
                               .arg(all)
                               .arg(all - written - refused - leftOut)
                               .arg(written)
                               .arg(refused)
                               .arg(leftOut);
    if (!report.isRestored())
        return tr("Not all is as it was to be: %1.").arg(counts);
    return (m_purpose == Purpose::Keep ? tr("Kept and read back: %1.") : tr("Restored and read back: %1.")).arg(counts);
}

QString ComparisonDialog::asText() const
{
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    const auto isWanted = [&](int row) {
        const auto isIt = [row](const QModelIndex &index) { return index.row() == row; };
        return selected.isEmpty() || std::any_of(selected.begin(), selected.end(), isIt);
    };
    const auto lineOf = [this](const auto &cell) {
        QStringList cells;
        for (int column = 0; column < m_filter->columnCount(); ++column)
            cells.append(cell(column).toString());
        return cells.join(QLatin1Char('\t'));
    };
    QStringList lines{lineOf([this](int column) { return m_filter->headerData(column, Qt::Horizontal); })};
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        if (isWanted(row))
            lines.append(lineOf([&](int column) { return m_filter->index(row, column).data(); }));
    }
    return lines.join(QLatin1Char('\n'));
}

void ComparisonDialog::copy() const
{
    QGuiApplication::clipboard()->setText(asText());
}

/** A restore that runs is told to stop; the dialog stays until that has ended. */
void ComparisonDialog::reject()
{
    if (m_isRunning)
        Q_EMIT stopWanted();
    else
        QDialog::reject();
}

} // namespace dialogs
