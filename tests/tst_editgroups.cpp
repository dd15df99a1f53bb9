#include "tests/support/connectededitview.h"
#include "tests/support/editedfield.h"
#include "widgets/fieldmark.h"

namespace {

FieldMark *markOf(const QWidget &control)
{
    return control.findChild<FieldMark *>();
}

QString shown(const QWidget &control)
{
    return control.metaObject()->userProperty().read(&control).toString();
}

} // namespace

class TestEditGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applyNeedsAnEdit()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable());
        auto &button = fixture.editSave("nv");
        auto &id = fixture.child<QSpinBox>("idSpinBox");
        auto &temperature = fixture.child<QDoubleSpinBox>("temperatureLimitDoubleSpinBox");
        button.click();
        QVERIFY(fixture.cancel("nv").isEnabled());
        const std::tuple<int, int, bool> edits[] = {{0, 0, false}, {5, 0, true},  {6, 60, true},
                                                    {6, 0, true},  {0, 0, false}, {7, 0, true}};
        for (const auto &[newId, newTemperature, isEdited] : edits) {
            id.setValue(newId);
            temperature.setValue(newTemperature);
            QCOMPARE(button.text(), QString("Apply"));
            QCOMPARE(button.isEnabled(), isEdited);
        }
        button.click();
        QCOMPARE(button.text(), QString("Edit"));
        QVERIFY(!id.isEnabled());
    }

    // The block may go out, and the servo with it to another address, while the button is held.
    void thePressAppliesWhateverComesBeforeTheRelease()
    {
        for (const char *group : {"nv", "v"}) {
            for (const bool isByMouse : {true, false}) {
                const InRow row(QString(group) + (isByMouse ? " mouse" : " space"));
                ConnectedEditView fixture(ConnectedEditView::jointTable());
                fixture.view->show();
                auto &button = fixture.editSave(group);
                auto &field = fixture.child<QDoubleSpinBox>(group[0] == 'n' ? "temperatureLimitDoubleSpinBox"
                                                                            : "targetPositionDoubleSpinBox");
                button.click();
                field.setValue(1);
                isByMouse ? QTest::mousePress(&button, Qt::LeftButton) : QTest::keyPress(&button, Qt::Key_Space);
                fixture.groups().setServoReachable(false);
                isByMouse ? QTest::mouseRelease(&button, Qt::LeftButton) : QTest::keyRelease(&button, Qt::Key_Space);
                QCOMPARE(fixture.writes.size(), 1);
                QVERIFY(!button.isChecked() && !field.isEnabled() && !fixture.cancel(group).isEnabled());
                QCOMPARE(button.text(), QString("Edit"));
                fixture.groups().setServoReachable(true);
                QVERIFY(button.isEnabled());
            }
        }
    }

    // At first sight the non-volatile group's button is below the fold.
    void keysEditApplyAndCancelAndTheViewFollows()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable());
        fixture.view->resize(1134, 500);
        fixture.view->show();
        fixture.view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(fixture.view.get()));
        for (const auto &[group, modifier] : {std::pair("v", Qt::NoModifier), {"nv", Qt::ShiftModifier}}) {
            const InRow row(group);
            auto &button = fixture.editSave(group);
            fixture.child<QScrollArea>("scrollArea").verticalScrollBar()->setValue(1000);
            const auto press = [&](Qt::Key key, Qt::KeyboardModifier with) {
                QTest::keyClick(fixture.view.get(), key, with);
            };
            press(Qt::Key_F2, modifier);
            QWidget *first = QApplication::focusWidget();
            QVERIFY(button.isChecked() && first && first->parent() == button.parent());
            QCOMPARE(first->visibleRegion().boundingRect(), first->rect());
            QVERIFY(button.toolTip().contains("Apply: Parameters (") && button.toolTip().contains("F3"));
            press(Qt::Key_F5, modifier);
            QVERIFY(!button.isChecked());
            press(Qt::Key_F2, modifier);
            auto &field = fixture.child<QDoubleSpinBox>(group[0] == 'n' ? "temperatureLimitDoubleSpinBox"
                                                                        : "targetPositionDoubleSpinBox");
            field.setValue(1);
            press(Qt::Key_F3, modifier);
            QVERIFY(!button.isChecked());
            QCOMPARE(fixture.writes.size(), 1);
            fixture.writes.clear();
        }
    }

    // Each field alone, in both units, over random contents: its own bits of the block change, no others.
    void anEditChangesItsOwnRegistersOnly()
    {
        QRandomGenerator random(20);
        for (const int unit : {0, 1}) {
            ConnectedEditView fixture(unit);
            for (const EditedField &edited : editedFields()) {
                QByteArray table(ConnectedEditView::TableSize, '\0');
                for (char &byte : table)
                    byte = char(random.bounded(256));
                table[48] = 0; // with the motor on, the non-volatile group could not be edited
                fixture.connectAndFeed(table);
                auto &control = fixture.child(edited.control);
                dynamic_cast<IZelvarField &>(control).setLocked(false);
                fixture.editSave(edited.group()).click();
                EditedField::change(control, random);
                QVERIFY2(dynamic_cast<IGroupInputComponent &>(control).isDirty(), edited.control);
                const int value = dynamic_cast<IUnitDataField &>(control).value();
                fixture.editSave(edited.group()).click();

                QCOMPARE(fixture.writes.size(), 1);
                QCOMPARE(fixture.writes[0].address, edited.isVolatile() ? 48 : 3);
                QCOMPARE(fixture.writes[0].data.toHex(), edited.block(edited.written(table, value)).toHex());
                fixture.writes.clear();
                fixture.groups().linkDown();
            }
        }
    }

    void pollsLeaveEditsAlone()
    {
        ConnectedEditView fixture;
        auto &id = fixture.child<QSpinBox>("idSpinBox");
        auto &temperature = fixture.child<QDoubleSpinBox>("temperatureLimitDoubleSpinBox");
        QByteArray table = ConnectedEditView::jointTable();
        fixture.connectTo(0x0102);
        fixture.editSave("nv").click();
        QVERIFY(!id.isEnabled()); // until the first values are there
        fixture.feed(table);
        id.setValue(5);
        // Meanwhile somebody else changes another register: it is not shown, but it is not taken back either.
        table[11] = 77;
        fixture.feed(table);
        QCOMPARE(id.text(), QString("5"));
        QCOMPARE(temperature.text(), QString("0"));
        fixture.editSave("nv").click();
        QCOMPARE(int(fixture.writes[0].data[8]), 77);
        fixture.editSave("nv").click(); // before the next poll: this goes on top of the first edit
        temperature.setValue(60);
        fixture.editSave("nv").click();
        QCOMPARE(fixture.writes[1].data.left(9).toHex(), QByteArray("05000002000000003c"));
        fixture.feed(table); // the servo has the last word
        QCOMPARE(id.text(), QString("0"));
    }

    // Every kind of control, every way in which an edit ends.
    void whatIsNotTheServosValueIsMarked()
    {
        enum End { ChangedBack, Cancelled, Locked, Disconnected, DisconnectedPending, Kept, NotKept };
        // clang-format off
        const std::tuple<const char *, const char *, int, int, const char *> rows[] = {
            {"ackResponseTimeSpinBox",         "nv", 5,  100, "200 μs"},
            {"temperatureLimitDoubleSpinBox",  "nv", 11, 80,  "176.0 °F"},
            {"inputModeComboBox",              "nv", 26, 1,   "Position"},
            {"enableMotorCheckBox",            "v",  48, 0,   "off"},
        };
        // clang-format on
        QRandomGenerator random(3);
        for (const auto &[name, group, address, raw, servoHas] : rows) {
            ConnectedEditView fixture(1);
            fixture.groups().expectProofs();
            auto &control = fixture.child(name);
            const QByteArray before = ConnectedEditView::jointTable({{address, 1, quint32(raw)}});
            for (const End end : {ChangedBack, Cancelled, Locked, Disconnected, DisconnectedPending, Kept, NotKept}) {
                const InRow row(QString("%1 %2").arg(name).arg(end));
                fixture.connectAndFeed(before);
                const QString unedited = shown(control);
                const QString tip = control.toolTip();
                fixture.editSave(group).click();
                QVERIFY(!markOf(control));
                EditedField::change(control, random);
                const QString edited = shown(control);
                const QString changed = QString("Changed, not applied. The servo has: ") + servoHas;
                QVERIFY(markOf(control) && markOf(control)->accessibleName() == changed);
                QCOMPARE(control.toolTip(), tip + '\n' + changed);
                QVERIFY(control.accessibleDescription().endsWith(changed));
                QVERIFY(control.rect().contains(markOf(control)->geometry()));

                QVERIFY(fixture.editSave(group).isEnabled());
                if (end == ChangedBack)
                    control.metaObject()->userProperty().write(&control, unedited);
                else if (end == Cancelled)
                    fixture.cancel(group).click();
                else if (end == Locked)
                    dynamic_cast<IZelvarField &>(control).setLocked(true);
                else if (end >= DisconnectedPending)
                    fixture.editSave(group).click();
                QCOMPARE(dynamic_cast<IGroupInputComponent &>(control).isDirty(), end == Disconnected);
                QCOMPARE(shown(control), end < Locked ? unedited : edited);
                QCOMPARE(fixture.editSave(group).isEnabled(), end != ChangedBack && end != Locked);
                QCOMPARE(fixture.writes.size(), end >= DisconnectedPending ? 1 : 0);
                fixture.writes.clear();
                if (end >= DisconnectedPending) {
                    fixture.feed(before); // read before the block was written
                    QCOMPARE(shown(control), edited);
                    QVERIFY(markOf(control) && control.toolTip().contains("\nPending: "));
                }
                if (end >= Kept) {
                    QByteArray after = before;
                    if (end == Kept)
                        after[address] = char(dynamic_cast<IUnitDataField &>(control).value());
                    fixture.groups().endPending();
                    QVERIFY(markOf(control)); // until it is known what the servo has
                    fixture.feed(after);
                    QCOMPARE(dynamic_cast<IUnitDataField &>(control).value(), int(quint8(after[address])));
                }
                if (end == Disconnected || end == DisconnectedPending)
                    fixture.groups().linkDown();
                else
                    QCOMPARE(control.toolTip(), tip);
                QVERIFY(!markOf(control));
                fixture.groups().linkDown();
                QCOMPARE(fixture.editSave(group).text(), QString("Edit"));
                dynamic_cast<IZelvarField &>(control).setLocked(false);
            }
        }
    }

    void aDisabledButtonSaysWhy()
    {
        ConnectedEditView fixture;
        const QByteArray table = ConnectedEditView::jointTable({{48, 1, 1}});
        auto &motor = fixture.child<QCheckBox>("enableMotorCheckBox");
        // clang-format off
        const std::tuple<std::function<void()>, const char *, const char *> steps[] = {
            {[] {},                                               "No servo is connected",      "No servo is connected"   },
            {[&] { fixture.groups().linkUp(); },                  "The servo has not answered", "The servo has not"       },
            {[&] { fixture.connectTo(12); },                      "The parameters of this",     "The parameters of this"  },
            {[&] { fixture.connectTo(0x0102); },                  "",                           ""                        },
            {[&] { fixture.editSave("v").click(); },              "",                           "The first values"        },
            {[&] { fixture.feed(table); motor.click(); motor.click(); }, "", "Nothing has been changed"},
            {[&] { fixture.cancel("v").click(); },                "The motor is on",            ""                        },
            {[&] { fixture.editSave("v").click(); motor.click(); }, "The motor is on", ""                        },
            {[&] { fixture.editSave("v").click(); },              "",                           ""                        },
            {[&] { fixture.groups().setServoReachable(false); },  "The servo listens at",       "The servo listens at"    },
            {[&] { fixture.groups().linkDown(); },                "No servo is connected",      "No servo is connected"   },
        };
        // clang-format on
        for (const auto &[step, nonVolatile, ofVolatile] : steps) {
            const InRow row(QString(nonVolatile) + ", " + ofVolatile);
            step();
            for (const auto &[group, start] : {std::pair("nv", nonVolatile), std::pair("v", ofVolatile)}) {
                const auto &button = fixture.editSave(group);
                const QString why = button.accessibleDescription();
                QCOMPARE(why.left(int(qstrlen(start))), QString(start));
                QCOMPARE(why.isEmpty(), button.isEnabled());
                QVERIFY(button.toolTip().endsWith(why));
            }
        }
    }

    void viewsMayGoInAnyOrder()
    {
        for (const bool isFirstGone : {true, false}) {
            ConnectedEditView fixture;
            auto second = std::make_unique<EditView>();
            (isFirstGone ? fixture.view : second).reset();
            auto *id = (isFirstGone ? second : fixture.view)->findChild<ZelvarSpinBox *>("idSpinBox");
            id->connected();
            const QByteArray table = ConnectedEditView::jointTable({{3, 1, 9}});
            fixture.feed(table); // of a servo that is not known yet
            QCOMPARE(id->text(), QString());
            fixture.connectAndFeed(table);
            QCOMPARE(id->text(), QString("9"));
            (isFirstGone ? second : fixture.view).reset();
            fixture.feed(table);
            ProcessWide<StatusHelper>::instance()->update(1);
            fixture.groups().linkDown();
        }
    }

    void tabReachesEveryInputFromTopToBottom()
    {
        ConnectedEditView fixture;
        fixture.view->grab(); // lays it out
        const QWidget *const first = &fixture.editSave("nv");
        QStringList reached;
        for (const QWidget *next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain()) {
            if (next->focusPolicy() & Qt::TabFocus)
                reached << next->objectName();
        }
        // The form has no place in its order for these; they come where Qt puts them.
        const QRegularExpression unordered("^(def|inputMode|currentFeedforward)");
        QMap<int, int> heights[2]; // by place in the order
        for (const EditedField &field : editedFields()) {
            const int place = reached.indexOf(QLatin1String(field.control));
            QVERIFY2(place >= 0, field.control);
            if (!QString(field.control).contains(unordered))
                heights[field.isVolatile()].insert(place, fixture.child(field.control).y());
        }
        for (const QMap<int, int> &ofGroup : heights)
            QVERIFY(std::is_sorted(ofGroup.begin(), ofGroup.end()));
    }
};

ZELVAR_TEST_MAIN(TestEditGroups)
#include "tst_editgroups.moc"
