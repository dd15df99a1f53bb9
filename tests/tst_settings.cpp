// The store and the settings dialog: what is believed of a store that anybody may have edited, and what
// reaches the store and the live records when.

#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

namespace {
/** A dialog over the ports "one" and "two", and what a test looks at. */
struct Fixture
{
    std::shared_ptr<FakeSerialPort> port = std::make_shared<FakeSerialPort>();
    std::unique_ptr<SettingsDialog> dialog;

    Fixture()
    {
        port->listPorts({"one", "two"});
        dialog = std::make_unique<SettingsDialog>(std::make_shared<SerialHelper>(port));
    }
    QComboBox *box(const char *name) const { return dialog->findChild<QComboBox *>(name); }
    QRadioButton *radio(const QString &name) const { return dialog->findChild<QRadioButton *>(name); }
    void click(const char *name) const { dialog->findChild<QPushButton *>(name)->click(); }
};

const QStringList UnitKeys{"angularVelocity", "angle",       "angularAcceleration", "torque",   "voltage",
                           "current",         "temperature", "returnDelay",         "servoData"};

/** The units record as one digit a quantity, in the order of the keys. */
QString digits(const PhysicalQuantities &units)
{
    QString text;
    for (const qint32 unit : {units.angularVelocity, units.angle, units.angularAcceleration, units.torque,
                              units.voltage, units.current, units.temperature, units.returnDelay, units.servoData})
        text += QString::number(unit);
    return text;
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void theStoreIsReadAsQtConvertsIt()
    {
        // clang-format off
        const std::tuple<const char *, QVariant, QVariant, int, const char *> rows[] = {
            {"nothing",        {},      {},    1000000, "000000000"},
            {"of the list",    57600,   0,     57600,   "000000000"},
            {"the user's own", 123456,  1,     123456,  "111111111"},
            {"too high",       4000001, 7,     9600,    "007070070"},
            {"negative",       -9600,   -1,    9600,    "00-10-100-10"},
            {"text",           "abc",   "rpm", 9600,    "000000000"},
        };
        // clang-format on
        for (const auto &[name, baudRate, unit, baudRateShown, units] : rows) {
            const InRow row(name);
            QSettings store("Ostravel", "Zelvar Servo Manager");
            store.clear();
            if (baudRate.isValid()) {
                store.setValue("port settings/baudRate", baudRate);
                for (const QString &key : UnitKeys)
                    store.setValue("units settings/" + key, unit);
            }
            const int keys = store.allKeys().size();
            Fixture fixture;
            QCOMPARE(store.allKeys().size(), keys); // showing the defaults stores nothing
            QCOMPARE(fixture.dialog->portSettings().portName, QString("one"));
            QCOMPARE(fixture.dialog->portSettings().baudRate, baudRateShown);
            QCOMPARE(fixture.box("baudRateBox")->currentText(), QString::number(baudRateShown));
            QCOMPARE(digits(fixture.dialog->units()), QString(units));
            QCOMPARE(fixture.radio("degreesRadioButton")->isChecked(), units[1] == '1');
            QCOMPARE(fixture.radio("ampsRadioButton")->isChecked(), unit.toInt() != 1);
            QCOMPARE(fixture.radio("voltageRadioButton")->isChecked(), unit.toInt() == 0);
            fixture.click("okButton"); // stores what was read, but for what has no button
            QCOMPARE(digits(Fixture().dialog->units()), QString(units));
            QCOMPARE(store.value("units settings/returnDelay"), unit);
        }
    }

    void theChosenPortIsShownWhenItIsBack()
    {
        Fixture fixture;
        const auto shown = [&fixture](const QStringList &ports) {
            fixture.port->ports.clear();
            fixture.port->listPorts(ports);
            fixture.dialog->show();
            fixture.click("cancelButton");
            return fixture.box("serialPortInfoListBox")->currentText();
        };
        fixture.box("serialPortInfoListBox")->setCurrentText("two");
        fixture.click("okButton");
        QCOMPARE(shown({"one"}), QString("one"));
        QCOMPARE(shown({}), QString());
        QCOMPARE(shown({"one", "two", "three"}), QString("two"));
        // Away at the start, the first port of the list stands in.
        Fixture start;
        start.port->ports.clear();
        start.port->listPorts({"one"});
        SettingsDialog dialog(std::make_shared<SerialHelper>(start.port));
        QCOMPARE(dialog.portSettings().portName, QString("one"));
        start.port->listPorts({"two"});
        dialog.show();
        QCOMPARE(dialog.findChild<QComboBox *>("serialPortInfoListBox")->currentText(), QString("two"));
        QCOMPARE(dialog.portSettings().portName, QString("two"));
    }

    void onlyApplyTakesOverAndPersists()
    {
        for (const char *button : {"cancelButton", "okButton"}) {
            const bool isApplied = button == QByteArray("okButton");
            Fixture fixture;
            fixture.dialog->show();
            fixture.box("serialPortInfoListBox")->setCurrentText("two");
            fixture.box("baudRateBox")->setCurrentText("57600");
            fixture.radio("degreesRadioButton")->click();
            QCOMPARE(digits(fixture.dialog->units()), QString("000000000"));
            fixture.click(button);
            QVERIFY(!fixture.dialog->isVisible());
            QCOMPARE(fixture.dialog->portSettings().portName, QString(isApplied ? "two" : "one"));
            QCOMPARE(digits(fixture.dialog->units()), QString(isApplied ? "010000000" : "000000000"));
            fixture.dialog->show();
            QCOMPARE(fixture.radio("degreesRadioButton")->isChecked(), isApplied);
        }
        QStringList expected{"port settings/baudRate", "port settings/serialPortName"};
        for (const QString &key : UnitKeys)
            expected.append("units settings/" + key);
        expected.removeOne("units settings/returnDelay");
        expected.sort();
        QStringList keys = QSettings("Ostravel", "Zelvar Servo Manager").allKeys();
        keys.sort();
        QCOMPARE(keys, expected);
        Fixture again;
        QCOMPARE(again.dialog->portSettings().portName, QString("two"));
        QCOMPARE(again.dialog->portSettings().baudRate, 57600);
        QCOMPARE(digits(again.dialog->units()), QString("010000000"));
    }
};

ZELVAR_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
