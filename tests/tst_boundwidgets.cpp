#include "tests/support/connectededitview.h"

#include "widgets/fittedlabel.h"
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

/** Whether a list lets its placeholder, which is its last entry, be chosen. */
bool offersPlaceholder(const QWidget &control)
{
    const auto *list = qobject_cast<const QComboBox *>(&control);
    if (!list)
        return false;
    const QModelIndex last = list->model()->index(list->count() - 1, 0);
    return !qobject_cast<QListView *>(list->view())->isRowHidden(last.row()) ||
           last.flags().testFlag(Qt::ItemIsEnabled);
}

/** Makes @p locale the one of the program, until it goes. */
struct Speaking
{
    explicit Speaking(const QLocale &locale) { QLocale::setDefault(locale); }
    ~Speaking() { QLocale::setDefault(QLocale::c()); }
    Q_DISABLE_COPY(Speaking)
};

const QLocale German(QLocale::German, QLocale::Germany);

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
            QVERIFY(!control.isEnabled() && !offersPlaceholder(control));

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
        // operating mode in which it is in use, control, its register and size, raw value, shown in the two units
        // clang-format off
        const std::tuple<int, const char *, int, int, quint32, const char *, const char *> rows[] = {
            {0, "baudRateComboBox",                         4,  1, 16,         "115200",            "115200"           },
            {0, "targetTorqueDoubleSpinBox",                84, 2, 0x05DC,     "1.50",              "15.30"            },
            {0, "targetTorqueDirectionComboBox",            84, 2, 0x05DC,     "Counter-clockwise", "Counter-clockwise"},
            {1, "actualPositionLineEdit",                   86, 4, 0xFFFFFFFF, "-0.002",            "-0.09"            },
            {1, "targetAngularVelocityDoubleSpinBox",       82, 2, 0x83E8,     "1.00",              "9.5"              },
            {1, "targetAngularVelocityDirectionComboBox",   82, 2, 0x83E8,     "Clockwise",         "Clockwise"        },
            {2, "modelNumberLineEdit",                      0,  2, 0x0A05,     "10.5",              "10.5"             },
            {2, "firmwareVersionLineEdit",                  2,  1, 21,         "21",                "21"               },
            {2, "idSpinBox",                                3,  1, 9,          "9",                 "9"                },
            {2, "baudRateComboBox",                         4,  1, 77,         "-",                 "-"                },
            {2, "ackResponseTimeSpinBox",                   5,  1, 250,        "500",               "500"              },
            {2, "operatingModeComboBox",                    6,  1, 2,          "Joint",             "Joint"            },
            {2, "clockwiseLimitDoubleSpinBox",              7,  2, 0xFC00,     "-1.572",            "-90.04"           },
            {2, "counterClockwiseLimitDoubleSpinBox",       9,  2, 2047,       "3.142",             "180.00"           },
            {2, "temperatureLimitDoubleSpinBox",            11, 1, 70,         "70",                "158.0"            },
            {2, "minVoltageLimitDoubleSpinBox",             12, 1, 95,         "9.5",               "9.5"              },
            {2, "maxVoltageLimitDoubleSpinBox",             13, 1, 160,        "16.0",              "16.0"             },
            {2, "quadratureCurrentLimitDoubleSpinBox",      14, 2, 3000,       "3.00",              "30.59"            },
            {2, "angularVelocityLimitDoubleSpinBox",        16, 2, 2000,       "2.00",              "19.1"             },
            {2, "accelerationLimitDoubleSpinBox",           18, 2, 24000,      "24.00",             "24.00"            },
            {2, "hornPositionOffsetDoubleSpinBox",          20, 4, 0xFFFFF800, "-3.142",            "-180.00"          },
            {2, "movingThresholdDoubleSpinBox",             24, 2, 20,         "0.02",              "0.2"              },
            {2, "inputModeComboBox",                        26, 1, 0,          "Trajectory",        "Trajectory"       },
            {2, "defPositionProportionalTermDoubleSpinBox", 27, 2, 200,        "20.0",              "20.0"             },
            {2, "defVelocityFeedforwardTermDoubleSpinBox",  29, 2, 1234,       "1.234",             "1.234"            },
            {2, "defCurrentFeedforwardTermDoubleSpinBox",   31, 2, 900,        "0.900",             "0.900"            },
            {2, "defVelocityIntegralTermDoubleSpinBox",     33, 2, 500,        "0.500",             "0.500"            },
            {2, "defVelocityProportionalTermDoubleSpinBox", 35, 2, 1250,       "1.250",             "1.250"            },
            {2, "defAngularVelocityProfileDoubleSpinBox",   37, 2, 1000,       "1.000",             "1.000"            },
            {2, "defAccelerationProfileDoubleSpinBox",      39, 2, 4000,       "4.000",             "4.000"            },
            {2, "positionProportionalTermDoubleSpinBox",    54, 2, 2000,       "200.0",             "200.0"            },
            {2, "velocityFeedforwardTermDoubleSpinBox",     56, 2, 16383,      "16.383",            "16.383"           },
            {2, "currentFeedforwardTermDoubleSpinBox",      58, 2, 1000,       "1.000",             "1.000"            },
            {2, "velocityIntegralTermDoubleSpinBox",        60, 2, 4000,       "4.000",             "4.000"            },
            {2, "velocityProportionalTermDoubleSpinBox",    62, 2, 1,          "0.001",             "0.001"            },
            {2, "angularVelocityProfileDoubleSpinBox",      68, 2, 2000,       "2.000",             "2.000"            },
            {2, "accelerationProfileDoubleSpinBox",         70, 2, 48000,      "48.000",            "48.000"           },
            {2, "targetPositionDoubleSpinBox",              78, 4, 1024,       "1.571",             "90.00"            },
            {2, "actualPositionLineEdit",                   86, 4, 2048,       "3.142",             "180.00"           },
            {2, "actualAngularVelocityLineEdit",            90, 2, 1047,       "1.05",              "10.0"             },
            {2, "actualTorqueLineEdit",                     92, 2, 500,        "0.50",              "5.10"             },
            {2, "actualVoltageLineEdit",                    94, 1, 119,        "11.9",              "11.9"             },
            {2, "actualQuadratureCurrentLineEdit",          95, 2, 334,        "0.334",             "334"              },
            {2, "actualTemperatureLineEdit",                97, 1, 41,         "41",                "105.8"            },
            {2, "isMovingCheckBox",                         99, 1, 1,          "true",              "true"             },
        };
        // clang-format on
        for (const int mode : {0, 1, 2}) {
            QByteArray table = ConnectedEditView::jointTable({{6, 1, quint32(mode)}});
            for (const auto &[rowMode, name, address, size, raw, inFirstUnit, inSecondUnit] : rows) {
                if (rowMode == mode)
                    ConnectedEditView::put(table, address, size, raw);
            }
            ConnectedEditView fixture;
            const auto &label = fixture.child<QLabel>("targetPositionLabel");
            const auto &angle = fixture.child<QDoubleSpinBox>("targetPositionDoubleSpinBox");
            for (const bool isFirstUnit : {true, false}) {
                fixture.connectAndFeed(table);
                fixture.chooseUnits(1); // for the next connection
                fixture.feed(table);
                QCOMPARE(label.text(),
                         QString(isFirstUnit ? "Target position (radians):" : "Target position (degrees):"));
                QCOMPARE(angle.singleStep(), isFirstUnit ? 0.001533980787885254 : 0.0); // one count
                for (const auto &[rowMode, name, address, size, raw, inFirstUnit, inSecondUnit] : rows) {
                    const InRow row(name);
                    if (rowMode == mode)
                        QCOMPARE(shown(fixture.child(name)), QVariant(isFirstUnit ? inFirstUnit : inSecondUnit));
                }
                fixture.groups().linkDown();
            }
        }
    }

    // What has no unit has a decimal place for each step of its register, and the form's steps.
    void everyRawValueWithoutAUnitCanBeTyped()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable());
        const std::pair<const char *, double> rows[] = {{"defAccelerationProfileDoubleSpinBox", 1.0},
                                                        {"velocityFeedforwardTermDoubleSpinBox", 0.01},
                                                        {"defPositionProportionalTermDoubleSpinBox", 1.0},
                                                        {"velocityIntegralTermDoubleSpinBox", 1.0}};
        for (const auto &[name, step] : rows) {
            const InRow row(name);
            auto &box = fixture.child<ZelvarDoubleSpinBox>(name);
            QCOMPARE(box.singleStep(), step);
            const int greatest = DeviceHelper::currentDevice()->limits(name).rawMax;
            for (int raw = 0; raw <= greatest; ++raw) {
                static_cast<IUnitDataField &>(box).setValue(raw);
                box.QDoubleSpinBox::setValue(box.valueFromText(box.text()));
                QCOMPARE(box.value(), raw);
            }
        }
        QCOMPARE(fixture.child<QSpinBox>("idSpinBox").singleStep(), 1);
    }

    void aLockedListHidesItsValue()
    {
        ConnectedEditView fixture;
        auto &list = fixture.child("inputModeComboBox");
        for (const auto &[mode, isShown] : {std::pair(2u, true), {1u, false}}) {
            QImage looks[2];
            for (const quint32 inputMode : {0u, 1u}) {
                fixture.connectAndFeed(ConnectedEditView::jointTable({{6, 1, mode}, {26, 1, inputMode}}));
                looks[inputMode] = list.grab().toImage();
            }
            QCOMPARE(looks[0] != looks[1], isShown);
        }
    }

    void statusBoxesShowTheErrorByteAndFollowTheLink()
    {
        ConnectedEditView fixture;
        const char *const boxes[] = {"process",    "instruction", "checksum", "range",
                                     "dataLength", "dataLimit",   "access",   "alert"};
        const auto box = [&](int number) -> QCheckBox & {
            return fixture.child<QCheckBox>(qPrintable(QString(boxes[number - 1]) + "StatusCheckBox"));
        };
        QStringList quiet;
        for (int number = 1; number <= 8; ++number)
            quiet.append(box(number).styleSheet());
        for (const bool isConnected : {true, false}) {
            isConnected ? fixture.groups().linkUp() : fixture.groups().linkDown();
            QVERIFY(!box(8).isChecked());
            for (const int error : {0, 1, 2, 3, 4, 5, 6, 7, 0x82}) { // an alert hides the number
                ProcessWide<StatusHelper>::instance()->update(qint8(error));
                for (int number = 1; number <= 8; ++number) {
                    const bool isOn = number == qMin(error, 8);
                    QCOMPARE(box(number).isChecked(), isOn);
                    QCOMPARE(box(number).styleSheet() != quiet[number - 1], isOn && isConnected);
                }
            }
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

    // Typed into a field that shows 1.534 (1,534 in German) and holds -1602.211 to 1602.211, or 200 in 0 to 508; what
    // it shows then, what it applies (nothing when it is marked), and what it shows after Enter or without the focus.
    void typedText()
    {
        struct Typing
        {
            const char *name;
            QLocale locale;
            QString control;
            const char *typed;
            const char *shownWhileTyped;
            QVariant applied;
            const char *shownThen;
        };
        const QLocale c = QLocale::c();
        const QString angle = "targetPositionDoubleSpinBox";
        const QString delay = "ackResponseTimeSpinBox";
        // clang-format off
        const Typing rows[] = {
            {"comma",            German, angle, "2,5",         "2,5",         2.5,    "2,500"    },
            {"point",            German, angle, "2.5",         "2,5",         2.5,    "2,500"    },
            {"both",             German, angle, "1.234,5",     "1234,5",      1234.5, "1234,500" },
            {"comma in English", c,      angle, "1,2",         "1.2",         1.2,    "1.200"    },
            {"finer than shown", c,      angle, "1.23456",     "1.23456",     1.235,  "1.235"    },
            {"unit",             c,      angle, "2 rad",       "2 rad",       {},     "2 rad"    },
            {"sign alone",       c,      angle, "-",           "-",           {},     "-"        },
            {"beyond",           c,      angle, "-9999",       "-9999",       {},     "-1602.211"},
            {"nothing",          c,      angle, "\b",          "",            {},     "1.534"    },
            {"whole",            c,      delay, "100",         "100",         100,    "100"      },
            {"not whole",        German, delay, "100,5",       "100,5",       {},     "100,5"    },
            {"far beyond",       c,      delay, "99999999999", "99999999999", {},     "508"      },
        };
        // clang-format on
        for (const Typing &row : rows) {
            for (const bool isEntered : {true, false}) {
                const InRow inRow(QString("%1, entered: %2").arg(row.name).arg(isEntered));
                const Speaking speaking(row.locale);
                ConnectedEditView fixture(ConnectedEditView::jointTable({{78, 4, 1000}, {5, 1, 100}}));
                fixture.view->show();
                auto &field = fixture.child<QAbstractSpinBox>(qPrintable(row.control));
                auto &input = dynamic_cast<IGroupInputComponent &>(field);
                fixture.editSave(row.control == delay ? "nv" : "v").setChecked(true);
                fixture.view->activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(fixture.view.get()));
                field.setFocus();
                enter(field, QString(row.typed));
                QCOMPARE(field.text(), QString(row.shownWhileTyped));
                QCOMPARE(input.isDirty(), row.applied.isValid());
                if (row.applied.isValid())
                    QCOMPARE(field.property("value"), row.applied);
                if (isEntered)
                    QTest::keyClick(&field, Qt::Key_Return);
                else
                    field.clearFocus();
                QCOMPARE(field.text(), QString(row.shownThen));
                const bool isCorrected = QString(row.name).contains("beyond");
                QCOMPARE(input.isDirty(), row.applied.isValid() || isCorrected);
                if (isCorrected)
                    QVERIFY2(QToolTip::text().contains("Range: "), qPrintable(QToolTip::text()));
                QToolTip::hideText();
            }
        }
    }

    void germanDisplays()
    {
        const Speaking speaking(German);
        const ConnectedEditView fixture(ConnectedEditView::jointTable({{86, 4, 1000000}}));
        QCOMPARE(fixture.child<QLineEdit>("modelNumberLineEdit").text(), QString("0,0"));
        QCOMPARE(fixture.child<QLineEdit>("actualPositionLineEdit").text(), QString("1.533,981"));
    }

    // What is no number is marked until the edit ends, also when the tab is left and shown again, and never applied.
    void unfinishedTextIsNoEdit()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable({{78, 4, 1024}}));
        fixture.view->show();
        auto &target = fixture.child<ZelvarDoubleSpinBox>("targetPositionDoubleSpinBox");
        fixture.editSave("v").setChecked(true);
        enter(target, QString("2"));
        QVERIFY(fixture.editSave("v").isEnabled());
        const QImage unmarked = target.grab().toImage();
        QTest::keyClicks(target.findChild<QLineEdit *>(), "x");
        QVERIFY(!fixture.editSave("v").isEnabled());
        QVERIFY(target.grab().toImage().pixel(0, 5) != unmarked.pixel(0, 5));
        fixture.view->hide();
        fixture.view->show();
        QCOMPARE(target.text(), QString("2x"));
        QVERIFY(!fixture.editSave("v").isEnabled());
        fixture.cancel("v").click();
        QCOMPARE(target.text(), QString("1.571"));
        fixture.editSave("v").setChecked(true);
        enter(target, QString("2\r"));
        QVERIFY(fixture.editSave("v").isChecked());
        QVERIFY(fixture.writes.isEmpty()); // Enter does not apply
    }

    void limitsThatCrossAreToldBeforeApply()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable({{12, 1, 95}, {13, 1, 160}, {9, 2, 2047}}));
        fixture.editSave("nv").setChecked(true);
        const std::tuple<const char *, const char *, double, double> rows[] = {
            {"minVoltageLimitDoubleSpinBox", "maxVoltageLimitDoubleSpinBox", 16.5, 16.0},
            {"counterClockwiseLimitDoubleSpinBox", "clockwiseLimitDoubleSpinBox", -1.0, 0.0}};
        for (const auto &[edited, counterpart, crossing, fitting] : rows) {
            const InRow row(edited);
            auto &limit = fixture.child<QDoubleSpinBox>(edited);
            for (const bool isCrossed : {true, false}) {
                limit.setValue(isCrossed ? crossing : fitting);
                for (const char *name : {edited, counterpart}) {
                    QCOMPARE(fixture.child(name).toolTip().contains("limit is above the") ||
                                 fixture.child(name).toolTip().contains("voltage is above the"),
                             isCrossed);
                    QCOMPARE(fixture.child(name).accessibleDescription().contains("is above the"), isCrossed);
                }
            }
        }
    }

    void listsShowAllOfTheirEntries()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable());
        fixture.view->show();
        fixture.editSave("nv").setChecked(true);
        for (const char *name : {"baudRateComboBox", "operatingModeComboBox", "inputModeComboBox"}) {
            auto &list = fixture.child<QComboBox>(name);
            list.showPopup();
            QTRY_VERIFY(list.view()->isVisible());
            const QRect seen = list.view()->viewport()->rect();
            for (int row = 0; row < list.count() - 1; ++row) {
                const QRect entry = list.view()->visualRect(list.model()->index(row, 0));
                QVERIFY2(seen.contains(entry), qPrintable(QString("%1 %2").arg(name).arg(row)));
            }
            list.hidePopup();
        }
    }

    // The left and right edges of the text stay clear of the frame, whatever the font.
    void valuesAreNeverClipped()
    {
        const QFont usual = QApplication::font();
        for (const int points : {9, 12, 16}) {
            QFont font = usual;
            font.setPointSize(points);
            QApplication::setFont(font);
            ConnectedEditView fixture(ConnectedEditView::jointTable({{86, 4, quint32(-1000000)}}));
            fixture.view->resize(1134, 860);
            fixture.view->show();
            auto &value = fixture.child<QLineEdit>("actualPositionLineEdit");
            QCOMPARE(value.text(), QString("-1533.981"));
            const QImage look = value.grab().toImage();
            const QRgb ground = look.pixel(look.width() / 2, 3);
            for (int y = 4; y < look.height() - 4; ++y) {
                QCOMPARE(look.pixel(2, y), ground);
                QCOMPARE(look.pixel(look.width() - 3, y), ground);
            }
        }
        QApplication::setFont(usual);
    }

    void captionsAreNarrowedThenMadeSmallerThenCut()
    {
        QWidget window;
        FittedLabel caption(&window);
        caption.setText("Acceleration limit (rad/s²):");
        window.show();
        int whole = 0;
        for (int width = caption.sizeHint().width(); width > 20; --width) {
            caption.resize(width, caption.sizeHint().height());
            const QImage look = caption.grab().toImage();
            for (int y = 0; y < look.height(); ++y)
                QCOMPARE(look.pixel(width - 1, y), look.pixel(width - 1, 0));
            whole = caption.toolTip().isEmpty() ? width : whole;
            QCOMPARE(caption.toolTip(), whole == width ? QString() : caption.text());
        }
        QVERIFY(whole > 20 && whole < caption.minimumSizeHint().width());
    }

    void aStepIsWorthWhatItShows()
    {
        ConnectedEditView fixture(ConnectedEditView::jointTable({{78, 4, 100}, {68, 2, 2}}));
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
        ConnectedEditView fixture(ConnectedEditView::jointTable({{78, 4, 1024}}));
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
