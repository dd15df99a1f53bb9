#include "search/searchdialog.h"
#include "ui_searchdialog.h"

#include "link/serialhelper.h"
#include "search/scanreport.h"
#include "search/searchhelper.h"
#include "settings/portlist.h"
#include "settings/settings.h"

#include <QAccessible>
#include <QButtonGroup>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHideEvent>
#include <QMutexLocker>
#include <QPointer>
#include <QSignalBlocker>

#include <numeric>
#include <utility>

namespace {

const QString SettingsGroup = QStringLiteral("port settings");
const QString PortNameKey = QStringLiteral("serialPortName");

constexpr int FirstLowerId = 1;
constexpr int FirstUpperId = 10;

/** Where a probe's reply has the byte that is shown as the model: the high byte of the model number. */
constexpr int ModelIndex = 10;

enum Column {
    BaudRateColumn,
    IdColumn,
    ModelColumn,
};
/** Where a servo of the tree has the port on which it was found. */
constexpr int PortRole = Qt::UserRole;

SearchDialog *theDialog = nullptr;

QTreeWidgetItem *appendBaudRate(QTreeWidget *tree, const QString &baudRate)
{
    auto *item = new QTreeWidgetItem(tree);
    item->setText(BaudRateColumn, baudRate);
    item->setFlags(Qt::ItemIsEnabled); // a baud rate alone is nothing to connect to
    return item;
}

void appendServo(QTreeWidgetItem *parent, const QString &id, const QString &model, const QString &port)
{
    auto *item = new QTreeWidgetItem(parent);
    item->setText(IdColumn, id);
    item->setData(IdColumn, PortRole, port);
    item->setText(ModelColumn, QStringLiteral("Zelvar M") + model);
}

} // namespace

SearchDialog::SearchDialog() : SearchDialog(std::make_shared<SerialHelper>()) {}

SearchDialog::SearchDialog(std::shared_ptr<SerialHelper> serialHelper)
    : m_ui(std::make_unique<Ui::SearchDialog>()), m_serialHelper(std::move(serialHelper)),
      m_settings(std::make_shared<Settings>(SettingsGroup)), m_baudRateButtons(std::make_shared<QButtonGroup>())
{
    m_ui->setupUi(this);
    theDialog = this;
    setModal(true);
    m_rememberedLower = m_ui->lowerSearchRangeSpinBox->value();
    m_rememberedUpper = m_ui->upperSearchRangeSpinBox->value();
    groupBaudRates();
    makeConnections();
    markCurrentEntry(*m_ui->serialPortInfoListBox);
    listPorts();
    tell({});
}

SearchDialog::~SearchDialog()
{
    m_thread.quit();
    m_thread.wait();
    if (theDialog == this)
        theDialog = nullptr;
}

SearchDialog *SearchDialog::instance()
{
    return theDialog;
}

void SearchDialog::setVisible(bool visible)
{
    QDialog::setVisible(visible);
    if (visible)
        reset();
}

void SearchDialog::select()
{
    const auto selected = m_ui->servoTreeWidget->selectedItems();
    if (selected.isEmpty() || !selected.first()->parent())
        return;
    const QTreeWidgetItem *servo = selected.first();
    const int id = servo->text(IdColumn).toInt();
    m_selectedPort = servo->data(IdColumn, PortRole).toString();
    Q_EMIT updateBaudRate(servo->parent()->text(BaudRateColumn).toInt());
    Q_EMIT updateId(id);
    hide();
}

void SearchDialog::cancel()
{
    close();
}

void SearchDialog::scan()
{
    if (m_scanning)
        return;
    m_abortRequested = false;
    m_isAbandoned = false;
    m_ui->servoTreeWidget->clear();
    tell({});
    setScanning(true);
    repaint();

    const int lower = m_ui->lowerSearchRangeSpinBox->value();
    QVector<int> ids(m_ui->upperSearchRangeSpinBox->value() - lower + 1);
    std::iota(ids.begin(), ids.end(), lower);
    ScanReport report;
    report.lowerId = ids.first();
    report.upperId = ids.last();
    if (!scanBaudRates(ids, report))
        return;
    m_ui->servoTreeWidget->expandAll();
    setScanning(false);
    if (!m_isAbandoned)
        showResult(report);
}

void SearchDialog::abortScan()
{
    m_abortRequested = true;
}

void SearchDialog::show()
{
    listPorts();
    m_ui->serialPortInfoListBox->setCurrentText(m_settings->value(PortNameKey, QString()).toString());
    QDialog::show();
    m_ui->selectPushButton->setFocus();
    m_rememberedLower = m_ui->lowerSearchRangeSpinBox->value();
    m_rememberedUpper = m_ui->upperSearchRangeSpinBox->value();
}

void SearchDialog::on_lowerIdValueChanged(int value)
{
    if (value <= m_ui->upperSearchRangeSpinBox->value())
        m_rememberedLower = value;
    else
        m_ui->lowerSearchRangeSpinBox->setValue(m_rememberedLower);
}

