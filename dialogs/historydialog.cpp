#include "dialogs/historydialog.h"

#include "dialogs/historymodel.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace dialogs {

using profile::ServoKey;

namespace {

constexpr QSize SizeInCharacters(110, 24); ///< of average width, and lines
constexpr int NameWidth = 24;              ///< characters

QVariant keyData(const ServoKey &servo)
{
    return QSize(servo.model, servo.id); // which combo boxes know how to compare
}

ServoKey keyOf(const QVariant &data)
{
    return {quint16(data.toSize().width()), quint8(data.toSize().height())};
}

} // namespace

HistoryDialog::HistoryDialog(const FieldText &text, profile::History &history, Purpose purpose, QWidget *parent)
    : QDialog(parent), m_history(history), m_model(new HistoryModel(text, history, this)),
      m_servos(new QComboBox(this)), m_table(new QTableView(this)), m_message(new QLabel(this)),
      m_compare(makeButton("historyCompareButton", tr("&Compare with the servo"), &HistoryDialog::compareWanted)),
      m_restore(makeButton("historyRestoreButton", tr("&Restore\u2026"), &HistoryDialog::restoreWanted)),
      m_save(makeButton("historySaveButton", tr("&Save as\u2026"), &HistoryDialog::saveWanted)),
      m_fromFile(new QPushButton(tr("Restore a &file\u2026"), this))
{
    setObjectName(QStringLiteral("historyDialog"));
    m_fromFile->setObjectName(QStringLiteral("historyFileButton"));
    m_fromFile->setAutoDefault(false);
    connect(m_fromFile, &QPushButton::clicked, this, &HistoryDialog::restoreFileWanted);
    m_servos->setObjectName(QStringLiteral("historyServoComboBox"));
    m_message->setObjectName(QStringLiteral("historyMessageLabel"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    makeTable();
    layOut(purpose);
    connect(m_servos, qOverload<int>(&QComboBox::currentIndexChanged), this, &HistoryDialog::onServoChosen);
    connect(m_model, &HistoryModel::errorChanged, this, &HistoryDialog::showMessage);
    const QFontMetrics metrics = fontMetrics();
    resize(SizeInCharacters.width() * metrics.averageCharWidth(), SizeInCharacters.height() * metrics.lineSpacing());
    updateButtons();
}

HistoryDialog::~HistoryDialog()
{
    hide(); // while all of it is there: a name that is being typed is kept now
}

void HistoryDialog::makeTable()
{
    m_table->setObjectName(QStringLiteral("historyTable"));
    m_table->setAccessibleName(tr("Kept parameters"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false); // Tab leads on to the buttons
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->verticalHeader()->minimumSectionSize());
    QHeaderView &header = *m_table->horizontalHeader();
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setSectionResizeMode(HistoryModel::TimeColumn, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(HistoryModel::PinnedColumn, QHeaderView::ResizeToContents);
    header.setStretchLastSection(true);
    header.resizeSection(HistoryModel::NameColumn, NameWidth * fontMetrics().averageCharWidth());

    const auto addAction = [this](const QString &text, int key, void (HistoryDialog::*act)()) {
        auto *action = new QAction(text, m_table);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut); // not while a name is typed
        connect(action, &QAction::triggered, this, act);
        m_table->addAction(action);
    };
    addAction(tr("Re&name"), Qt::Key_F2, &HistoryDialog::renameSelected);
    addAction(tr("&Pin or unpin"), Qt::Key_Space, &HistoryDialog::togglePin);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &HistoryDialog::updateButtons);
}

QPushButton *HistoryDialog::makeButton(const char *name, const QString &text, Signal wanted)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false); // Enter ends the typing of a name and does nothing else
    connect(button, &QPushButton::clicked, this, [this, wanted] {
        const int row = selectedRow();
        if (row >= 0 && m_model->entry(row).profile)
            Q_EMIT(this->*wanted)(*m_model->entry(row).profile, m_model->title(row));
    });
    return button;
}

