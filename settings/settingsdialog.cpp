#include "settings/settingsdialog.h"
#include "ui_settingsdialog.h"

#include "link/serialhelper.h"
#include "model/baudrates.h"
#include "settings/portlist.h"
#include "settings/settings.h"
#include "settings/storedport.h"

#include <QIntValidator>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringList>

#include <utility>

namespace {

const QString UnitsGroup = QStringLiteral("units settings");

constexpr int ConnectionTab = 0;
constexpr int TitleIndent = 10; // pixels, by the forms' style sheets

struct Choice
{
    const char *text;
    int data;
};
constexpr Choice DataBits[] = {{"5", 5}, {"6", 6}, {"7", 7}, {"8", 8}};
constexpr Choice StopBits[] = {
    {"1", QSerialPort::OneStop}, {"1.5", QSerialPort::OneAndHalfStop}, {"2", QSerialPort::TwoStop}};
// clang-format off
constexpr Choice Parities[] = {
    {QT_TRANSLATE_NOOP("SettingsDialog", "None"),  QSerialPort::NoParity},
    {QT_TRANSLATE_NOOP("SettingsDialog", "Even"),  QSerialPort::EvenParity},
    {QT_TRANSLATE_NOOP("SettingsDialog", "Odd"),   QSerialPort::OddParity},
    {QT_TRANSLATE_NOOP("SettingsDialog", "Mark"),  QSerialPort::MarkParity},
    {QT_TRANSLATE_NOOP("SettingsDialog", "Space"), QSerialPort::SpaceParity},
};
// clang-format on
constexpr int EightDataBits = 3; // index of the entry

SettingsDialog *theDialog = nullptr;

} // namespace

/** How one quantity's choice is kept and shown. */
struct SettingsDialog::UnitRow
{
    const char *key;
    qint32 PhysicalQuantities::*field;
    QRadioButton *Ui_SettingsDialog::*button0; ///< null: the dialog neither shows nor stores the quantity
    QRadioButton *Ui_SettingsDialog::*button1; ///< null: the quantity has one unit only
};

using Units = PhysicalQuantities;
using Form = Ui_SettingsDialog;
// clang-format off
const SettingsDialog::UnitRow SettingsDialog::UnitRows[] = {
    {"angularVelocity",     &Units::angularVelocity,     &Form::radsPerSecondRadioButton,        &Form::revsPerMinuteRadioButton  },
    {"angle",               &Units::angle,               &Form::radiansRadioButton,              &Form::degreesRadioButton        },
    {"angularAcceleration", &Units::angularAcceleration, &Form::radsPerSecondSquaredRadioButton, nullptr                          },
    {"torque",              &Units::torque,              &Form::newtonMetersRadioButton,         &Form::kgCentimetresRadioButton  },
    {"voltage",             &Units::voltage,             &Form::voltageRadioButton,              nullptr                          },
    {"current",             &Units::current,             &Form::ampsRadioButton,                 &Form::milliAmpsRadioButton      },
    {"temperature",         &Units::temperature,         &Form::centigradeRadioButton,           &Form::fahrenheitRadioButton     },
    {"returnDelay",         &Units::returnDelay,         nullptr,                                nullptr                          },
    {"servoData",           &Units::servoData,           &Form::hexRadioButton,                  &Form::decimalRadioButton        },
};
// clang-format on

SettingsDialog::SettingsDialog() : SettingsDialog(std::make_shared<SerialHelper>()) {}

SettingsDialog::SettingsDialog(std::shared_ptr<SerialHelper> serialHelper)
    : m_ui(std::make_unique<Ui::SettingsDialog>()), m_portStore(std::make_shared<Settings>(storedport::Group)),
      m_unitsStore(std::make_shared<Settings>(UnitsGroup)), m_serialHelper(std::move(serialHelper)),
      m_baudRateValidator(new QIntValidator(0, storedport::HighestBaudRate, this))
{
    m_ui->setupUi(this);
    theDialog = this;
    setModal(true);
    makeRoomForTitles();
    m_ui->baudRateBox->setInsertPolicy(QComboBox::NoInsert);
    makeConnections();
    fillParameters();
    const auto lists = findChildren<QComboBox *>();
    for (QComboBox *list : lists)
        markCurrentEntry(*list);
    fillPorts();
    loadPort();
    loadUnits();
    readPort();
    readUnits();
}

