// What a user is told about each control: the names and values that a screen reader gets, tool tips, what's-this texts;
// and that the window is never larger than the screen.

#include "app/mainwindow.h"
#include "app/screenfit.h"
#include "link/serialhelper.h"
#include "search/searchdialog.h"
#include "tests/support/connectededitview.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"
#include "widgets/zelvarparametersgroupbox.h"

#include <QAccessible>
#include <QMap>
#include <QScreen>
#include <QSet>
#include <QSettings>

#include <functional>

namespace {

constexpr quint16 OwnFamily = 0x0102;
constexpr quint16 Ax12 = 12;

using Visit = std::function<void(QAccessibleInterface &)>;

void walk(QAccessibleInterface *root, const Visit &visit)
{
    if (!root || !root->isValid())
        return;
    visit(*root);
    // The list that it opens is part of the combo box.
    if (root->role() == QAccessible::ComboBox)
        return;
    for (int i = 0; i < root->childCount(); ++i)
        walk(root->child(i), visit);
}

QAccessibleInterface *accessible(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget);
}

/** The name of a control: of its caption where it has one, which is what a combo box is known by. */
QString nameOf(QAccessibleInterface &control)
{
    const auto labels = control.relations(QAccessible::Label);
    if (control.role() == QAccessible::ComboBox)
        return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
    return control.text(QAccessible::Name);
}

bool needsName(QAccessibleInterface &element)
{
    switch (element.role()) {
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::ComboBox:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::PageTab:
    case QAccessible::Button:
        return true;
    default:
        break;
    }
    const auto *widget = qobject_cast<QWidget *>(element.object());
    return element.state().focusable && !(widget && widget->focusProxy());
}

QString described(QAccessibleInterface &element)
{
    const QObject *object = element.object();
    return object ? QString("%1 %2").arg(object->metaObject()->className(), object->objectName()) : QString("part");
}

QAccessibleInterface *named(QWidget &window, const QString &name)
{
    QAccessibleInterface *found = nullptr;
    walk(accessible(window), [&](QAccessibleInterface &element) {
        if (!found && needsName(element) && nameOf(element) == name)
            found = &element;
    });
    return found;
}

struct Fixture
{
    MainWindow window{nullptr, std::make_shared<SerialHelper>(std::make_shared<FakeSerialPort>())};

    QWidget &top(const QString &which)
    {
        if (which == "settings")
            return *SettingsDialog::instance();
        if (which == "search")
            return *SearchDialog::instance();
        return window;
    }
};

} // namespace

class TestAccessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void everyControlHasANameOfItsOwn_data()
    {
        QTest::addColumn<int>("atLeast");
        QTest::newRow("main window") << 80;
        QTest::newRow("settings") << 20;
        QTest::newRow("search") << 18;
    }

    void everyControlHasANameOfItsOwn()
    {
        QFETCH(int, atLeast);
        Fixture fixture;
        QStringList nameless;
        QMap<QPair<QAccessibleInterface *, QString>, int> uses;
        int controls = 0;
        walk(accessible(fixture.top(QTest::currentDataTag())), [&](QAccessibleInterface &element) {
            if (!needsName(element))
                return;
            ++controls;
            const QString name = nameOf(element).trimmed();
            if (name.isEmpty())
                nameless.append(described(element));
            ++uses[{element.parent(), name}];
        });
        QCOMPARE(nameless.join("; "), QString());
        QVERIFY2(controls >= atLeast, qPrintable(QString::number(controls)));
        QStringList ambiguous;
        for (auto use = uses.cbegin(); use != uses.cend(); ++use) {
            if (use.value() > 1)
                ambiguous.append(use.key().second);
        }
        QCOMPARE(ambiguous.join("; "), QString());
    }

    void valuesAreReadByName_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("size");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<QString>("value");
        QTest::newRow("Position (radians):") << 86 << 4 << quint32(2048) << "3.142";
        QTest::newRow("Model number:") << 0 << 2 << quint32(0x0102) << "1.2";
        QTest::newRow("ID:") << 3 << 1 << quint32(17) << "17";
        QTest::newRow("Target torque (Nm):") << 84 << 2 << quint32(1500) << "1.50";
        QTest::newRow("Operating mode:") << 6 << 1 << quint32(2) << "Joint";
        QTest::newRow("Direction of the torque") << 84 << 2 << quint32(0x8001) << "Clockwise";
        QTest::newRow("Proportional term of the velocity") << 62 << 2 << quint32(1250) << "1.250";
    }

    void valuesAreReadByName()
    {
        QFETCH(int, address);
        QFETCH(int, size);
        QFETCH(quint32, raw);
        QFETCH(QString, value);
        ConnectedEditView desk;
        QAccessibleInterface *control = named(*desk.view, QTest::currentDataTag());
        QVERIFY(control);
        QVERIFY(control->text(QAccessible::Value) != value);

        QByteArray table(ConnectedEditView::TableSize, '\0');
        ConnectedEditView::put(table, address, size, raw);
        desk.connectAndFeed(table);
        QCOMPARE(control->text(QAccessible::Value), value);
    }

    void statesAreReadByName()
    {
        ConnectedEditView desk;
        QByteArray table(ConnectedEditView::TableSize, '\0');
        table[107] = 4;
        desk.connectAndFeed(table);
        QVERIFY(named(*desk.view, "Overheating error")->state().checked);
        QVERIFY(!named(*desk.view, "Encoder error")->state().checked);
        QVERIFY(!named(*desk.view, "Overload error")->state().checked);
    }

    void theToolBarsNumbersHaveNames()
    {
        Fixture fixture;
        QCOMPARE(named(fixture.window, "Polling interval (ms)")->text(QAccessible::Value), QString("500"));
        QCOMPARE(named(fixture.window, "Servo address")->text(QAccessible::Value), QString("0"));
    }

    void aNameFollowsTheUnit()
    {
        ConnectedEditView desk;
        QVERIFY(named(*desk.view, "Temperature (°C):"));
        desk.chooseUnits(1);
        desk.connectTo(OwnFamily);
        QVERIFY(named(*desk.view, "Temperature (°F):"));
        QVERIFY(!named(*desk.view, "Temperature (°C):"));
    }

    void theTipTellsRegisterAndRange_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<QString>("tip");
        QTest::newRow("targetPositionDoubleSpinBox")
            << 0 << "Register 78–81: Target position\nRange: -1602.211 to 1602.211 radians";
        QTest::newRow("counterClockwiseLimitDoubleSpinBox")
            << 1 << "Register 9–10: CCW angle limit\nRange: -180.00 to 180.00 degrees";
        QTest::newRow("temperatureLimitDoubleSpinBox")
            << 1 << "Register 11: Upper temperature limit\nRange: 32.0 to 491.0 °F";
        QTest::newRow("actualPositionLineEdit")
            << 0 << "Register 86–89: Actual position\nRange: -1602.211 to 1602.211 radians";
        QTest::newRow("idSpinBox") << 0 << "Register 3: ID\nRange: 0 to 253";
        QTest::newRow("ackResponseTimeSpinBox") << 0 << "Register 5: Acknowledge response time\nRange: 0 to 508 μs";
        QTest::newRow("positionProportionalTermDoubleSpinBox")
            << 0 << "Register 54–55: Position proportional gain\nRange: 0.0 to 200.0";
        // Choices and codes have no range.
        QTest::newRow("baudRateComboBox") << 0 << "Register 4: Baud rate";
        QTest::newRow("operatingModeComboBox") << 0 << "Register 6: Operating mode";
        QTest::newRow("enableMotorCheckBox") << 0 << "Register 48: Control enable";
        QTest::newRow("modelNumberLineEdit") << 0 << "Register 0–1: Model number";
        QTest::newRow("targetTorqueDirectionComboBox") << 0 << "Register 84–85, bit 15: Target torque";
        QTest::newRow("encoderStatusCheckBox") << 0 << "Register 107, bit 3: Hardware error status";
    }

    void theTipTellsRegisterAndRange()
    {
        QFETCH(int, unit);
        QFETCH(QString, tip);
        ConnectedEditView desk(unit);
        const QWidget &control = desk.child(QTest::currentDataTag());
        QCOMPARE(control.toolTip(), QString());
        desk.connectTo(OwnFamily);
        QCOMPARE(control.toolTip(), tip);
        desk.groups().linkDown();
        QCOMPARE(control.toolTip(), QString());
    }

    void everyFieldOfTheOwnFamilyHasATip()
    {
        ConnectedEditView desk;
        desk.connectTo(OwnFamily);
        QStringList without;
        const auto widgets = desk.view->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (dynamic_cast<IUnitDataField *>(widget) && !widget->toolTip().startsWith("Register "))
                without.append(widget->objectName());
        }
        QCOMPARE(without.join("; "), QString());
    }

    // Its registers mean something else there.
    void aServoWithoutTheRegisterMapHasNoTips()
    {
        ConnectedEditView desk;
        desk.connectTo(OwnFamily);
        desk.groups().linkDown();
        desk.connectTo(Ax12);
        QCOMPARE(desk.child("clockwiseLimitDoubleSpinBox").toolTip(), QString());
        QCOMPARE(desk.child("targetPositionDoubleSpinBox").toolTip(), QString());
    }

    void everyGroupSaysWhatItIs()
    {
        ConnectedEditView desk;
        QSet<QString> texts;
        const auto groups = desk.view->findChildren<ZelvarParametersGroupBox *>();
        for (const auto *group : groups)
            texts.insert(group->whatsThis());
        QCOMPARE(groups.size(), 6);
        QCOMPARE(texts.size(), 6);
        QVERIFY(!texts.contains(QString()));
    }

    void aWindowTakesWhatTheScreenHas_data()
    {
        QTest::addColumn<QRect>("wanted");
        QTest::addColumn<QRect>("available");
        QTest::addColumn<QRect>("fitted");
        const QRect small(0, 0, 1366, 768);
        QTest::newRow("fits") << QRect(700, 50, 1192, 1428) << QRect(0, 0, 2560, 1600) << QRect(700, 50, 1192, 1428);
        QTest::newRow("too high") << QRect(50, 50, 1192, 1428) << small << QRect(50, 30, 1192, 734);
        QTest::newRow("too wide") << QRect(50, 50, 1400, 400) << small << QRect(4, 50, 1358, 400);
        QTest::newRow("frame does not fit") << QRect(4, 30, 1192, 760) << small << QRect(4, 30, 1192, 734);
        QTest::newRow("outside") << QRect(-500, 2000, 600, 400) << small << QRect(4, 364, 600, 400);
        QTest::newRow("screen to the right") << QRect(1300, 50, 1192, 1428) << QRect(1366, 20, 1366, 748)
                                             << QRect(1370, 50, 1192, 714);
        QTest::newRow("no room") << QRect(0, 0, 1192, 1428) << QRect(0, 0, 4, 4) << QRect(4, 30, 0, 0);
    }

    void aWindowTakesWhatTheScreenHas()
    {
        QFETCH(QRect, wanted);
        QFETCH(QRect, available);
        QTEST(screenfit::fitted(wanted, available, QMargins(4, 30, 4, 4)), "fitted");
    }

    void theFirstStartFitsTheScreen()
    {
        Fixture fixture;
        const QSize available = fixture.window.screen()->availableGeometry().size();
        QVERIFY(fixture.window.width() <= available.width());
        QVERIFY(fixture.window.height() < available.height());
        QVERIFY(fixture.window.height() > available.height() - 100);
    }

    void aWindowOfALargerScreenFitsAgain()
    {
        const QRect onLargerScreen(900, 700, 1192, 1428);
        {
            Fixture fixture;
            fixture.window.setGeometry(onLargerScreen);
            fixture.window.close();
        }
        Fixture again;
        const QRect available = again.window.screen()->availableGeometry();
        QCOMPARE(again.window.geometry() & available, again.window.geometry());
    }
};

ZELVAR_TEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
