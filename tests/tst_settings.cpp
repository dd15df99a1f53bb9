// The store and the settings dialog: what is believed of a store that anybody may have edited, and what
// reaches the store and the live records when.

#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTabWidget>

namespace {

const QString Port = "port settings";
const QString Units = "units settings";

std::shared_ptr<SerialPortItem> plainPort(const QString &name)
{
    return std::make_shared<SerialPortItem>(name, QString(), QString(), "/dev/" + name, 0, 0);
}

/** A dialog over the ports "one" and "two", and what a test looks at. */
struct Fixture
{
    std::shared_ptr<FakeSerialPort> port = std::make_shared<FakeSerialPort>();
    std::unique_ptr<SettingsDialog> dialog;

    Fixture()
    {
        port->ports = {plainPort("one"), plainPort("two")};
        dialog = std::make_unique<SettingsDialog>(std::make_shared<SerialHelper>(port));
    }
    QComboBox *box(const char *name) const { return dialog->findChild<QComboBox *>(name); }
    QComboBox *ports() const { return box("serialPortInfoListBox"); }
    QComboBox *baudRates() const { return box("baudRateBox"); }
    QRadioButton *radio(const QString &name) const { return dialog->findChild<QRadioButton *>(name); }
    QString label(const char *name) const { return dialog->findChild<QLabel *>(name)->text(); }
    void click(const char *name) const { dialog->findChild<QPushButton *>(name)->click(); }
};

const std::pair<const char *, qint32 PhysicalQuantities::*> UnitFields[] = {
    {"angularVelocity",     &PhysicalQuantities::angularVelocity    },
    {"angle",               &PhysicalQuantities::angle              },
    {"angularAcceleration", &PhysicalQuantities::angularAcceleration},
    {"torque",              &PhysicalQuantities::torque             },
    {"voltage",             &PhysicalQuantities::voltage            },
    {"current",             &PhysicalQuantities::current            },
    {"temperature",         &PhysicalQuantities::temperature        },
    {"returnDelay",         &PhysicalQuantities::returnDelay        },
    {"servoData",           &PhysicalQuantities::servoData          },
};

/** The units record as one digit a quantity, in the record's order. */
QString digits(const PhysicalQuantities &units)
{
    QString text;
    for (const auto &[key, field] : UnitFields)
        text += QString::number(units.*field);
    return text;
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void accessIsConfinedToTheGroup()
    {
        Settings first(Port);
        Settings second(Units);
        first.setValue("angle", 1);
        QCOMPARE(second.value("angle", 5).toInt(), 5);
        first.value("angle", 0);
        first.setValue("torque", 2);
        QCOMPARE(QSettings("Ostravel", "Zelvar Servo Manager").allKeys(),
                 (QStringList{"port settings/angle", "port settings/torque"}));
    }

    void storesOfOneGroupSeeEachOther()
    {
        Settings reader(Port);
        QCOMPARE(reader.value("serialPortName", "none").toString(), QString("none"));
        Settings(Port).setValue("serialPortName", "two");
        QCOMPARE(reader.value("serialPortName", "none").toString(), QString("two"));
    }

    void numbersAreBelievedInTheirRangeOnly_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("number");
        QTest::newRow("nothing") << QVariant() << 500;
        QTest::newRow("lowest") << QVariant(10) << 10;
        QTest::newRow("highest") << QVariant("5000") << 5000;
        QTest::newRow("text") << QVariant("soon") << 500;
        QTest::newRow("empty text") << QVariant("") << 500;
        QTest::newRow("list") << QVariant(QStringList{"20", "30"}) << 500;
        QTest::newRow("negative") << QVariant(-5) << 500;
        QTest::newRow("below") << QVariant(9) << 500;
        QTest::newRow("above") << QVariant(5001) << 500;
        QTest::newRow("huge") << QVariant(1000000000) << 500;
        QTest::newRow("beyond 32 bits") << QVariant("4294967316") << 500;
    }

    void numbersAreBelievedInTheirRangeOnly()
    {
        QFETCH(QVariant, stored);
        Settings settings("main window settings");
        if (stored.isValid())
            settings.setValue("pollingInterval", stored);
        QTEST(settings.boundedInt("pollingInterval", 500, 10, 5000), "number");
    }

    void anEmptyStoreGivesTheDefaultsAndStaysEmpty()
    {
        Fixture fixture;
        const PortSettings port = fixture.dialog->portSettings();
        QCOMPARE(port.baudRate, 1000000);
        QCOMPARE(port.portName, QString("one"));
        QCOMPARE(QStringList({port.dataBitsText, port.parityText, port.stopBitsText}),
                 QStringList({"8", "None", "1"}));
        QCOMPARE(QList<int>({port.dataBits, port.parity, port.stopBits}), QList<int>({8, 0, 1}));
        QCOMPARE(digits(fixture.dialog->units()), QString("000000000"));
        QVERIFY(QSettings("Ostravel", "Zelvar Servo Manager").allKeys().isEmpty());
    }