SettingsDialog::~SettingsDialog()
{
    if (theDialog == this)
        theDialog = nullptr;
}

SettingsDialog *SettingsDialog::instance()
{
    return theDialog;
}

PortSettings SettingsDialog::portSettings() const
{
    return m_portSettings;
}

PhysicalQuantities SettingsDialog::units() const
{
    return m_units;
}

void SettingsDialog::usePort(const QString &portName)
{
    m_portSettings.portName = portName;
    m_chosenPort = portName;
    m_portStore->setValue(storedport::NameKey, portName);
    fillPorts(); // its adapter may have come since the list was filled
    m_ui->serialPortInfoListBox->setCurrentText(portName);
}

void SettingsDialog::showPortInfo(int idx)
{
    if (idx >= 0)
        showPortDetails(m_ui->serialPortInfoListBox->itemData(idx).toStringList());
}

/** Shows @p details, what an entry of the port list carries; an empty list clears the labels. */
void SettingsDialog::showPortDetails(const QStringList &details)
{
    const auto detail = [&details](PortDetail which) { return details.value(static_cast<int>(which)); };
    m_ui->descriptionLabel->setText(tr("Description: %1").arg(detail(PortDetail::Description)));
    m_ui->manufacturerLabel->setText(tr("Manufacturer: %1").arg(detail(PortDetail::Manufacturer)));
    m_ui->locationLabel->setText(tr("Location: %1").arg(detail(PortDetail::Location)));
    m_ui->vidLabel->setText(tr("Vendor Identifier: %1").arg(detail(PortDetail::VendorIdentifier)));
    m_ui->pidLabel->setText(tr("Product Identifier: %1").arg(detail(PortDetail::ProductIdentifier)));
}

void SettingsDialog::apply()
{
    readPort();
    m_chosenPort = m_portSettings.portName;
    m_portStore->setValue(storedport::BaudRateKey, m_portSettings.baudRate);
    m_portStore->setValue(storedport::NameKey, m_portSettings.portName);
    readUnits();
    for (const UnitRow &row : UnitRows) {
        if (row.button0)
            m_unitsStore->setValue(QLatin1String(row.key), m_units.*row.field);
    }
    hide();
}

void SettingsDialog::cancel()
{
    close();
}

void SettingsDialog::checkCustomBaudRatePolicy(int idx)
{
    const bool isCustom = !m_ui->baudRateBox->itemData(idx).isValid();
    m_ui->baudRateBox->setEditable(isCustom);
    if (!isCustom)
        return;
    m_ui->baudRateBox->clearEditText();
    m_ui->baudRateBox->lineEdit()->setValidator(m_baudRateValidator);
}

void SettingsDialog::show()
{
    fillPorts();
    showUnits();
    QDialog::show();
    m_ui->settingsTabWidget->setCurrentIndex(ConnectionTab);
    m_ui->okButton->setFocus();
}

void SettingsDialog::on_updateBaudRate(int baudRate)
{
    m_portSettings.baudRate = baudRate;
    m_portStore->setValue(storedport::BaudRateKey, baudRate);
    showBaudRate(baudRate);
}

// A group box takes its title into account, but not that the style sheet moves it to the right.
void SettingsDialog::makeRoomForTitles()
{
    const auto groups = findChildren<QGroupBox *>();
    for (QGroupBox *group : groups)
        group->setMinimumWidth(group->minimumSizeHint().width() + 2 * TitleIndent);
}

void SettingsDialog::makeConnections()
{
    connect(m_ui->okButton, SIGNAL(clicked()), this, SLOT(apply()));
    connect(m_ui->cancelButton, SIGNAL(clicked()), this, SLOT(cancel()));
    connect(m_ui->serialPortInfoListBox, SIGNAL(currentIndexChanged(int)), this, SLOT(showPortInfo(int)));
    connect(m_ui->serialPortInfoListBox, &QComboBox::currentTextChanged, this,
            [this](const QString &name) { m_chosenPort = name; });
    connect(m_ui->baudRateBox, SIGNAL(currentIndexChanged(int)), this, SLOT(checkCustomBaudRatePolicy(int)));
}

