#include "tests/support/connectededitview.h"
#include "tests/support/testenvironment.h"

#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvarcombobox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvarparametersgroupbox.h"

#include <QLabel>
#include <QSignalSpy>
#include <QWheelEvent>

namespace {
/** What a control shows, whatever its kind. */
QVariant shown(const QWidget &control)
{
    if (const auto *list = qobject_cast<const QComboBox *>(&control))
        return list->currentText();
    if (const auto *box = qobject_cast<const QCheckBox *>(&control))
        return box->isChecked();
    if (const auto *spinBox = qobject_cast<const QAbstractSpinBox *>(&control))
        return spinBox->text();
    return qobject_cast<const QLineEdit *>(&control)->text();
}

/** Enters @p value as a user would; the control must be enabled. */
void enter(QWidget &control, const QVariant &value)
{
    if (auto *list = qobject_cast<QComboBox *>(&control)) {
        list->setCurrentText(value.toString());
    } else if (auto *box = qobject_cast<QCheckBox *>(&control)) {
        box->setChecked(value.toBool());
    } else {
        auto *text = control.findChild<QLineEdit *>();
        text->selectAll();
        QTest::keyClicks(text, value.toString());
    }
}

QList<bool> turns(const QSignalSpy &dirtySpy)
{
    QList<bool> result;
    for (const QList<QVariant> &arguments : dirtySpy)
        result << arguments.first().toBool();
    return result;
}

QByteArray tableWith(int address, int size, quint32 value)
{
    QByteArray table(ConnectedEditView::TableSize, '\0');
    ConnectedEditView::put(table, 6, 1, 2); // Joint, in which most fields are in use
    ConnectedEditView::put(table, address, size, value);
    return table;
}

bool isWheelTaken(QWidget &control)
{
    QWheelEvent event(QPointF(5, 5), control.mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control, &event);
    return event.isAccepted();
}

} // namespace

class TestBoundWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bindingRules_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("raw");
        QTest::addColumn<QVariant>("text");
        QTest::addColumn<QVariant>("placeholder");
        QTest::addColumn<QVariant>("edit");
        QTest::addColumn<int>("editedValue");

        // clang-format off
        // control, raw value from the servo, shown as, placeholder, entered by the user, value() then
        const QVariant blank = QString();
        QTest::newRow("integer") << QByteArray("ackResponseTimeSpinBox")      << 100  << QVariant("200")   << blank           << QVariant("203")      << 101;
        QTest::newRow("double")  << QByteArray("targetPositionDoubleSpinBox") << 1024 << QVariant("1.571") << blank           << QVariant("0.003")    << 1;
        QTest::newRow("list")    << QByteArray("inputModeComboBox")           << 1    << QVariant("Position") << QVariant("-") << QVariant("Trajectory") << 0;
        QTest::newRow("rates")   << QByteArray("baudRateComboBox")            << 34   << QVariant("57600") << QVariant("-")   << QVariant("9600")     << 0;
        QTest::newRow("check")   << QByteArray("enableMotorCheckBox")         << 1    << QVariant(true)    << QVariant(false) << QVariant(false)      << 0;
        // clang-format on
    }

    void bindingRules()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, raw);
        QFETCH(QVariant, text);
        QFETCH(QVariant, placeholder);
        QFETCH(QVariant, edit);
        QFETCH(int, editedValue);

        ConnectedEditView fixture;
        auto &control = fixture.child(name);
        auto &field = dynamic_cast<IUnitDataField &>(control);
        auto &input = dynamic_cast<IGroupInputComponent &>(control);
        auto &group = dynamic_cast<ZelvarParametersGroupBox &>(*control.parentWidget());
        QSignalSpy dirty(&control, SIGNAL(setIsDirty(bool)));

        QCOMPARE(shown(control), placeholder);
        QVERIFY(!control.isEnabled());
        field.setValue(raw);
        fixture.groups().linkUp();
        field.setValue(raw);
        QCOMPARE(shown(control), placeholder); // a value before the device model is known

        fixture.connectTo(0x0102);
        field.setValue(raw);
        QCOMPARE(shown(control), text);
        QVERIFY(!control.isEnabled());

        group.setEditMode(true);
        input.setEditable(true);
        enter(control, edit);
        QCOMPARE(field.value(), editedValue);
        QVERIFY(input.isDirty());
        enter(control, text);
        QVERIFY(!input.isDirty());
        QCOMPARE(turns(dirty), QList<bool>({true, false}));

        enter(control, edit);
        dirty.clear();
        field.setLocked(true);
        QVERIFY(!control.isEnabled());
        input.setEditable(true);
        QVERIFY(!control.isEnabled());
        QCOMPARE(turns(dirty), QList<bool>({false}));
        field.setLocked(false);
        QVERIFY(control.isEnabled());
        QCOMPARE(shown(control), text);

        enter(control, edit);
        input.restoreValue();
        QCOMPARE(shown(control), text);
        QVERIFY(!control.isEnabled());
        QVERIFY(!input.isDirty());

        group.setEditMode(false);
        field.setLocked(true);
        field.setLocked(false);
        QVERIFY(!control.isEnabled());

        fixture.groups().linkDown();
        QCOMPARE(shown(control), placeholder);
        field.setValue(raw);
        QCOMPARE(shown(control), placeholder);
    }

    void displayFormats_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("size");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<QString>("inFirstUnit");
        QTest::addColumn<QString>("inSecondUnit");

        // clang-format off
        QTest::newRow("position")         << QByteArray("actualPositionLineEdit")          << 86 << 4 << 2048u       << "3.142"      << "180.00";
        QTest::newRow("torque")           << QByteArray("actualTorqueLineEdit")            << 92 << 2 << 1500u       << "1.50"       << "15.30";
        QTest::newRow("temperature")      << QByteArray("actualTemperatureLineEdit")       << 97 << 1 << 41u         << "41"         << "105.8";
        QTest::newRow("model")            << QByteArray("modelNumberLineEdit")             << 0  << 2 << 0x0A05u     << "10.5"       << "10.5";
        // clang-format on
    }

    void displayFormats()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, address);
        QFETCH(int, size);
        QFETCH(quint32, raw);
        QFETCH(QString, inFirstUnit);
        QFETCH(QString, inSecondUnit);
        ConnectedEditView fixture;
        fixture.connectAndFeed(tableWith(address, size, raw));
        QCOMPARE(fixture.child<QLineEdit>(name).text(), inFirstUnit);
        fixture.groups().linkDown();
        fixture.chooseUnits(1);
        fixture.connectAndFeed(tableWith(address, size, raw));
        QCOMPARE(fixture.child<QLineEdit>(name).text(), inSecondUnit);
    }

    void everyFieldReachesItsLimits()
    {
        for (const int unit : {0, 1}) {
            ConnectedEditView fixture(unit);
            fixture.connectTo(0x0102);
            for (ZelvarDoubleSpinBox *box : fixture.view->findChildren<ZelvarDoubleSpinBox *>()) {
                const FieldLimits limits = DeviceHelper::currentDevice()->limits(box->objectName());
                static_cast<QDoubleSpinBox *>(box)->setValue(box->minimum());
                QVERIFY2(box->value() == limits.rawMin, qPrintable(box->objectName()));
                static_cast<QDoubleSpinBox *>(box)->setValue(box->maximum());
                QVERIFY2(box->value() == limits.rawMax, qPrintable(box->objectName()));
            }
        }
    }

    void everyRawValueCanBeTyped()
    {
        ConnectedEditView fixture;
        fixture.connectTo(0x0102);
        for (const char *name : {"positionProportionalTermDoubleSpinBox", "velocityFeedforwardTermDoubleSpinBox",
                                 "currentFeedforwardTermDoubleSpinBox", "accelerationProfileDoubleSpinBox"}) {
            auto &box = fixture.child<ZelvarDoubleSpinBox>(name);
            const int rawMax = DeviceHelper::currentDevice()->limits(name).rawMax;
            for (int raw = 0; raw <= rawMax; raw += 7) {
                box.setValue(raw);
                static_cast<QDoubleSpinBox &>(box).setValue(box.text().toDouble());
                QVERIFY2(box.value() == raw, name);
            }
        }
    }

    void decimalComma()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        {
            ConnectedEditView fixture;
            QByteArray table = tableWith(86, 4, 1000);
            fixture.put(table, 0, 2, 0x0102);
            fixture.put(table, 78, 4, 1000);
            fixture.connectAndFeed(table);
            auto &target = fixture.child<ZelvarDoubleSpinBox>("targetPositionDoubleSpinBox");
            QCOMPARE(target.text(), QStringLiteral("1,534"));
            QCOMPARE(fixture.child<QLineEdit>("actualPositionLineEdit").text(), QStringLiteral("1,534"));
            QCOMPARE(fixture.child<QLineEdit>("modelNumberLineEdit").text(), QStringLiteral("1,2"));
            fixture.editSave("v").setChecked(true);
            enter(target, QStringLiteral("2,5"));
            QCOMPARE(static_cast<QDoubleSpinBox &>(target).value(), 2.5);
            QVERIFY(target.isDirty());
            enter(target, QStringLiteral("1.5")); // the wrong sign must not make it 15
            QVERIFY(!target.isDirty());
            QTest::keyClick(&target, Qt::Key_Return);
            QCOMPARE(target.text(), QStringLiteral("1,534"));
        }
        QLocale::setDefault(QLocale::c());
    }

    void unfinishedTextIsNoEdit()
    {
        ConnectedEditView fixture;
        QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
        fixture.connectAndFeed(tableWith(78, 4, 1024));
        auto &target = fixture.child<ZelvarDoubleSpinBox>("targetPositionDoubleSpinBox");
        fixture.editSave("v").setChecked(true);
        enter(target, QStringLiteral("2"));
        QVERIFY(fixture.editSave("v").isEnabled());
        QTest::keyClick(target.findChild<QLineEdit *>(), Qt::Key_Backspace);
        QVERIFY(!fixture.editSave("v").isEnabled());
        QTest::keyClick(target.findChild<QLineEdit *>(), Qt::Key_Minus);
        QVERIFY(!fixture.editSave("v").isEnabled());
        QTest::keyClick(&target, Qt::Key_Return); // back to the servo's value, not to the 2
        QCOMPARE(target.text(), QStringLiteral("1.571"));
        enter(target, QStringLiteral("2\r"));
        QVERIFY(fixture.editSave("v").isChecked());
        QVERIFY(writes.isEmpty()); // Enter does not apply
    }

    void wheelPassesControlsWithoutFocus()
    {
        ConnectedEditView fixture;
        fixture.connectAndFeed(tableWith(78, 4, 1024));
        fixture.editSave("nv").setChecked(true);
        for (const char *name : {"idSpinBox", "operatingModeComboBox", "temperatureLimitDoubleSpinBox"}) {
            auto &control = fixture.child(name);
            const QVariant before = shown(control);
            QVERIFY(control.isEnabled());
            QVERIFY2(!isWheelTaken(control), name); // so it goes on to the view
            QCOMPARE(shown(control), before);
            QCOMPARE(control.focusPolicy(), Qt::StrongFocus);
        }
    }

    void unitsOfTheNextConnection()
    {
        ConnectedEditView fixture(1);
        const QByteArray table = tableWith(78, 4, 2048);
        auto &label = fixture.child<QLabel>("targetPositionLabel");
        auto &target = fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox");
        QCOMPARE(label.text(), QStringLiteral("Target position (degrees):"));

        fixture.connectAndFeed(table);
        QCOMPARE(target.text(), QStringLiteral("180.00"));
        fixture.chooseUnits(0);
        fixture.feed(tableWith(78, 4, 1024));
        QCOMPARE(target.text(), QStringLiteral("90.00"));
        QCOMPARE(label.text(), QStringLiteral("Target position (degrees):"));

        fixture.groups().linkDown();
        fixture.connectAndFeed(table);
        QCOMPARE(target.text(), QStringLiteral("3.142"));
        QCOMPARE(label.text(), QStringLiteral("Target position (radians):"));
    }

    void ax12()
    {
        ConnectedEditView fixture;
        QByteArray table(50, '\x2A');
        fixture.put(table, 0, 2, 12);
        fixture.connectTo(12);
        for (int poll = 0; poll < 3; ++poll)
            fixture.feed(table);
        QCOMPARE(fixture.child<QLineEdit>("modelNumberLineEdit").text(), QStringLiteral("0.12"));
        QCOMPARE(fixture.child<QLineEdit>("firmwareVersionLineEdit").text(), QStringLiteral("42"));
        QVERIFY(!fixture.editSave("nv").isEnabled());
        QVERIFY(!fixture.editSave("v").isEnabled());
        for (ZelvarDoubleSpinBox *box : fixture.view->findChildren<ZelvarDoubleSpinBox *>())
            QVERIFY2(box->text().isEmpty() && !box->isEnabled(), qPrintable(box->objectName()));
        for (ZelvarComboBox *list : fixture.view->findChildren<ZelvarComboBox *>()) {
            list->setEditable(true);
            QVERIFY2(list->currentText() == QStringLiteral("-") && !list->isEnabled(),
                     qPrintable(list->objectName()));
        }
    }
};

ZELVAR_TEST_MAIN(TestBoundWidgets)
#include "tst_boundwidgets.moc"
