#include "tests/support/connectededitview.h"
#include "tests/support/testenvironment.h"

#include "widgets/zelvarbaudratecombobox.h"
#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvarparametersgroupbox.h"
#include "widgets/zelvarspinbox.h"
#include "widgets/zelvarstatuscheckbox.h"

#include <QLabel>
#include <QListView>
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
    void bindingRules_data();
    void bindingRules();
    void placeholdersOfListsAreNoEdits();
    void baudRateCodes();
    void indexTenIsClean();
    void integerFieldsCountFromRawZero();
    void displayFormats_data();
    void displayFormats();
    void everyFieldReachesItsLimits_data();
    void everyFieldReachesItsLimits();
    void everyRawValueCanBeTyped_data();
    void everyRawValueCanBeTyped();
    void decimalComma();
    void unfinishedTextIsNoEdit();
    void enterDoesNotApply();
    void wheelPassesControlsWithoutFocus();
    void unitsOfTheNextConnection();
    void statusBoxesNeedTheLink();
    void checkBoxCaptionsGreyOut();
    void ax12();
};

void TestBoundWidgets::bindingRules_data()
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
    QTest::newRow("gain")    << QByteArray("positionProportionalTermDoubleSpinBox") << 5 << QVariant("0.5") << blank      << QVariant("12.3")     << 123;
    QTest::newRow("list")    << QByteArray("inputModeComboBox")           << 1    << QVariant("Position") << QVariant("-") << QVariant("Trajectory") << 0;
    QTest::newRow("rates")   << QByteArray("baudRateComboBox")            << 34   << QVariant("57600") << QVariant("-")   << QVariant("9600")     << 0;
    QTest::newRow("check")   << QByteArray("enableMotorCheckBox")         << 1    << QVariant(true)    << QVariant(false) << QVariant(false)      << 0;
    // clang-format on
}

void TestBoundWidgets::bindingRules()
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

void TestBoundWidgets::placeholdersOfListsAreNoEdits()
{
    ConnectedEditView fixture;
    fixture.connectAndFeed(tableWith(26, 1, 1));
    fixture.editSave("nv").setChecked(true);
    for (const char *name : {"inputModeComboBox", "baudRateComboBox"}) {
        auto &list = fixture.child<QComboBox>(name);
        const int last = list.count() - 1;
        QVERIFY(static_cast<QListView *>(list.view())->isRowHidden(last));
        list.setCurrentIndex(last - 1);
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_End);
        QCOMPARE(list.currentIndex(), last - 1);
    }
}

void TestBoundWidgets::baudRateCodes()
{
    ConnectedEditView fixture;
    auto &rates = fixture.child<ZelvarBaudRateComboBox>("baudRateComboBox");
    fixture.connectAndFeed(tableWith(4, 1, 207));
    QCOMPARE(rates.currentText(), QStringLiteral("9600"));
    fixture.feed(tableWith(4, 1, 1));
    QCOMPARE(rates.currentText(), QStringLiteral("1000000"));
    fixture.feed(tableWith(4, 1, 77));
    QCOMPARE(rates.currentText(), QStringLiteral("-"));
    // The placeholder never counts as an edit, even where it can be reached.
    fixture.feed(tableWith(4, 1, 1));
    fixture.editSave("nv").setChecked(true);
    rates.setCurrentIndex(rates.count() - 1);
    QVERIFY(!rates.isDirty());
    rates.setCurrentIndex(10);
    QVERIFY(rates.isDirty());
}

void TestBoundWidgets::indexTenIsClean()
{
    ZelvarComboBox list;
    QSignalSpy dirty(&list, &ZelvarComboBox::setIsDirty);
    for (int i = 0; i < 13; ++i)
        list.addItem(QString::number(i));
    list.setEditable(true);
    list.setCurrentIndex(10);
    QVERIFY(!list.isDirty());
    list.setCurrentIndex(11);
    list.setCurrentIndex(10);
    QCOMPARE(turns(dirty), QList<bool>({true, false}));
}

void TestBoundWidgets::integerFieldsCountFromRawZero()
{
    // The angle limits run from raw −2047; as integers, degrees are counted from raw 0 at the lower end.
    ConnectedEditView fixture(1);
    ZelvarSpinBox box;
    box.setObjectName(QStringLiteral("clockwiseLimitDoubleSpinBox"));
    box.connected();
    fixture.connectTo(0x0102);
    box.setValue(0);
    QCOMPARE(box.text(), QStringLiteral("-180"));
    QCOMPARE(box.value(), 0);
    box.setValue(2047);
    QCOMPARE(box.text(), QStringLiteral("0"));
}

void TestBoundWidgets::displayFormats_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("size");
    QTest::addColumn<quint32>("raw");
    QTest::addColumn<QString>("inFirstUnit");
    QTest::addColumn<QString>("inSecondUnit");

    // clang-format off
    QTest::newRow("position")         << QByteArray("actualPositionLineEdit")          << 86 << 4 << 2048u       << "3.142"      << "180.00";
    QTest::newRow("position, lowest") << QByteArray("actualPositionLineEdit")          << 86 << 4 << 0xFFF01001u << "-1602.211"  << "-91799.91";
    QTest::newRow("velocity")         << QByteArray("actualAngularVelocityLineEdit")   << 90 << 2 << 1000u       << "1.00"       << "9.5";
    QTest::newRow("torque")           << QByteArray("actualTorqueLineEdit")            << 92 << 2 << 1500u       << "1.50"       << "15.30";
    QTest::newRow("voltage")          << QByteArray("actualVoltageLineEdit")           << 94 << 1 << 124u        << "12.4"       << "12.4";
    QTest::newRow("current")          << QByteArray("actualQuadratureCurrentLineEdit") << 95 << 2 << 215u        << "0.215"      << "215";
    QTest::newRow("temperature")      << QByteArray("actualTemperatureLineEdit")       << 97 << 1 << 41u         << "41"         << "105.8";
    QTest::newRow("model")            << QByteArray("modelNumberLineEdit")             << 0  << 2 << 0x0A05u     << "10.5"       << "10.5";
    QTest::newRow("firmware")         << QByteArray("firmwareVersionLineEdit")         << 2  << 1 << 7u          << "7"          << "7";
    // clang-format on
}

