// The program as its user has it: the whole window on a simulated bus in a process of its own, over its device file.

#include "tests/support/desk.h"
#include "tests/support/testenvironment.h"

#include <ctime>

class TestStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void aStoreThatIsNoUseDoesNotStopTheProgram()
    {
        const std::pair<const char *, QByteArray> rows[] = {
            {"corrupt", QByteArray("[main window settings\n\x00\xFF=\"@ByteArray(", 38)},
            {"binary", QByteArray(4096, '\xFF')},
            {"of a later version", "[General]\nversion=9\n[main window settings]\nservoId=1, 2\n"
                                   "geometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x9)\npollingInterval=@Size(10 20)\n"},
            {"a folder in its place", {}},
        };
        const QString path = QSettings("Ostravel", "Zelvar Servo Manager").fileName();
        for (const auto &[name, content] : rows) {
            const InRow row(name);
            QFile::remove(path);
            QVERIFY(QDir().mkpath(content.isEmpty() ? path : QFileInfo(path).path()));
            if (!content.isEmpty()) {
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
                QVERIFY(file.setPermissions(QFile::ReadOwner));
            }
            {
                Desk desk(0);
                QVERIFY(desk.connects());
                desk.window->close();
            }
            content.isEmpty() ? QDir(path).removeRecursively() : QFile::remove(path);
        }
    }

    void anAx12ShowsWhatItHas()
    {
        Desk desk(5);
        QVERIFY(desk.connects());
        QTRY_COMPARE(desk.text("modelNumberLineEdit"), QString("0.12"));
        QTRY_VERIFY(!desk.text("firmwareVersionLineEdit").isEmpty());
        QCOMPARE(desk.find<QTableWidget>("eepromRegisterBank1Widget")->rowCount(), 0);
        QVERIFY(!desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QVERIFY(!desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
        for (const auto *box : desk.find<QTabWidget>("tabWidget")->findChildren<QAbstractSpinBox *>())
            QVERIFY2(box->text().isEmpty() && !box->isEnabled(), qPrintable(box->objectName()));
    }

    void oneShotOperationsLeaveTheServoWhereItWas()
    {
        Desk desk(3);
        desk.trigger("actionReset");
        desk.trigger("actionReboot"); // after which it is silent for a while
        QCOMPARE(desk.watcher.boxes,
                 (QStringList{BoxWatcher::success("Factory reset of Zelvar servo id:3 was successful"),
                              BoxWatcher::success("Zelvar servo id:3 was rebooted successfully")}));
        QVERIFY(desk.connects());
    }

    void aKilledSimulatorEndsInOneBoxAndAtRest()
    {
        Desk desk(3);
        QVERIFY(desk.connects());
        desk.simulator.kill();
        QTRY_COMPARE(desk.status(), QString("Disconnected"));
        QTRY_COMPARE(desk.watcher.boxes.size(), 1);
        QVERIFY(desk.watcher.boxes[0].contains("was lost"));

        // At rest: hardly any processor time is used while the event loop runs on.
        const std::clock_t before = std::clock();
        bool isOver = false;
        QTimer::singleShot(300, this, [&isOver] { isOver = true; });
        QTRY_VERIFY(isOver);
        QVERIFY(std::clock() - before < CLOCKS_PER_SEC * 3 / 20);
        QCOMPARE(desk.watcher.boxes.size(), 1);
        desk.trigger("actionConnect"); // the bus is no longer there
        QCOMPARE(desk.watcher.boxes.size(), 2);
    }

    void anEditReachesTheServo()
    {
        Desk desk(3);
        QVERIFY(desk.connects());
        QTRY_VERIFY(!desk.text("actualPositionLineEdit").isEmpty());
        desk.click("vParamsEditSaveToolButton");
        auto *target = desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox");
        QVERIFY(target->isEnabled());
        QVERIFY(!desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
        target->setValue(1.0);
        desk.click("vParamsEditSaveToolButton");

        constexpr int TargetPositionRow = 16;                    // in "Volatile bank 1"
        const QStringList bytes{"0x8b", "0x02", "0x00", "0x00"}; // 651 counts
        desk.showTab(1);
        for (int byte = 0; byte < 4; ++byte)
            QTRY_COMPARE(desk.cell("ramRegisterBank1TableWidget", TargetPositionRow + byte), bytes[byte]);
        QTRY_COMPARE(desk.cell("eepromRegisterBank1Widget", 3), QString("0x03"));
        desk.showTab(0);
        QTRY_COMPARE(target->value(), 0.999); // what the servo has: whole counts, none rounded up
        desk.trigger("actionDisconnect");
        QCOMPARE(desk.status(), QString("Disconnected"));
        QCOMPARE(desk.watcher.boxes, QStringList());
    }

    void anAppliedAddressIsWhereTheNextConnectionGoes()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("state");
        const auto state = [&path] {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        Desk desk(3, {"--state", path});
        const QByteArray before = state();
        QVERIFY(desk.connects());
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QTRY_COMPARE(desk.find<QSpinBox>("idSpinBox")->value(), 3);
        desk.click("nvParamsEditSaveToolButton");
        desk.find<QSpinBox>("idSpinBox")->setValue(9);
        desk.find<QComboBox>("baudRateComboBox")->setCurrentText("115200");
        desk.click("nvParamsEditSaveToolButton");
        QTRY_VERIFY(desk.status().contains("address 9 and 115200 baud"));
        for (const char *button : {"nvParamsEditSaveToolButton", "vParamsEditSaveToolButton"})
            QVERIFY(!desk.find<QToolButton>(button)->isEnabled()); // it would go to where the servo is no more
        QTRY_VERIFY(state() != before);                            // the servo has it: no more on its way
        desk.window.reset();
        desk.window = std::make_unique<MainWindow>(nullptr); // it is stored, too
        desk.window->show();
        QVERIFY(desk.connects());
        QTRY_COMPARE(desk.find<QSpinBox>("idSpinBox")->value(), 9);
        QVERIFY(desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
    }

    void theMotorMovesAndLocksTheNonVolatileParameters()
    {
        Desk desk(3);
        QVERIFY(desk.connects());
        QTRY_VERIFY(!desk.text("actualPositionLineEdit").isEmpty());
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        desk.click("vParamsEditSaveToolButton");
        desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(true);
        desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(0.5);
        desk.click("vParamsEditSaveToolButton");
        QTRY_VERIFY(desk.find<QCheckBox>("isMovingCheckBox")->isChecked());
        QTRY_VERIFY(!desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(desk.text("actualPositionLineEdit").toDouble() - 0.5) < 0.02, 20000);
    }
};

ZELVAR_TEST_MAIN(TestStory)
#include "tst_story.moc"