void HistoryDialog::layOut(Purpose purpose)
{
    const struct
    {
        QString title;
        QString introduction;
    } texts[] = {
        {tr("History"), {}},
        {tr("Restore"), tr("Choose what the connected servo is to get back: from what is kept of it, or a file.")},
        {tr("Replace a servo"), tr("Choose the servo that is missing and what it had. The connected servo gets it, id "
                                   "and baud rate last.")},
    };
    setWindowTitle(texts[int(purpose)].title);
    auto *introduction = new QLabel(texts[int(purpose)].introduction, this);
    introduction->setWordWrap(true);
    introduction->setVisible(purpose != Purpose::Look);
    auto *caption = new QLabel(tr("Ser&vo:"), this);
    caption->setBuddy(m_servos);
    auto *chooser = new QHBoxLayout;
    chooser->addWidget(caption);
    chooser->addWidget(m_servos, 1);
    auto *buttons = new QDialogButtonBox(this);
    for (QPushButton *button : {m_compare, m_restore, m_fromFile, m_save})
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(introduction);
    layout->addLayout(chooser);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_message);
    layout->addWidget(buttons);
    setTabOrder(m_servos, m_table);
}

void HistoryDialog::showEvent(QShowEvent *event)
{
    if (!event->spontaneous())
        reload();
    m_table->setFocus();
    QDialog::showEvent(event);
}

void HistoryDialog::showServo(const ServoKey &servo)
{
    fillServos(servo);
    onServoChosen();
}

void HistoryDialog::reload()
{
    const int row = selectedRow();
    const QString selected = row < 0 ? QString() : m_model->entry(row).file;
    const QVariant servo = m_servos->currentData();
    const auto known = m_history.servos();
    if (servo.isValid())
        showServo(keyOf(servo));
    else if (!known.empty())
        showServo(known.front().servo);
    const int again = m_model->rowOf(selected);
    if (again >= 0)
        m_table->selectRow(again);
}

/** Offers all servos of which something is kept, and @p shown, which is chosen. */
void HistoryDialog::fillServos(const ServoKey &shown)
{
    const QSignalBlocker blocker(m_servos);
    m_servos->clear();
    for (const profile::KnownServo &known : m_history.servos()) {
        m_servos->addItem(tr("servo %1 \u00B7 model %2 \u00B7 last kept %3")
                              .arg(known.servo.id)
                              .arg(known.servo.model)
                              .arg(HistoryModel::timeText(known.last)),
                          keyData(known.servo));
    }
    if (m_servos->findData(keyData(shown)) < 0)
        m_servos->addItem(tr("servo %1 \u00B7 model %2").arg(shown.id).arg(shown.model), keyData(shown));
    m_servos->setCurrentIndex(m_servos->findData(keyData(shown)));
}

void HistoryDialog::onServoChosen()
{
    m_model->load(keyOf(m_servos->currentData()));
    if (m_model->rowCount() > 0)
        m_table->selectRow(0);
    updateButtons();
    showMessage();
}

void HistoryDialog::setConnected(const model::Family *family)
{
    m_connected = family;
    updateButtons();
}

int HistoryDialog::selectedRow() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void HistoryDialog::togglePin()
{
    const QModelIndex pin = m_model->index(selectedRow(), HistoryModel::PinnedColumn);
    if (!pin.isValid())
        return;
    const bool isPinned = m_model->entry(pin.row()).isPinned;
    m_model->setData(pin, isPinned ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void HistoryDialog::renameSelected()
{
    const QModelIndex name = m_model->index(selectedRow(), HistoryModel::NameColumn);
    if (!name.isValid())
        return;
    m_table->setCurrentIndex(name);
    m_table->edit(name);
}

/** Why the selected entry and the servo cannot be brought together; empty when they can. */
QString HistoryDialog::whyNotWithServo() const
{
    if (!m_connected)
        return tr("No servo is connected.");
    const int row = selectedRow();
    const bool isOther =
        row >= 0 && m_model->entry(row).profile && &m_model->entry(row).profile->family() != m_connected;
    return isOther ? tr("The connected servo is of another family.") : QString();
}

void HistoryDialog::updateButtons()
{
    const int row = selectedRow();
    const bool isReadable = row >= 0 && m_model->entry(row).profile;
    const QString reason = isReadable ? whyNotWithServo() : tr("No entry that can be read is selected.");
    for (QPushButton *button : {m_compare, m_restore}) {
        button->setEnabled(reason.isEmpty());
        button->setToolTip(reason);
    }
    m_fromFile->setEnabled(m_connected != nullptr);
    m_fromFile->setToolTip(m_connected ? QString() : whyNotWithServo());
    m_save->setEnabled(isReadable);
    m_save->setToolTip(isReadable ? QString() : reason);
}

void HistoryDialog::showMessage()
{
    QString text = m_model->error();
    if (text.isEmpty() && m_model->rowCount() == 0)
        text = tr("Nothing is kept yet. What a servo has is kept at each Connect and after each Apply, when it has "
                  "changed.");
    m_message->setText(text);
    m_message->setVisible(!text.isEmpty());
}

} // namespace dialogs