void SettingsDialog::fillParameters()
{
    for (const model::BaudRate &row : model::BaudRates)
        m_ui->baudRateBox->addItem(QString::number(row.bitsPerSecond), row.bitsPerSecond);
    for (const Choice &choice : DataBits)
        m_ui->dataBitsBox->addItem(QLatin1String(choice.text), choice.data);
    m_ui->dataBitsBox->setCurrentIndex(EightDataBits);
    for (const Choice &choice : Parities)
        m_ui->parityBox->addItem(tr(choice.text), choice.data);
    for (const Choice &choice : StopBits)
        m_ui->stopBitsBox->addItem(QLatin1String(choice.text), choice.data);
}

/** Lists the ports present now. The chosen one is shown again as soon as it is back. */
void SettingsDialog::fillPorts()
{
    QComboBox *list = m_ui->serialPortInfoListBox;
    const bool wasEmpty = list->count() == 0;
    {
        const QSignalBlocker blocker(list); // a refill chooses nothing
        fillPortList(*list, m_serialHelper->getSerialPortList(), tr("N/A"));
        list->setCurrentText(m_chosenPort);
    }
    // While the stored port was away at the start, the first one of the list stood in for it.
    if (list->currentText() == m_portStore->value(storedport::NameKey, QString()).toString())
        m_portSettings.portName = list->currentText();
    if (list->count() > 0)
        showPortInfo(list->currentIndex());
    else if (!wasEmpty)
        showPortDetails({});
}

void SettingsDialog::loadPort()
{
    // What is no baud rate leaves the list at its first entry.
    const int baudRate = m_portStore->boundedInt(storedport::BaudRateKey, storedport::DefaultBaudRate, 0,
                                                 storedport::HighestBaudRate + 1);
    if (baudRate > 0 && baudRate <= storedport::HighestBaudRate)
        showBaudRate(baudRate);
    m_portSettings.portName = m_portStore->value(storedport::NameKey, QString()).toString();
    m_ui->serialPortInfoListBox->setCurrentText(m_portSettings.portName);
    m_chosenPort = m_portSettings.portName;
}

void SettingsDialog::loadUnits()
{
    for (const UnitRow &row : UnitRows)
        m_units.*row.field = m_unitsStore->value(QLatin1String(row.key), 0).toInt();
    showUnits();
}

/** Makes @p baudRate the list's current entry; one of the user's own becomes an entry, so that it stays visible. */
void SettingsDialog::showBaudRate(int baudRate)
{
    const QString text = QString::number(baudRate);
    if (m_ui->baudRateBox->findText(text) < 0)
        m_ui->baudRateBox->addItem(text, baudRate);
    m_ui->baudRateBox->setCurrentText(text);
}

void SettingsDialog::showUnits()
{
    for (const UnitRow &row : UnitRows) {
        if (!row.button0)
            continue;
        const qint32 unit = m_units.*row.field;
        if (!row.button1)
            ((*m_ui).*row.button0)->setChecked(unit == 0);
        else
            ((*m_ui).*(unit == 1 ? row.button1 : row.button0))->setChecked(true);
    }
}

void SettingsDialog::readPort()
{
    m_portSettings.portName = m_ui->serialPortInfoListBox->currentText();
    m_portSettings.baudRate = m_ui->baudRateBox->currentText().toInt();
    m_portSettings.dataBits = m_ui->dataBitsBox->currentData().toInt();
    m_portSettings.dataBitsText = m_ui->dataBitsBox->currentText();
    m_portSettings.parity = m_ui->parityBox->currentData().toInt();
    m_portSettings.parityText = m_ui->parityBox->currentText();
    m_portSettings.stopBits = m_ui->stopBitsBox->currentData().toInt();
    m_portSettings.stopBitsText = m_ui->stopBitsBox->currentText();
}

void SettingsDialog::readUnits()
{
    for (const UnitRow &row : UnitRows) {
        if (row.button1)
            m_units.*row.field = ((*m_ui).*row.button1)->isChecked() ? 1 : 0;
        else if (row.button0 && ((*m_ui).*row.button0)->isChecked())
            m_units.*row.field = 0;
    }
}