    void theStoredBaudRateIsShownAndKept_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("baudRate");
        QTest::newRow("of the list") << QVariant(57600) << 57600;
        QTest::newRow("the user's own") << QVariant(123456) << 123456;
        QTest::newRow("highest") << QVariant(4000000) << 4000000;
        QTest::newRow("too high") << QVariant(4000001) << 1000000;
        QTest::newRow("zero") << QVariant(0) << 1000000;
        QTest::newRow("negative") << QVariant(-9600) << 1000000;
        QTest::newRow("text") << QVariant("fast") << 1000000;
    }

    void theStoredBaudRateIsShownAndKept()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, baudRate);
        Settings(Port).setValue("baudRate", stored);
        Fixture fixture;
        QCOMPARE(fixture.dialog->portSettings().baudRate, baudRate);
        QCOMPARE(fixture.baudRates()->currentText(), QString::number(baudRate));
        QVERIFY(!fixture.baudRates()->isEditable());
        fixture.click("okButton");
        QCOMPARE(Settings(Port).value("baudRate", 0).toInt(), baudRate);
    }

    void theStoredUnitsAreBelievedOnlyWhereThereIsAUnit_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("units");
        QTest::addColumn<bool>("code1");
        QTest::addColumn<bool>("singleButton");
        QTest::newRow("0") << QVariant(0) << "000000000" << false << true;
        QTest::newRow("1") << QVariant(1) << "110101101" << true << false;
        QTest::newRow("7") << QVariant(7) << "000000000" << false << false;
        QTest::newRow("negative") << QVariant(-1) << "000000000" << false << false;
        QTest::newRow("text") << QVariant("rpm") << "000000000" << false << true;
    }

    void theStoredUnitsAreBelievedOnlyWhereThereIsAUnit()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, code1);
        QFETCH(bool, singleButton);
        Settings store(Units);
        for (const auto &[key, field] : UnitFields)
            store.setValue(key, stored);
        Fixture fixture;
        QTEST(digits(fixture.dialog->units()), "units");
        for (const char *name : {"revsPerMinute", "degrees", "kgCentimetres", "milliAmps", "fahrenheit", "decimal"})
            QCOMPARE(fixture.radio(QString(name) + "RadioButton")->isChecked(), code1);
        for (const char *name : {"radsPerSecond", "radians", "newtonMeters", "amps", "centigrade", "hex"})
            QCOMPARE(fixture.radio(QString(name) + "RadioButton")->isChecked(), !code1);
        for (const char *name : {"radsPerSecondSquared", "voltage"})
            QCOMPARE(fixture.radio(QString(name) + "RadioButton")->isChecked(), singleButton);
    }

    void theStoredPortIsChosenWhenPresent_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("none") << "" << "one";
        QTest::newRow("present") << "two" << "two";
        QTest::newRow("absent") << "three" << "one";
    }

    void theStoredPortIsChosenWhenPresent()
    {
        QFETCH(QString, stored);
        Settings(Port).setValue("serialPortName", stored);
        Fixture fixture;
        QTEST(fixture.dialog->portSettings().portName, "chosen");
        QTEST(fixture.ports()->currentText(), "chosen");
    }

    void portDetailsAreShown()
    {
        Fixture fixture;
        fixture.port->ports.push_back(
            std::make_shared<SerialPortItem>("usb", "Adapter", "Maker", "/dev/usb", 0x0403, 0xFD01));
        fixture.dialog->show();
        const auto details = [&fixture] {
            QStringList texts;
            for (const char *name : {"descriptionLabel", "manufacturerLabel", "locationLabel", "vidLabel", "pidLabel"})
                texts.append(fixture.label(name));
            return texts;
        };
        QCOMPARE(details(), (QStringList{"Description: N/A", "Manufacturer: N/A", "Location: /dev/one",
                                         "Vendor Identifier: N/A", "Product Identifier: N/A"}));
        fixture.ports()->setCurrentText("usb");
        const QStringList usb{"Description: Adapter", "Manufacturer: Maker", "Location: /dev/usb",
                              "Vendor Identifier: 403", "Product Identifier: fd01"};
        QCOMPARE(details(), usb);
        fixture.dialog->showPortInfo(-1);
        QCOMPARE(details(), usb);
    }

    void showingRefreshesThePorts()
    {
        Settings(Port).setValue("serialPortName", "two");
        Fixture fixture;
        fixture.ports()->setCurrentText("one");
        fixture.port->ports.insert(fixture.port->ports.begin(), plainPort("new"));
        fixture.dialog->show();
        QCOMPARE(fixture.ports()->count(), 3);
        QCOMPARE(fixture.ports()->currentText(), QString("one"));

        fixture.port->ports.clear();
        fixture.dialog->show();
        QCOMPARE(fixture.ports()->count(), 0);
        QVERIFY(!fixture.label("locationLabel").contains("one"));
        QCOMPARE(fixture.dialog->portSettings().portName, QString("two")); // nothing was applied

        fixture.port->ports = {plainPort("one"), plainPort("two")};
        fixture.dialog->show();
        QCOMPARE(fixture.ports()->currentText(), QString("two"));
        QCOMPARE(fixture.label("locationLabel"), QString("Location: /dev/two"));
    }

    void applyTakesOverAndPersists()
    {
        {
            Fixture fixture;
            fixture.dialog->show();
            fixture.ports()->setCurrentText("two");
            fixture.baudRates()->setCurrentText("57600");
            fixture.radio("degreesRadioButton")->click();
            fixture.radio("decimalRadioButton")->click();
            QCOMPARE(fixture.dialog->portSettings().portName, QString("one"));
            QCOMPARE(digits(fixture.dialog->units()), QString("000000000"));
            fixture.click("okButton");
            QVERIFY(!fixture.dialog->isVisible());
            QCOMPARE(fixture.dialog->portSettings().portName, QString("two"));
            QCOMPARE(digits(fixture.dialog->units()), QString("010000001"));
        }
        QStringList expected{"port settings/baudRate", "port settings/serialPortName"};
        for (const auto &[key, field] : UnitFields)
            expected.append(QString("units settings/") + key);
        expected.removeOne("units settings/returnDelay");
        QStringList keys = QSettings("Ostravel", "Zelvar Servo Manager").allKeys();
        keys.sort();
        expected.sort();
        QCOMPARE(keys, expected);

        Fixture again;
        QCOMPARE(again.dialog->portSettings().portName, QString("two"));
        QCOMPARE(again.dialog->portSettings().baudRate, 57600);
        QCOMPARE(digits(again.dialog->units()), QString("010000001"));
        QVERIFY(again.radio("degreesRadioButton")->isChecked());
    }

    void cancelLeavesTheRecordsAndShowResetsTheUnits()
    {
        Fixture fixture;
        fixture.dialog->show();
        fixture.baudRates()->setCurrentText("9600");
        fixture.radio("revsPerMinuteRadioButton")->click();
        fixture.dialog->findChild<QTabWidget *>("settingsTabWidget")->setCurrentIndex(1);
        fixture.click("cancelButton");
        QVERIFY(!fixture.dialog->isVisible());
        QCOMPARE(fixture.dialog->portSettings().baudRate, 1000000);
        QCOMPARE(digits(fixture.dialog->units()), QString("000000000"));
        QVERIFY(QSettings("Ostravel", "Zelvar Servo Manager").allKeys().isEmpty());

        fixture.dialog->show();
        QVERIFY(fixture.radio("radsPerSecondRadioButton")->isChecked());
        QCOMPARE(fixture.baudRates()->currentText(), QString("9600"));
        QCOMPARE(fixture.dialog->findChild<QTabWidget *>("settingsTabWidget")->currentIndex(), 0);
    }

    void aBaudRateFromTheSearchIsPersistedAtOnce()
    {
        Fixture fixture;
        for (int baudRate : {57600, 31250}) {
            fixture.dialog->on_updateBaudRate(baudRate);
            QCOMPARE(Settings(Port).value("baudRate", 0).toInt(), baudRate);
            QCOMPARE(fixture.dialog->portSettings().baudRate, baudRate);
            QCOMPARE(fixture.baudRates()->currentText(), QString::number(baudRate));
        }
        QCOMPARE(QSettings("Ostravel", "Zelvar Servo Manager").allKeys(), QStringList{"port settings/baudRate"});
    }

    void anEntryWithoutDataLetsABaudRateBeTyped()
    {
        Fixture fixture;
        fixture.baudRates()->addItem("Custom");
        fixture.baudRates()->setCurrentText("Custom");
        QVERIFY(fixture.baudRates()->isEditable());
        QCOMPARE(fixture.baudRates()->currentText(), QString());
        QTest::keyClicks(fixture.baudRates()->lineEdit(), "25x0000");
        fixture.click("okButton");
        QCOMPARE(fixture.dialog->portSettings().baudRate, 250000);
        QCOMPARE(fixture.baudRates()->count(), 12); // typing adds no entry
        fixture.baudRates()->setCurrentIndex(0);
        QVERIFY(!fixture.baudRates()->isEditable());
    }

    void theInstanceIsTheLivingDialog()
    {
        QVERIFY(!SettingsDialog::instance());
        {
            Fixture fixture;
            QCOMPARE(SettingsDialog::instance(), fixture.dialog.get());
            QVERIFY(fixture.dialog->isModal());
        }
        QVERIFY(!SettingsDialog::instance());
    }
};

ZELVAR_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
