#include "views/registerview.h"
#include "ui_registerview.h"

#include "device/devicehelper.h"
#include "link/processwide.h"
#include "settings/settingsdialog.h"
#include "widgets/modelnotice.h"

namespace {

enum Column {
    AddressColumn,
    ValueColumn,
    DescriptionColumn,
};

constexpr int AddressColumnWidth = 80;
constexpr int ValueColumnWidth = 40;
constexpr int Decimal = 1; // the "servo data" choice
constexpr int HexDigits = 2;

const QString TableStyle = QStringLiteral("         QTableWidget         {         "
                                          "alternate-background-color: rgba(227,235,240,150);         "
                                          "background-color: white;         font-size: 8pt;         }        "
                                          "QHeaderView         {          font-size: 8pt;         }        ");

RegisterView *theView = nullptr;

QColor readOnlyTint()
{
    return {227, 235, 240, 150};
}

QString formatted(unsigned number, bool isDecimal)
{
    return isDecimal ? QString::number(number) : QStringLiteral("0x%1").arg(number, HexDigits, 16, QLatin1Char('0'));
}

bool showsDecimal()
{
    const SettingsDialog *settings = SettingsDialog::instance();
    return settings && settings->units().servoData == Decimal;
}

} // namespace

RegisterView::RegisterView(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::RegisterView>()), m_tables()
{
    m_ui->setupUi(this);
    theView = this;
    m_tables = {m_ui->eepromRegisterBank1Widget, m_ui->eepromRegisterBank2Widget, m_ui->ramRegisterBank1TableWidget,
                m_ui->ramRegisterBank2TableWidget};
    styleTables();
    nameTables();
    auto *notice = new ModelNotice(
        tr("The program has no register table for this servo. The tables stay empty while it is connected."), this);
    m_ui->gridLayout_2->addWidget(notice, m_ui->gridLayout_2->rowCount(), 0);
}

RegisterView::~RegisterView()
{
    if (theView == this)
        theView = nullptr;
}

RegisterView *RegisterView::instance()
{
    return theView;
}

void RegisterView::connectDevice()
{
    if (const auto &helper = ProcessWide<DeviceHelper>::instance())
        connect(helper.get(), SIGNAL(loadDeviceMetadata()), this, SLOT(on_deviceLoaded()));
}

void RegisterView::disconnectDevice()
{
    if (const auto &helper = ProcessWide<DeviceHelper>::instance())
        helper->disconnect(SIGNAL(loadDeviceMetadata()));
    clearRows();
}

void RegisterView::updateRegister(quint16 address, quint8 size, quint32 value)
{
    const int bytes = size == 4 ? 4 : (size > 1 ? 2 : 1);
    for (int i = 0; i < bytes; ++i)
        setRegisterByte(static_cast<quint16>(address + i), static_cast<quint8>(value >> (8 * i)));
}

void RegisterView::setRegisterByte(quint16 address, quint8 value)
{
    const auto row = m_rows.find(address);
    if (row == m_rows.end())
        return;
    row->second.value = value;
    row->second.isPending = true;
    if (isVisible())
        write(address, row->second);
}

void RegisterView::on_deviceLoaded()
{
    clearRows();
    const auto device = DeviceHelper::currentDevice();
    if (!device)
        return;
    for (int bank = 0; bank < BankCount; ++bank)
        m_tables[bank]->setRowCount(static_cast<int>(device->registerCount(static_cast<quint32>(bank))));
    for (unsigned address = 0; address < device->controlTableSize(); ++address) {
        if (const auto description = device->registerDescription(static_cast<quint16>(address)))
            m_rows[static_cast<quint16>(address)].description = *description;
    }
}

void RegisterView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    for (auto &[address, row] : m_rows) {
        if (row.isPending)
            write(address, row);
    }
}

void RegisterView::styleTables()
{
    for (QTableWidget *table : m_tables) {
        table->setStyleSheet(TableStyle); // first: what follows asks for sizes, which a table is styled for
        table->verticalHeader()->hide();
        table->horizontalHeader()->setStretchLastSection(true);
        table->setColumnWidth(AddressColumn, AddressColumnWidth);
        table->setColumnWidth(ValueColumn, ValueColumnWidth);
        table->setSelectionMode(QAbstractItemView::NoSelection);
        // Long descriptions differ at their ends: "(lower)", "(upper)".
        table->setWordWrap(false);
        table->setTextElideMode(Qt::ElideMiddle);
    }
}

// By the titles above them, which no layout brings together with the tables.
void RegisterView::nameTables()
{
    const std::array<const QLabel *, BankCount> titles{
        m_ui->nonVolatileRegisterBank1TitleLabel, m_ui->nonVolatileRegisterBank2TitleLabel,
        m_ui->volatileRegisterBank1TitleLabel, m_ui->volatileRegisterBank2TitleLabel};
    for (std::size_t bank = 0; bank < BankCount; ++bank)
        m_tables[bank]->setAccessibleName(titles[bank]->text());
}

void RegisterView::clearRows()
{
    m_rows.clear();
    for (QTableWidget *table : m_tables)
        table->setRowCount(0);
}

void RegisterView::write(quint16 address, Row &row)
{
    row.isPending = false;
    const bool isDecimal = showsDecimal();
    // Most polls bring what is shown already, and new cells would cost a repaint.
    const bool isFormatShown = row.isShown && row.isShownDecimal == isDecimal;
    if (isFormatShown && row.shownValue == row.value)
        return;
    setCell(row.description, ValueColumn, formatted(row.value, isDecimal));
    if (!isFormatShown)
        setCell(row.description, AddressColumn, formatted(address, isDecimal));
    if (!row.isShown)
        setCell(row.description, DescriptionColumn, row.description.description);
    row.isShown = true;
    row.shownValue = row.value;
    row.isShownDecimal = isDecimal;
}

void RegisterView::setCell(const RegisterDescription &description, int column, const QString &text)
{
    auto *item = new QTableWidgetItem(text);
    item->setToolTip(description.description);
    if (description.writable == 0)
        item->setBackground(readOnlyTint());
    m_tables[description.bank]->setItem(description.row, column, item);
}
