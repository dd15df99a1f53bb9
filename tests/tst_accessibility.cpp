// What a user is told about each control: the names and values that a screen reader gets, tool tips, what's-this texts.

#include "app/mainwindow.h"
#include "link/serialhelper.h"
#include "search/searchdialog.h"
#include "tests/support/connectededitview.h"
#include "tests/support/fakeserialport.h"
#include "views/registerview.h"
#include "widgets/zelvarparametersgroupbox.h"
#include "widgets/zelvarstatuscheckbox.h"

namespace {

bool needsName(QAccessibleInterface &element)
{
    static const QSet<int> roles{QAccessible::EditableText, QAccessible::SpinBox,     QAccessible::ComboBox,
                                 QAccessible::CheckBox,     QAccessible::RadioButton, QAccessible::Table,
                                 QAccessible::Tree,         QAccessible::PageTab,     QAccessible::Button};
    const auto *widget = qobject_cast<QWidget *>(element.object());
    return roles.contains(element.role()) || (element.state().focusable && !(widget && widget->focusProxy()));
}

/** The controls in and below @p root; the list that a combo box opens is part of it. */
QVector<QAccessibleInterface *> controlsIn(QAccessibleInterface *root)
{
    QVector<QAccessibleInterface *> controls;
    if (!root || !root->isValid())
        return controls;
    if (needsName(*root))
        controls.append(root);
    for (int i = 0; root->role() != QAccessible::ComboBox && i < root->childCount(); ++i)
        controls += controlsIn(root->child(i));
    return controls;
}

/** The name of a control: of its caption where it has one, which is what a combo box is known by. */
QString nameOf(QAccessibleInterface &control)
{
    const auto labels = control.relations(QAccessible::Label);
    if (control.role() == QAccessible::ComboBox)
        return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
    return control.text(QAccessible::Name).trimmed();
}

QAccessibleInterface *named(QWidget &window, const QString &name)
{
    for (QAccessibleInterface *control : controlsIn(QAccessible::queryAccessibleInterface(&window))) {
        if (nameOf(*control) == name)
            return control;
    }
    return nullptr;
}

struct Fixture
{
    MainWindow window{nullptr, std::make_shared<SerialHelper>(std::make_shared<FakeSerialPort>())};
};

} // namespace

class TestAccessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void everyControlHasANameOfItsOwn()
    {
        Fixture fixture;
        const std::pair<QWidget *, int> windows[] = {
            {&fixture.window, 80}, {SettingsDialog::instance(), 20}, {SearchDialog::instance(), 18}};
        for (const auto &[window, atLeast] : windows) {
            const auto controls = controlsIn(QAccessible::queryAccessibleInterface(window));
            QVERIFY2(controls.size() >= atLeast, qPrintable(QString::number(controls.size())));
            QStringList faults;
            QSet<QPair<QAccessibleInterface *, QString>> names;
            for (QAccessibleInterface *control : controls) {
                const QString name = nameOf(*control);
                if (name.isEmpty())
                    faults << "nameless: " + (control->object() ? control->object()->objectName() : "part");
                if (names.contains({control->parent(), name}))
                    faults << "ambiguous: " + name;
                names.insert({control->parent(), name});
            }
            QCOMPARE(faults.join("; "), QString());
        }
        QCOMPARE(named(fixture.window, "Polling interval (ms)")->text(QAccessible::Value), QString("500"));
        QCOMPARE(named(fixture.window, "Servo address")->text(QAccessible::Value), QString("0"));
        QVERIFY(named(fixture.window, "Target torque (Nm):") && named(fixture.window, "Direction of the torque"));
    }

    void tipsTellRegisterAndRange()
    {
        // clang-format off
        const std::tuple<const char *, int, const char *> rows[] = {
            {"targetPositionDoubleSpinBox",           0, "78–81: Target position\nRange: -1602.211 to 1602.211 radians"},
            {"counterClockwiseLimitDoubleSpinBox",    1, "9–10: CCW angle limit\nRange: -180.00 to 180.00 degrees"     },
            {"temperatureLimitDoubleSpinBox",         1, "11: Upper temperature limit\nRange: 32.0 to 491.0 °F"        },
            {"quadratureCurrentLimitDoubleSpinBox",   0, "14–15: Torque limit\nRange: 0.00 to 5.00 Nm\n"
                                                         "This limit is a torque: its number is in Nm, not in the unit of the caption."},
            {"angularVelocityProfileDoubleSpinBox",   1, "68–69: Angular velocity profile\nRange: 0.000 to 2.000\n"
                                                         "This number is in rad/s, also where the caption tells another unit."},
            {"ackResponseTimeSpinBox",                0, "5: Acknowledge response time\nRange: 0 to 508 μs"            },
            {"positionProportionalTermDoubleSpinBox", 0, "54–55: Position proportional gain\nRange: 0.0 to 200.0"      },
            {"modelNumberLineEdit",                   0, "0–1: Model number"                                           },
            {"targetTorqueDirectionComboBox",         0, "84–85, bit 15: Target torque"                                },
            {"encoderStatusCheckBox",                 0, "107, bit 3: Hardware error status\nThe position sensor fails. "
                                                         "Switch the supply off and on; if the error comes back, the servo needs repair."},
        };
        // clang-format on
        for (const auto &[name, unit, tip] : rows) {
            ConnectedEditView desk(unit);
            desk.connectTo(0x0102);
            QCOMPARE(desk.child(name).toolTip(), QString("Register ") + tip);
            QCOMPARE(desk.child(name).accessibleDescription(),
                     QString(tip).section('\n', QString(tip).contains("Range") ? 2 : 1));
        }
    }

    void theButtonsOfTheGroupsAreToldApartAndPressed()
    {
        ConnectedEditView desk(ConnectedEditView::jointTable());
        auto *edit = named(*desk.view, "Edit: Parameters (volatile)");
        QVERIFY(edit && named(*desk.view, "Cancel: Parameters (non-volatile)"));
        QCOMPARE(edit->role(), QAccessible::Button);
        edit->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(desk.editSave("v").isChecked());
        QCOMPARE(edit->text(QAccessible::Name), QString("Apply: Parameters (volatile)"));
    }

    void aServoOfAnotherFamilyIsExplained()
    {
        ConnectedEditView desk;
        RegisterView registers(nullptr);
        for (const QWidget *view : {static_cast<QWidget *>(desk.view.get()), static_cast<QWidget *>(&registers)}) {
            const auto *notice = view->findChild<QLabel *>("modelNotice");
            QVERIFY(notice->isHidden() && !notice->text().isEmpty());
            for (const auto &[model, isExplained] : {std::pair(12, true), {0x0102, false}, {12, true}}) {
                desk.connectTo(quint16(model));
                QCOMPARE(notice->isHidden(), !isExplained);
                desk.groups().linkDown();
                QVERIFY(notice->isHidden());
            }
        }
    }

    void everyFieldHasATipWhileItsRegisterIsKnownAndEveryGroupATextOfItsOwn()
    {
        ConnectedEditView desk;
        const auto without = [&desk] {
            int count = 0;
            for (const QWidget *widget : desk.view->findChildren<QWidget *>())
                count += dynamic_cast<const IUnitDataField *>(widget) && !widget->toolTip().startsWith("Register ");
            return count;
        };
        const int all = without();
        QVERIFY(all > 40);
        desk.connectTo(0x0102);
        QCOMPARE(without(), 0);
        desk.groups().linkDown();
        QCOMPARE(without(), all);
        desk.connectTo(12); // an AX-12, whose registers mean something else
        QCOMPARE(without(), all);
        for (const auto *status : desk.view->findChildren<ZelvarStatusCheckBox *>())
            QVERIFY(!status->toolTip().isEmpty() && status->accessibleDescription() == status->toolTip());
        QSet<QString> texts;
        for (const auto *group : desk.view->findChildren<ZelvarParametersGroupBox *>())
            texts.insert(group->whatsThis());
        QCOMPARE(texts.size(), 6);
        QVERIFY(!texts.contains(QString()));
    }
};

ZELVAR_TEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
