// The program as its user has it: the whole window on a simulated bus in a process of its own, over its device file.

#include "tests/support/desk.h"
#include "tests/support/testenvironment.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

#include <sys/resource.h>

namespace {

constexpr int TargetPositionRow = 16; // in "Volatile bank 1"

} // namespace

class TestStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void aStoreThatIsNoUseDoesNotStopTheProgram_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("corrupt") << QByteArray("[main window settings\n\x00\xFF=\"@ByteArray(", 38);
        QTest::newRow("binary") << QByteArray(4096, '\xFF');
        QTest::newRow("of a later version") << QByteArray("[General]\nversion=9\n[main window settings]\n"
                                                          "geometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x9)\n"
                                                          "servoId=1, 2\npollingInterval=@Size(10 20)\n");
        QTest::newRow("a folder in its place") << QByteArray();
    }

    void aStoreThatIsNoUseDoesNotStopTheProgram()
    {
        QFETCH(QByteArray, content);
        const QString path = QSettings("Ostravel", "Zelvar Servo Manager").fileName();
        QFile::remove(path);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        if (content.isEmpty()) {
            QVERIFY(QDir().mkpath(path));
        } else {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
            QVERIFY(file.setPermissions(QFile::ReadOwner));
        }
        {
            SimulatorProcess simulator;
            MainWindow window(nullptr);
            window.show();
            window.findChild<QAction *>("actionConnect")->trigger();
            QTRY_COMPARE(window.statusBar()->currentMessage(), QString("Connected"));
            window.close();
        }
        content.isEmpty() ? QDir(path).removeRecursively() : QFile::remove(path);
    }

    void registersLive()
    {
        Desk desk(3);
        QVERIFY(!desk.simulator.name().isEmpty());
        desk.showTab(1);
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.status(), QString("Connected"));
        QTRY_COMPARE(desk.cell("eepromRegisterBank1Widget", 3), QString("0x03"));
        QCOMPARE(desk.cell("eepromRegisterBank1Widget", 0), QString("0x02"));
        desk.trigger("actionDisconnect");
        QCOMPARE(desk.status(), QString("Disconnected"));
        QCOMPARE(desk.find<QTableWidget>("eepromRegisterBank1Widget")->rowCount(), 0);
        QCOMPARE(desk.watcher.boxes, QStringList());
    }

    void anAx12ShowsWhatItHas()
    {
        Desk desk(5);
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.status(), QString("Connected"));
        QCOMPARE(desk.find<QTableWidget>("eepromRegisterBank1Widget")->rowCount(), 0);
        QTRY_COMPARE(desk.text("modelNumberLineEdit"), QString("0.12"));
        QTRY_VERIFY(!desk.text("firmwareVersionLineEdit").isEmpty());
        QVERIFY(!desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QVERIFY(!desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
    }

    void oneShotOperations_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("servoId");
        QTest::addColumn<QString>("box");
        QTest::newRow("reboot") << "actionReboot" << 3
                                << BoxWatcher::success("Zelvar servo id:3 was rebooted successfully");
        QTest::newRow("reset") << "actionReset" << 3
                               << BoxWatcher::success("Factory reset of Zelvar servo id:3 was successful");
        QTest::newRow("reset of an AX-12") << "actionReset" << 5
                                           << BoxWatcher::success("Factory reset of Zelvar servo id:5 was successful");
        QTest::newRow("nobody there") << "actionReboot" << 9 << QString();
    }

    void oneShotOperations()
    {
        QFETCH(QString, action);
        QFETCH(int, servoId);
        QFETCH(QString, box);
        Desk desk(servoId);
        desk.trigger(qPrintable(action));
        QCOMPARE(desk.watcher.boxes, box.isEmpty() ? QStringList() : QStringList{box});
        if (servoId != 3)
            return;
        desk.trigger("actionConnect"); // the servo kept its address and baud rate
        QTRY_COMPARE(desk.status(), QString("Connected"));
    }

    void aKilledSimulatorEndsInOneBoxAndAtRest()
    {
        Desk desk(3);
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.status(), QString("Connected"));
        desk.simulator.kill();
        QTRY_COMPARE(desk.status(), QString("Disconnected"));
        QTRY_COMPARE(desk.watcher.boxes.size(), 1);
        QVERIFY(desk.watcher.boxes[0].contains("was lost"));

        // At rest: hardly any processor time is used while the event loop runs on.
        const auto processorMicroseconds = [] {
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000000L + usage.ru_utime.tv_usec +
                   usage.ru_stime.tv_usec;
        };
        const long before = processorMicroseconds();
        bool isOver = false;
        QTimer::singleShot(300, this, [&isOver] { isOver = true; });
        QTRY_VERIFY(isOver);
        QVERIFY(processorMicroseconds() - before < 150000);
        QCOMPARE(desk.watcher.boxes.size(), 1);
        desk.trigger("actionConnect"); // the bus is no longer there
        QCOMPARE(desk.watcher.boxes.size(), 2);
    }

    void closingInTheMiddleOfPolling()
    {
        Desk desk(0);
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.status(), QString("Connected"));
        desk.window->close();
        desk.window.reset();
    }

    void anEditReachesTheServoAndNothingElseChanges()
    {
        Desk desk(3);
        desk.trigger("actionConnect");
        QTRY_VERIFY(!desk.text("actualPositionLineEdit").isEmpty());
        desk.showTab(1);
        QTRY_COMPARE(desk.cell("ramRegisterBank1TableWidget", TargetPositionRow), QString("0x00"));
        const auto registers = [&desk] {
            QStringList cells;
            for (const char *table : {"eepromRegisterBank1Widget", "eepromRegisterBank2Widget",
                                      "ramRegisterBank1TableWidget"}) {
                for (int row = 0; row < desk.find<QTableWidget>(table)->rowCount(); ++row)
                    cells.append(desk.cell(table, row));
            }
            return cells;
        };
        QStringList expected = registers();
        desk.showTab(0);

        desk.click("vParamsEditSaveToolButton");
        auto *target = desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox");
        QVERIFY(target->isEnabled());
        QVERIFY(!desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
        target->setValue(1.0);
        desk.click("vParamsEditSaveToolButton");

        const int raw = int(1.0 * 4096 / 6.283185307178);
        const int index = 27 + 14 + TargetPositionRow; // behind the rows of the non-volatile banks
        for (int byte = 0; byte < 4; ++byte)
            expected[index + byte] = QString("0x%1").arg((raw >> (8 * byte)) & 0xFF, 2, 16, QLatin1Char('0'));
        desk.showTab(1);
        QTRY_COMPARE(registers(), expected);
        desk.showTab(0);
        QTRY_COMPARE(target->value(), 0.999); // what the servo has: whole counts, none rounded up
    }

    void theMotorMovesAndLocksTheNonVolatileParameters()
    {
        Desk desk(3);
        desk.trigger("actionConnect");
        QTRY_VERIFY(!desk.text("actualPositionLineEdit").isEmpty());
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        desk.click("vParamsEditSaveToolButton");
        desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(true);
        desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(0.5);
        desk.click("vParamsEditSaveToolButton");
        QTRY_VERIFY(desk.find<QCheckBox>("isMovingCheckBox")->isChecked());
        QTRY_VERIFY(!desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(desk.text("actualPositionLineEdit").toDouble() - 0.5) < 0.02, 20000);

        desk.click("vParamsEditSaveToolButton");
        desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(false);
        desk.click("vParamsEditSaveToolButton");
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
    }

    void anAppliedAddressIsWhereTheNextConnectionGoes()
    {
        Desk desk(3);
        desk.trigger("actionConnect");
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QTRY_COMPARE(desk.find<QSpinBox>("idSpinBox")->value(), 3);
        desk.click("nvParamsEditSaveToolButton");
        desk.find<QSpinBox>("idSpinBox")->setValue(9);
        desk.find<QComboBox>("baudRateComboBox")->setCurrentText("115200");
        desk.click("nvParamsEditSaveToolButton");
        QTRY_VERIFY(desk.status().contains("address 9 and 115200 baud"));
        desk.window.reset();
        desk.window = std::make_unique<MainWindow>(nullptr); // it is stored, too
        desk.window->show();
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.status(), QString("Connected"));
        QTRY_COMPARE(desk.find<QSpinBox>("idSpinBox")->value(), 9);
    }

    void theOperatingModeMovesTheLocks()
    {
        Desk desk(3);
        desk.trigger("actionConnect");
        QTRY_VERIFY(desk.find<QToolButton>("nvParamsEditSaveToolButton")->isEnabled());
        QTRY_COMPARE(desk.find<QComboBox>("operatingModeComboBox")->currentText(), QString("Joint"));
        desk.click("nvParamsEditSaveToolButton");
        desk.find<QComboBox>("operatingModeComboBox")->setCurrentText("Wheel");
        desk.click("nvParamsEditSaveToolButton");
        desk.click("vParamsEditSaveToolButton");
        QTRY_VERIFY(desk.find<QDoubleSpinBox>("targetAngularVelocityDoubleSpinBox")->isEnabled());
        QVERIFY(!desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->isEnabled());
        desk.click("vParamsCancelToolButton");
        QVERIFY(!desk.find<QDoubleSpinBox>("targetAngularVelocityDoubleSpinBox")->isEnabled());
    }
};

ZELVAR_TEST_MAIN(TestStory)
#include "tst_story.moc"
