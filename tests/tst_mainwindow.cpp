// The window's sequences: connect, disconnect, reboot and factory reset, with their boxes, over a serial port that does
// what the test says.

#include "app/mainwindow.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/boxwatcher.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"
#include "views/registerview.h"
#include "widgets/uigrouphelper.h"

#include <QAction>
#include <QSpinBox>
#include <QSettings>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolBar>

namespace {

const QString Group = "main window settings";

QByteArray reply(int dataSize, int byte5, char error = 0)
{
    QByteArray bytes(dataSize + 11, '\0');
    bytes[5] = static_cast<char>(byte5);
    bytes[8] = error;
    return bytes;
}

/** A window on a fake port, and what a test looks at. */
struct Fixture
{
    std::shared_ptr<FakeSerialPort> port = std::make_shared<FakeSerialPort>();
    BoxWatcher watcher;
    std::unique_ptr<MainWindow> window =
        std::make_unique<MainWindow>(nullptr, std::make_shared<SerialHelper>(port));

    QAction *action(const char *name) const { return window->findChild<QAction *>(name); }
    void trigger(const char *name) const { action(name)->trigger(); }
    QString status() const { return window->statusBar()->currentMessage(); }
    QSpinBox *spinBox(int index) const
    {
        return window->findChild<QToolBar *>("toolBar")->findChildren<QSpinBox *>()[index];
    }
    QSpinBox *interval() const { return spinBox(0); }
    QSpinBox *servoId() const { return spinBox(1); }
    QStringList enabledActions() const
    {
        QStringList names;
        for (const char *name : {"actionConnect", "actionDisconnect", "actionSettings", "actionQuit", "actionAbout",
                                 "actionSearch", "actionReboot", "actionReset"}) {
            if (action(name)->isEnabled())
                names.append(QString(name).mid(6));
        }
        if (interval()->isEnabled() && servoId()->isEnabled())
            names.append("spin boxes");
        return names;
    }
    QStringList operations() const
    {
        QStringList names;
        for (const auto &call : port->calls)
            names.append(call.operation);
        return names;
    }
    int rows() const { return window->findChild<QTableWidget *>("eepromRegisterBank1Widget")->rowCount(); }
    void connectToServo(int byte5 = 6)
    {
        trigger("actionConnect");
        port->deliver(reply(2, byte5));
        QTRY_VERIFY(operations().count("read") >= 2);
    }
};

const QStringList WhenDisconnected{"Connect", "Settings", "Quit", "About", "Search", "Reboot", "Reset", "spin boxes"};
const QStringList WhenConnected{"Disconnect", "Quit", "About"};

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void itStartsDisconnected()
    {
        Fixture fixture;
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.interval()->value(), 500);
        QCOMPARE(fixture.servoId()->value(), 0);
        QVERIFY(QSettings("Ostravel", "Zelvar Servo Manager").allKeys().isEmpty());
    }

    void theToolBarRemembers()
    {
        {
            Fixture fixture;
            fixture.interval()->setValue(40);
            fixture.servoId()->setValue(253);
            fixture.window->close();
        }
        Settings settings(Group);
        QCOMPARE(settings.value("servoId", 0).toInt(), 253);
        QVERIFY(!settings.value("geometry", {}).toByteArray().isEmpty());
        QVERIFY(!settings.value("windowState", {}).toByteArray().isEmpty());
        Fixture again;
        QCOMPARE(again.interval()->value(), 40);
        QCOMPARE(again.servoId()->value(), 253);
        QMetaObject::invokeMethod(again.window.get(), "on_updateId", Q_ARG(int, 7)); // as the search hands it over
        QCOMPARE(settings.value("servoId", 0).toInt(), 7);
    }

    void garbageInTheStoreIsNotBelieved_data()
    {
        QTest::addColumn<QVariant>("interval");
        QTest::addColumn<QVariant>("id");
        QTest::newRow("text") << QVariant("soon") << QVariant("first");
        QTest::newRow("negative") << QVariant(-5) << QVariant(-1);
        QTest::newRow("huge") << QVariant(1000000000) << QVariant(254);
    }

    void garbageInTheStoreIsNotBelieved()
    {
        QFETCH(QVariant, interval);
        QFETCH(QVariant, id);
        Settings settings(Group);
        settings.setValue("pollingInterval", interval);
        settings.setValue("servoId", id);
        settings.setValue("geometry", "here");
        Fixture fixture;
        QCOMPARE(fixture.interval()->value(), 500);
        QCOMPARE(fixture.servoId()->value(), 0);
    }

    void aPortThatCannotBeOpenedChangesNothing()
    {
        Fixture fixture;
        fixture.port->openError = "The port is on strike.";
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.watcher.boxes, QStringList{BoxWatcher::critical("The port is on strike.")});
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.operations().count("read"), 0);
    }

    void connectIdentifiesAndThenPolls()
    {
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.interval()->setValue(10);
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.enabledActions(), WhenConnected);
        QCOMPARE(fixture.status(), QString("Disconnected")); // until the servo has said what it is
        const auto &identification = fixture.port->calls.last();
        QCOMPARE(identification.operation, QString("read"));
        QCOMPARE(identification.id, 3);
        QCOMPARE(identification.length, 2);
        QCOMPARE(fixture.rows(), 0);

        fixture.port->deliver(reply(2, 6));
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.rows(), 27);
        QTRY_COMPARE(fixture.port->calls.last().length, 118);
        QCOMPARE(fixture.port->calls.last().id, 3);

        fixture.trigger("actionDisconnect");
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.rows(), 0);
        QVERIFY(!fixture.operations().contains("close")); // an exchange under way may finish
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void anAx12HasNoRegisters()
    {
        Fixture fixture;
        fixture.interval()->setValue(10);
        fixture.connectToServo(12);
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.port->calls.last().length, 50);
        QCOMPARE(fixture.rows(), 0);
    }

    void aSilentServoLeavesTheWayBack()
    {
        Fixture fixture;
        fixture.trigger("actionConnect");
        fixture.trigger("actionDisconnect");
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
    }

    void anIdentificationThatComesTooLateConnectsNothing()
    {
        Fixture fixture;
        fixture.interval()->setValue(10);
        fixture.trigger("actionConnect");
        fixture.trigger("actionDisconnect");
        fixture.port->deliver(reply(2, 6));
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
        QCOMPARE(fixture.operations().count("read"), 1); // no polling
    }

    void aPortLostAfterDisconnectIsNobodysConcern()
    {
        Fixture fixture;
        fixture.connectToServo();
        fixture.trigger("actionDisconnect");
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
        Q_EMIT fixture.port->connectionLost("It is gone.");
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void aQuickReconnectIsClosedOnceAndNothingLeaks()
    {
        Fixture fixture;
        for (int i = 0; i < 3; ++i) {
            fixture.trigger("actionConnect");
            fixture.trigger("actionDisconnect");
        }
        fixture.trigger("actionConnect");
        QTRY_COMPARE(fixture.operations().count("close"), 1);
        fixture.trigger("actionDisconnect");
        QTRY_COMPARE(fixture.operations().count("close"), 2);
    }

    void aLostPortEndsInOneBox()
    {
        Fixture fixture;
        fixture.interval()->setValue(10);
        fixture.connectToServo();
        Q_EMIT fixture.port->connectionLost("It is gone.");
        QCOMPARE(fixture.watcher.boxes, QStringList{BoxWatcher::critical("It is gone.")});
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.rows(), 0);
    }

    void aServoThatFallsSilentIsToldOfUntilItAnswersAgain()
    {
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.interval()->setValue(10);
        fixture.connectToServo();
        QTRY_COMPARE(fixture.status(), QString("No answer from servo 3"));
        fixture.port->deliver(reply(118, 0));
        QCOMPARE(fixture.status(), QString("Connected"));
        QTRY_COMPARE(fixture.status(), QString("No answer from servo 3"));
        fixture.trigger("actionDisconnect");
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void anAppliedAddressIsTakenOver_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("baudRate");
        QTest::newRow("id") << 9 << 1 << 1000000;
        QTest::newRow("baud rate") << 3 << 34 << 57600;
        QTest::newRow("both") << 200 << 207 << 9600;
        QTest::newRow("neither") << 3 << 1 << 1000000;
    }

    void anAppliedAddressIsTakenOver()
    {
        QFETCH(int, id);
        QFETCH(int, code);
        QFETCH(int, baudRate);
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.interval()->setValue(10);
        fixture.connectToServo();
        const bool isMove = id != 3 || code != 1;

        QByteArray block(38, '\0');
        block[0] = char(id);
        block[1] = char(code);
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(3, block);
        QTRY_VERIFY(fixture.operations().contains("write"));
        QCOMPARE(fixture.status() != "Connected", isMove);
        QCOMPARE(fixture.servoId()->value(), id);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, baudRate);
        if (isMove)
            QVERIFY(fixture.status().contains(QString("address %1 and %2 baud").arg(id).arg(baudRate)));

        // It answers where it was before: it has refused the block.
        QTRY_COMPARE(fixture.operations().last(), QString("read"));
        fixture.port->deliver(reply(118, 0));
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.servoId()->value(), 3);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, 1000000);
    }

    void theStatusBarIsNotWipedByThePointer()
    {
        Fixture fixture;
        QStatusTipEvent tip{QString()};
        QCoreApplication::sendEvent(fixture.window.get(), &tip);
        QCOMPARE(fixture.status(), QString("Disconnected"));
    }

    void closingWhileConnectedEndsCleanly()
    {
        Fixture fixture;
        fixture.interval()->setValue(10);
        fixture.connectToServo();
        fixture.window->close();
        fixture.window.reset();
        QVERIFY(fixture.operations().contains("close"));
    }

    void oneShotOperations_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("box");
        const auto answer = [](char error) { return QByteArray("\xFF\xFF\xC8\x02", 4) + error + '\0'; };
        QTest::newRow("reboot refused") << "actionReboot" << false << QByteArray()
                                        << BoxWatcher::critical("Error occurred during reboot operation");
        QTest::newRow("reboot unanswered") << "actionReboot" << true << QByteArray() << QString();
        QTest::newRow("reboot failed") << "actionReboot" << true << answer(1)
                                       << BoxWatcher::critical("Error during reboot of Zelvar servo id:200");
        QTest::newRow("rebooted") << "actionReboot" << true << answer(0)
                                  << BoxWatcher::success("Zelvar servo id:200 was rebooted successfully");
        QTest::newRow("reset refused") << "actionReset" << false << QByteArray()
                                       << BoxWatcher::critical("Error occurred during factory reset operation");
        QTest::newRow("reset unanswered") << "actionReset" << true << QByteArray() << QString();
        QTest::newRow("reset failed") << "actionReset" << true << answer('\x80')
                                      << BoxWatcher::critical("Error during factory reset of Zelvar servo id:200");
        QTest::newRow("reset") << "actionReset" << true << answer(0)
                               << BoxWatcher::success("Factory reset of Zelvar servo id:200 was successful");
    }

    void oneShotOperations()
    {
        QFETCH(QString, action);
        QFETCH(bool, isAccepted);
        QFETCH(QByteArray, answer);
        QFETCH(QString, box);
        Fixture fixture;
        fixture.servoId()->setValue(200);
        fixture.port->acceptsRequests = isAccepted;
        fixture.port->immediateReply = answer;
        fixture.trigger(qPrintable(action));
        QCOMPARE(fixture.watcher.boxes, box.isEmpty() ? QStringList() : QStringList{box});
        QVERIFY(fixture.operations().first().startsWith("open"));
        QCOMPARE(fixture.port->calls[1].operation, action.mid(6).toLower());
        QCOMPARE(fixture.port->calls[1].id, 200);
        QCOMPARE(fixture.operations().last(), QString("close"));
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
    }
};

ZELVAR_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