void TestBoundWidgets::displayFormats()
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

void TestBoundWidgets::everyFieldReachesItsLimits_data()
{
    QTest::addColumn<int>("unit");
    QTest::newRow("first units") << 0;
    QTest::newRow("second units") << 1;
}

void TestBoundWidgets::everyFieldReachesItsLimits()
{
    QFETCH(int, unit);
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

void TestBoundWidgets::everyRawValueCanBeTyped_data()
{
    QTest::addColumn<int>("decimals");

    QTest::newRow("positionProportionalTermDoubleSpinBox") << 1;
    QTest::newRow("velocityFeedforwardTermDoubleSpinBox") << 3;
    QTest::newRow("currentFeedforwardTermDoubleSpinBox") << 3;
    QTest::newRow("velocityIntegralTermDoubleSpinBox") << 3;
    QTest::newRow("angularVelocityProfileDoubleSpinBox") << 3;
    QTest::newRow("accelerationProfileDoubleSpinBox") << 3;
}

void TestBoundWidgets::everyRawValueCanBeTyped()
{
    QFETCH(int, decimals);
    ConnectedEditView fixture;
    fixture.connectTo(0x0102);
    auto &box = fixture.child<ZelvarDoubleSpinBox>(QTest::currentDataTag());
    QCOMPARE(box.decimals(), decimals);
    const int rawMax = DeviceHelper::currentDevice()->limits(box.objectName()).rawMax;
    const int stride = rawMax > 20000 ? 13 : 1;
    for (int raw = 0; raw <= rawMax; raw += stride) {
        box.setValue(raw);
        const QString text = box.text();
        static_cast<QDoubleSpinBox &>(box).setValue(text.toDouble());
        if (box.value() != raw)
            QFAIL(qPrintable(
                QStringLiteral("%1 is taken for %2 counts, not %3").arg(text).arg(box.value()).arg(raw)));
    }
}

void TestBoundWidgets::decimalComma()
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

void TestBoundWidgets::unfinishedTextIsNoEdit()
{
    ConnectedEditView fixture;
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
    target.setEditable(false);
    QCOMPARE(target.text(), QStringLiteral("1.571"));
}

void TestBoundWidgets::enterDoesNotApply()
{
    ConnectedEditView fixture;
    fixture.connectAndFeed(tableWith(78, 4, 1024));
    QSignalSpy writes(&fixture.groups(), &UiGroupHelper::addQueueRequest);
    auto &target = fixture.child<ZelvarDoubleSpinBox>("targetPositionDoubleSpinBox");
    fixture.editSave("v").setChecked(true);
    enter(target, QStringLiteral("2\r"));
    QVERIFY(fixture.editSave("v").isChecked());
    QVERIFY(writes.isEmpty());
}

void TestBoundWidgets::wheelPassesControlsWithoutFocus()
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

void TestBoundWidgets::unitsOfTheNextConnection()
{
    ConnectedEditView fixture(1);
    const QByteArray table = tableWith(78, 4, 2048);
    auto &label = fixture.child<QLabel>("targetPositionLabel");
    auto &target = fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox");
    QCOMPARE(label.text(), QStringLiteral("Target position (degrees):"));
    QCOMPARE(fixture.child<QLabel>("idLabel").text(), QStringLiteral("ID:"));

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

void TestBoundWidgets::statusBoxesNeedTheLink()
{
    ConnectedEditView fixture;
    auto &alert = fixture.child<ZelvarStatusCheckBox>("alertStatusCheckBox");
    const auto isRed = [&alert] {
        return alert.styleSheet().contains(QStringLiteral("background:#ff461d;"));
    };
    const auto &status = ProcessWide<StatusHelper>::instance();
    status->update(-128);
    QVERIFY(alert.isChecked() && !isRed());
    fixture.connectTo(0x0102);
    QVERIFY(isRed());
    status->update(0);
    QVERIFY(!isRed());
    status->update(-128);
    fixture.groups().linkDown();
    QVERIFY(!alert.isChecked() && !isRed());
}

void TestBoundWidgets::checkBoxCaptionsGreyOut()
{
    ConnectedEditView fixture;
    fixture.connectAndFeed(tableWith(49, 1, 1));
    auto &box = fixture.child<ZelvarCheckBox>("pendingShadowInstructionCheckBox");
    const auto hasColor = [&box](const char *color) {
        return box.styleSheet().contains(QLatin1String("color:") + QLatin1String(color));
    };
    QVERIFY(hasColor("#51514F"));
    box.setLocked(true);
    QVERIFY(hasColor("#51514F"));
    box.setLocked(true);
    QVERIFY(hasColor("#9F9E9E"));
    box.setLocked(false);
    QVERIFY(hasColor("#9F9E9E") || hasColor("#51514F"));
    box.setLocked(false);
    QVERIFY(hasColor("#51514F"));
}

void TestBoundWidgets::ax12()
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

ZELVAR_TEST_MAIN(TestBoundWidgets)
#include "tst_boundwidgets.moc"