void SearchDialog::on_upperIdValueChanged(int value)
{
    if (value >= m_ui->lowerSearchRangeSpinBox->value())
        m_rememberedUpper = value;
    else
        m_ui->upperSearchRangeSpinBox->setValue(m_rememberedUpper);
}

void SearchDialog::on_serialPortTextChanged(QString)
{
    updateScanButtons();
}

void SearchDialog::on_selectStateChanged(int state)
{
    if (!m_updatingSelectAll)
        return;
    // A click leads from none over some to all: skipping "some" makes it toggle, and any selection can be undone.
    auto target = static_cast<Qt::CheckState>(state);
    if (m_ui->selectCheckBox->checkState() == Qt::Checked)
        target = Qt::Unchecked;
    else if (m_ui->selectCheckBox->checkState() == Qt::PartiallyChecked)
        target = Qt::Checked;
    showSelectAll(target);
    const auto buttons = m_baudRateButtons->buttons();
    for (QAbstractButton *button : buttons)
        button->setChecked(target == Qt::Checked);
}

void SearchDialog::on_baudRateCheckBoxToggled(int, bool)
{
    const int checked = checkedBaudRates();
    if (checked == m_baudRateButtons->buttons().size())
        showSelectAll(Qt::Checked);
    else
        showSelectAll(checked > 0 ? Qt::PartiallyChecked : Qt::Unchecked);
    updateScanButtons();
}

void SearchDialog::on_itemClicked()
{
    m_ui->selectPushButton->setEnabled(!m_ui->servoTreeWidget->selectedItems().isEmpty());
}

QTreeWidgetItem *SearchDialog::addTreeRoot(QString baudRate)
{
    return appendBaudRate(m_ui->servoTreeWidget, baudRate);
}

void SearchDialog::addTreeChild(QTreeWidgetItem *parent, QString id, QString model)
{
    appendServo(parent, id, model, m_ui->serialPortInfoListBox->currentText());
}

void SearchDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    const bool isMinimised = event->spontaneous();
    if (m_scanning && !isMinimised)
        m_isAbandoned = true;
}

void SearchDialog::groupBaudRates()
{
    m_baudRateButtons->setExclusive(false);
    const std::initializer_list<QAbstractButton *> ascending{
        m_ui->baudRate9600CheckBox,    m_ui->baudRate19200CheckBox,  m_ui->baudRate38400CheckBox,
        m_ui->baudRate57600CheckBox,   m_ui->baudRate115200CheckBox, m_ui->baudRate200000CheckBox,
        m_ui->baudRate250000CheckBox,  m_ui->baudRate400000CheckBox, m_ui->baudRate500000CheckBox,
        m_ui->baudRate1000000CheckBox,
    };
    int id = 0;
    for (QAbstractButton *button : ascending)
        m_baudRateButtons->addButton(button, id++);
}

void SearchDialog::makeConnections()
{
    connect(m_ui->selectPushButton, SIGNAL(clicked()), this, SLOT(select()));
    connect(m_ui->cancelPushButton, SIGNAL(clicked()), this, SLOT(cancel()));
    connect(m_ui->scanPushButton, SIGNAL(clicked()), this, SLOT(scan()));
    connect(m_ui->abortScanPushButton, SIGNAL(clicked()), this, SLOT(abortScan()));
    connect(m_ui->lowerSearchRangeSpinBox, SIGNAL(valueChanged(int)), this, SLOT(on_lowerIdValueChanged(int)));
    connect(m_ui->upperSearchRangeSpinBox, SIGNAL(valueChanged(int)), this, SLOT(on_upperIdValueChanged(int)));
    connect(m_ui->serialPortInfoListBox, SIGNAL(currentTextChanged(QString)), this,
            SLOT(on_serialPortTextChanged(QString)));
    connect(m_ui->selectCheckBox, SIGNAL(stateChanged(int)), this, SLOT(on_selectStateChanged(int)));
    connect(m_baudRateButtons.get(), SIGNAL(buttonToggled(int, bool)), this,
            SLOT(on_baudRateCheckBoxToggled(int, bool)));
    connect(m_ui->servoTreeWidget, SIGNAL(itemSelectionChanged()), this, SLOT(on_itemClicked()));
    connect(m_ui->servoTreeWidget, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem *item) {
        if (item->isSelected()) // a baud rate never is
            select();
    });
}

/** Lists the ports present now, adapters that came since the last time too; the chosen one stays while it is there. */
void SearchDialog::listPorts()
{
    fillPortList(*m_ui->serialPortInfoListBox, m_serialHelper->getSerialPortList(), tr("N/A"));
}

void SearchDialog::reset()
{
    const auto buttons = m_baudRateButtons->buttons();
    for (QAbstractButton *button : buttons)
        button->setChecked(false);
    {
        // The guards would compare a new limit with the other one's old value.
        const QSignalBlocker lowerBlocker(m_ui->lowerSearchRangeSpinBox);
        const QSignalBlocker upperBlocker(m_ui->upperSearchRangeSpinBox);
        m_ui->lowerSearchRangeSpinBox->setValue(m_rememberedLower = FirstLowerId);
        m_ui->upperSearchRangeSpinBox->setValue(m_rememberedUpper = FirstUpperId);
    }
    if (m_ui->servoTreeWidget->topLevelItemCount() > 0)
        tell({}); // of servos that go from the list
    m_ui->servoTreeWidget->clear();
}

