// The store and the settings dialog: what is believed of a store that anybody may have edited, and what
// reaches the store and the live records when.

#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>

namespace {
const QString Port = "port settings";

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

    void theStoreIsBelievedWhereItMakesSense_data()
    {
        QTest::addColumn<QVariant>("baudRate");
        QTest::addColumn<QVariant>("unit");
        QTest::addColumn<int>("baudRateShown");
        QTest::addColumn<QString>("units");
        QTest::newRow("nothing") << QVariant() << QVariant() << 1000000 << "000000000";
        QTest::newRow("of the list") << QVariant(57600) << QVariant(0) << 57600 << "000000000";
        QTest::newRow("the user's own") << QVariant(123456) << QVariant(1) << 123456 << "110101101";
        QTest::newRow("too high") << QVariant(4000001) << QVariant(7) << 1000000 << "000000000";
        QTest::newRow("negative") << QVariant(-9600) << QVariant(-1) << 1000000 << "000000000";
        QTest::newRow("text") << QVariant("fast") << QVariant("rpm") << 1000000 << "000000000";
    }

    void theStoreIsBelievedWhereItMakesSense()
    {
        QFETCH(QVariant, baudRate);
        QFETCH(QVariant, unit);
        QFETCH(int, baudRateShown);
        QFETCH(QString, units);
        QSettings store("Ostravel", "Zelvar Servo Manager");
        if (baudRate.isValid())
            store.setValue("port settings/baudRate", baudRate);
        for (const auto &[key, field] : UnitFields) {
            if (unit.isValid())
                store.setValue(QString("units settings/") + key, unit);
        }
        const int keys = store.allKeys().size();
        Fixture fixture;
        QCOMPARE(store.allKeys().size(), keys); // showing the defaults stores nothing
        QCOMPARE(fixture.dialog->portSettings().portName, QString("one"));
        QCOMPARE(fixture.dialog->portSettings().baudRate, baudRateShown);
        QCOMPARE(fixture.baudRates()->currentText(), QString::number(baudRateShown));
        QCOMPARE(digits(fixture.dialog->units()), units);
        QCOMPARE(fixture.radio("degreesRadioButton")->isChecked(), units[1] == '1');
        QCOMPARE(fixture.radio("ampsRadioButton")->isChecked(), units[5] == '0');
    }

    void numbersAreBelievedInTheirRangeOnly()
    {
        Settings settings("main window settings");
        QCOMPARE(settings.boundedInt("pollingInterval", 500, 10, 5000), 500);
        for (const QVariant &good : {QVariant(10), QVariant("5000")}) {
            settings.setValue("pollingInterval", good);
            QCOMPARE(settings.boundedInt("pollingInterval", 500, 10, 5000), good.toInt());
        }
        for (const QVariant &bad : {QVariant("soon"), QVariant(9), QVariant(5001), QVariant("4294967316")}) {
            settings.setValue("pollingInterval", bad);
            QCOMPARE(settings.boundedInt("pollingInterval", 500, 10, 5000), 500);
        }
    }

    void onlyApplyTakesOverAndPersists()
    {
        for (const char *button : {"cancelButton", "okButton"}) {
            const bool isApplied = button == QByteArray("okButton");
            Fixture fixture;
            fixture.dialog->show();
            fixture.ports()->setCurrentText("two");
            fixture.baudRates()->setCurrentText("57600");
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
        for (const auto &[key, field] : UnitFields)
            expected.append(QString("units settings/") + key);
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
