#include "tests/support/connectededitview.h"

#include "widgets/zelvarcheckbox.h"
#include "widgets/zelvarcombobox.h"
#include "widgets/zelvardoublespinbox.h"
#include "widgets/zelvarparametersgroupbox.h"

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

QByteArray tableWith(int address, int size, quint32 value, int mode = 2)
{
    QByteArray table = ConnectedEditView::jointTable();
    ConnectedEditView::put(table, 6, 1, quint32(mode));
    ConnectedEditView::put(table, address, size, value);
    return table;
}

} // namespace

class TestBoundWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bindingRules()
    {
        // control, raw value from the servo, shown as, placeholder, entered by the user, value() then
        // clang-format off
        const std::tuple<const char *, int, QVariant, QVariant, QVariant, int> rows[] = {
            {"ackResponseTimeSpinBox",      100,  "200",      "",    "203",        101},
            {"targetPositionDoubleSpinBox", 1024, "1.571",    "",    "0.003",      1  },
            {"inputModeComboBox",           1,    "Position", "-",   "Trajectory", 0  },
            {"baudRateComboBox",            34,   "57600",    "-",   "9600",       0  },
            {"enableMotorCheckBox",         1,    true,       false, false,        0  },
        };
        // clang-format on
        for (const auto &[name, raw, text, placeholder, edit, editedValue] : rows) {
            const InRow row(name);
            ConnectedEditView fixture;
            auto &control = fixture.child(name);
            auto &field = dynamic_cast<IUnitDataField &>(control);
            auto &input = dynamic_cast<IGroupInputComponent &>(control);
            auto &group = dynamic_cast<ZelvarParametersGroupBox &>(*control.parentWidget());
            QSignalSpy dirty(&control, SIGNAL(setIsDirty(bool)));

            QCOMPARE(shown(control), placeholder);
            QVERIFY(!control.isEnabled());
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
            QCOMPARE(dirty, QList<QVariantList>({{true}, {false}}));

            enter(control, edit);
            dirty.clear();
            field.setLocked(true);
            input.setEditable(true);
            QVERIFY(!control.isEnabled());
            QCOMPARE(dirty, QList<QVariantList>{{false}});
            field.setLocked(false);
            QVERIFY(control.isEnabled());
            QCOMPARE(shown(control), text);

            group.setEditMode(false);
            field.setLocked(true);
            field.setLocked(false);
            QVERIFY(!control.isEnabled());

            fixture.groups().linkDown();
            field.setValue(raw);
            QCOMPARE(shown(control), placeholder);
        }
    }

    void unitsAndFormatsAreThoseOfTheConnection()
    {
        // control, its register and size, operating mode in which it is in use, raw value, shown in the two units
        // clang-format off
        const std::tuple<const char *, int, int, int, quint32, const char *, const char *> rows[] = {
            {"actualPositionLineEdit",                 86, 4, 2, 2048,       "3.142",             "180.00"           },
            {"actualPositionLineEdit",                 86, 4, 2, 0xFFFFFFFF, "-0.002",            "-0.09"            },
            {"targetPositionDoubleSpinBox",            78, 4, 2, 1024,       "1.571",             "90.00"            },
            {"clockwiseLimitDoubleSpinBox",            7,  2, 2, 0xFC00,     "-1.572",            "-90.04"           },
            {"targetAngularVelocityDoubleSpinBox",     82, 2, 1, 0x83E8,     "1.00",              "9.5"              },
            {"targetAngularVelocityDirectionComboBox", 82, 2, 1, 0x83E8,     "Clockwise",         "Clockwise"        },
            {"targetTorqueDoubleSpinBox",              84, 2, 0, 0x85DC,     "1.50",              "15.30"            },
            {"targetTorqueDirectionComboBox",          84, 2, 0, 0x7FFF,     "Counter-clockwise", "Counter-clockwise"},
            {"actualTemperatureLineEdit",              97, 1, 2, 41,         "41",                "105.8"            },
            {"modelNumberLineEdit",                    0,  2, 2, 0x0A05,     "10.5",              "10.5"             },
        };
        // clang-format on
        for (const auto &[name, address, size, mode, raw, inFirstUnit, inSecondUnit] : rows) {
            const InRow row(name);
            ConnectedEditView fixture;
            auto &label = fixture.child<QLabel>("targetPositionLabel");
            auto &angle = fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox");
            const QByteArray table = tableWith(address, size, raw, mode);
            fixture.connectAndFeed(table);
            fixture.chooseUnits(1);
            fixture.feed(table);
            QCOMPARE(shown(fixture.child(name)), QVariant(inFirstUnit));
            QCOMPARE(label.text(), QString("Target position (radians):"));
            QCOMPARE(angle.singleStep(), 0.001533980787885254); // one count
            fixture.groups().linkDown();
            fixture.connectAndFeed(table);
            QCOMPARE(shown(fixture.child(name)), QVariant(inSecondUnit));
            QCOMPARE(label.text(), QString("Target position (degrees):"));
            QCOMPARE(angle.singleStep(), 0.0);
        }
    }

    void everyFieldReachesItsLimits()
    {
        for (const int unit : {0, 1}) {
            ConnectedEditView fixture(unit);
            fixture.connectTo(0x0102);
            for (ZelvarDoubleSpinBox *box : fixture.view->findChildren<ZelvarDoubleSpinBox *>()) {
                const InRow row(box->objectName());
                const FieldLimits limits = DeviceHelper::currentDevice()->limits(box->objectName());
                box->QDoubleSpinBox::setValue(box->minimum());
                QCOMPARE(box->value(), limits.rawMin);
                box->QDoubleSpinBox::setValue(box->maximum());
                QCOMPARE(box->value(), limits.rawMax);
            }
        }
    }

    void decimalComma()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        {
            ConnectedEditView fixture;
            fixture.connectAndFeed(tableWith(78, 4, 1000));
            auto &target = fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox");
            auto &input = dynamic_cast<IGroupInputComponent &>(target);
            QCOMPARE(target.text(), QString("1,534"));
            QCOMPARE(fixture.child<QLineEdit>("modelNumberLineEdit").text(), QString("0,0"));
            fixture.editSave("v").setChecked(true);
            enter(target, "2,5");
            QCOMPARE(target.value(), 2.5);
            QVERIFY(input.isDirty());
            enter(target, "1.5"); // the wrong sign must not make it 15
            QVERIFY(!input.isDirty());
            QTest::keyClick(&target, Qt::Key_Return);
            QCOMPARE(target.text(), QString("1,534"));
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
        enter(target, QString("2"));
        QVERIFY(fixture.editSave("v").isEnabled());
        for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Minus}) {
            QTest::keyClick(target.findChild<QLineEdit *>(), key);
            QVERIFY(!fixture.editSave("v").isEnabled());
        }
        QTest::keyClick(&target, Qt::Key_Return); // back to the servo's value, not to the 2
        QCOMPARE(target.text(), QString("1.571"));
        enter(target, QString("2\r"));
        QVERIFY(fixture.editSave("v").isChecked());
        QVERIFY(writes.isEmpty()); // Enter does not apply
    }

    void aStepIsWorthWhatItShows()
    {
        ConnectedEditView fixture;
        QByteArray table = tableWith(78, 4, 100);
        ConnectedEditView::put(table, 68, 2, 2);
        fixture.connectAndFeed(table);
        fixture.editSave("v").setChecked(true);
        auto &profile = fixture.child<QDoubleSpinBox>("angularVelocityProfileDoubleSpinBox");
        QTest::keyClick(&profile, Qt::Key_Up);
        QVERIFY(fixture.editSave("v").isEnabled());
        QTest::keyClick(&profile, Qt::Key_Down);
        QCOMPARE(profile.text(), QString("0.002"));
        QVERIFY(!fixture.editSave("v").isEnabled());
        auto &target = fixture.child<ZelvarDoubleSpinBox>("targetPositionDoubleSpinBox");
        QTest::keyClick(&target, Qt::Key_Up);
        QCOMPARE(target.text(), QString("0.155"));
        QCOMPARE(target.value(), 101); // as if it had been typed
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
            QWheelEvent event(QPointF(5, 5), control.mapToGlobal(QPoint(5, 5)), {}, QPoint(0, -120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&control, &event);
            QVERIFY2(!event.isAccepted(), name); // so it goes on to the view
            QCOMPARE(shown(control), before);
            QCOMPARE(control.focusPolicy(), Qt::StrongFocus);
        }
    }
};

ZELVAR_TEST_MAIN(TestBoundWidgets)
#include "tst_boundwidgets.moc"