/** How many of the baud rates from @p firstButton on are checked. */
int SearchDialog::checkedBaudRates(int firstButton) const
{
    int count = 0;
    for (int button = firstButton; button < m_baudRateButtons->buttons().size(); ++button)
        count += m_baudRateButtons->button(button)->isChecked() ? 1 : 0;
    return count;
}

void SearchDialog::showSelectAll(Qt::CheckState state)
{
    m_updatingSelectAll = false;
    m_ui->selectCheckBox->setCheckState(state);
    m_updatingSelectAll = true;
}

void SearchDialog::updateScanButtons()
{
    const bool mayScan = !m_ui->serialPortInfoListBox->currentText().isEmpty() && checkedBaudRates() > 0;
    m_ui->scanPushButton->setEnabled(mayScan && !m_scanning);
    m_ui->abortScanPushButton->setEnabled(m_scanning);
}

void SearchDialog::setScanning(bool scanning)
{
    m_scanning = scanning;
    updateScanButtons();
}

/** @return false when the dialog was destroyed meanwhile: nothing of it may be touched then. */
bool SearchDialog::scanBaudRates(const QVector<int> &ids, ScanReport &report)
{
    const QPointer<SearchDialog> self(this);
    for (int button = 0; button < m_baudRateButtons->buttons().size(); ++button) {
        QCoreApplication::processEvents();
        if (!self)
            return false;
        if (m_isAbandoned)
            break;
        const QAbstractButton *checkBox = m_baudRateButtons->button(button);
        if (checkBox->isChecked()) {
            ++report.triedBaudRates;
            sweep(ids, checkBox->text().toInt(), report);
        }
        if (m_abortRequested) {
            report.skippedBaudRates = checkedBaudRates(button + 1);
            break;
        }
    }
    return true;
}

/** Probes all @p ids that were not found yet, and lists those that answer. */
void SearchDialog::sweep(const QVector<int> &ids, int baudRate, ScanReport &report)
{
    QTreeWidgetItem *root = nullptr;
    for (const int id : ids) {
        if (report.foundIds.contains(id))
            continue;
        const QByteArray reply = probe(id, baudRate, report);
        if (reply.isEmpty())
            continue;
        if (!root)
            root = appendBaudRate(m_ui->servoTreeWidget, QString::number(baudRate));
        appendServo(root, QString::number(id), QString::number(static_cast<qint8>(reply.at(ModelIndex))),
                    m_ui->serialPortInfoListBox->currentText());
        root->setExpanded(true);
        // Only what has changed: painting the whole dialog takes longer than the probe did.
        m_ui->servoTreeWidget->viewport()->repaint();
        report.foundIds.append(id);
    }
}

/** @return the reply of servo @p id, empty when it did not answer in time. */
QByteArray SearchDialog::probe(int id, int baudRate, ScanReport &report)
{
    const QString port = m_ui->serialPortInfoListBox->currentText();
    m_searchHelper = std::make_shared<SearchHelper>(port);
    m_searchHelper->moveToThread(&m_thread);
    connect(this, SIGNAL(doScanServo(int, int)), m_searchHelper.get(), SLOT(scanServo(int, int)));
    // Emitted in the worker thread while that still runs, which is where the port has to be closed.
    connect(&m_thread, &QThread::finished, m_searchHelper.get(), &SearchHelper::closePort, Qt::DirectConnection);
    m_thread.start(QThread::InheritPriority);
    QByteArray reply;
    {
        // Locked before the probe is asked for, so that its answer cannot come before the wait for it.
        const QMutexLocker lock(&SearchHelper::probeMutex());
        Q_EMIT doScanServo(id, baudRate);
        reply = m_searchHelper->waitForReply(QDeadlineTimer(SearchHelper::AnswerTime, Qt::PreciseTimer));
    }
    m_thread.quit();
    m_thread.wait();
    report.addProbe(port, baudRate, m_searchHelper->openError());
    m_searchHelper.reset();
    return reply;
}

/** Says what came of the scan, and puts the focus on that, or on the button that starts the next one. */
void SearchDialog::showResult(const ScanReport &report)
{
    tell(report.text());
    if (report.foundIds.isEmpty()) {
        m_ui->scanPushButton->setFocus();
        return;
    }
    QTreeWidget &tree = *m_ui->servoTreeWidget;
    tree.setCurrentItem(tree.topLevelItem(0)->child(0), BaudRateColumn, QItemSelectionModel::NoUpdate);
    tree.setFocus();
}

/** Says @p text below the list until something else is said; an empty one takes no room. */
void SearchDialog::tell(const QString &text)
{
    m_ui->resultLabel->setText(text);
    m_ui->resultLabel->setAccessibleName(tr("Result of the search: %1").arg(text));
    m_ui->resultLabel->setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    QAccessibleEvent event(m_ui->resultLabel, QAccessible::Alert); // read aloud although the focus is elsewhere
    QAccessible::updateAccessibility(&event);
}
