// The program as its user has it: the whole window on a simulated bus in a process of its own, over its device file.

#include "tests/support/desk.h"
#include "tests/support/testenvironment.h"

class TestStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

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
        // At rest: in the end there is nothing to handle any more.
        QTRY_VERIFY(!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
        QCOMPARE(desk.watcher.boxes.size(), 1);
        desk.trigger("actionConnect"); // the bus is no longer there
        QCOMPARE(desk.watcher.boxes.size(), 2);
    }
};

ZELVAR_TEST_MAIN(TestStory)
#include "tst_story.moc"
