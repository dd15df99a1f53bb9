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
QByteArray reply(int dataSize, int byte5)
{
    QByteArray bytes(dataSize + 11, '\0');
    bytes[5] = static_cast<char>(byte5);
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
    void connectToServo()
    {
        interval()->setValue(10);
        trigger("actionConnect");
        port->deliver(reply(2, 6));
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

    void theToolBarRemembersWhatIsOfUse()
    {
        {
            Fixture fixture;
            QCOMPARE(fixture.interval()->value(), 500);
            fixture.interval()->setValue(40);
            fixture.servoId()->setValue(253);
            fixture.window->close();
        }
        Settings settings("main window settings");
        QVERIFY(!settings.value("geometry", {}).toByteArray().isEmpty());
        {
            Fixture again;
            QCOMPARE(again.interval()->value(), 40);
            QCOMPARE(again.servoId()->value(), 253);
            QMetaObject::invokeMethod(again.window.get(), "on_updateId", Q_ARG(int, 7)); // from the search
            QCOMPARE(settings.value("servoId", 0).toInt(), 7);
        }
        settings.setValue("pollingInterval", 1000000000);
        settings.setValue("servoId", "first");
        settings.setValue("geometry", "here");
        Fixture garbage;
        QCOMPARE(garbage.interval()->value(), 500);
        QCOMPARE(garbage.servoId()->value(), 0);
    }

    void connectIdentifiesAndThenPolls()
    {
        Fixture fixture;
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        fixture.port->openError = "The port is on strike.";
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.watcher.boxes, QStringList{BoxWatcher::critical("The port is on strike.")});
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.operations().count("read"), 0);
        fixture.watcher.boxes.clear();
        fixture.port->openError.clear();

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
        QVERIFY(fixture.operations().last() != "close"); // an exchange under way may finish
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
        QCOMPARE(fixture.watcher.boxes, QStringList());
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
        fixture.connectToServo();
        Q_EMIT fixture.port->connectionLost("It is gone.");
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.rows(), 0);
        QTRY_COMPARE(fixture.operations().last(), QString("close"));
        Q_EMIT fixture.port->connectionLost("It is gone."); // nobody's concern any more
        QCOMPARE(fixture.watcher.boxes, QStringList{BoxWatcher::critical("It is gone.")});
    }

    void aServoThatFallsSilentIsToldOfUntilItAnswersAgain()
    {
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.connectToServo();
        QTRY_COMPARE(fixture.status(), QString("No answer from servo 3"));
        fixture.port->deliver(reply(118, 0));
        QCOMPARE(fixture.status(), QString("Connected"));
        QTRY_COMPARE(fixture.status(), QString("No answer from servo 3"));
        fixture.trigger("actionDisconnect");
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void anAppliedAddressIsTakenOver()
    {
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.connectToServo();
        const QByteArray address = QByteArray::fromHex("c8cf"); // 200 at 9600 baud
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(3, address + QByteArray(36, '\0'));
        QTRY_VERIFY(fixture.status().contains("address 200 and 9600 baud"));
        QCOMPARE(fixture.servoId()->value(), 200);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, 9600);
        // It answers where it was before: it has refused the block.
        QTRY_COMPARE(fixture.operations().last(), QString("read"));
        fixture.port->deliver(reply(118, 0));
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.servoId()->value(), 3);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, 1000000);
    }

    void oneShotOperations_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QStringList>("boxes");
        const QByteArray good("\xFF\xFF\xC8\x02\0\0", 6);
        const QByteArray bad("\xFF\xFF\xC8\x02\x80\0", 6);
        for (const QString name : {"reboot", "factory reset"}) {
            const bool isReboot = name == "reboot";
            const QString action = isReboot ? "actionReboot" : "actionReset";
            const QString servo = "Zelvar servo id:200";
            const QString done = isReboot ? servo + " was rebooted successfully"
                                          : "Factory reset of " + servo + " was successful";
            const auto row = [&](const char *what) -> QTestData & {
                return QTest::addRow("%s %s", qPrintable(name), what) << action;
            };
            const QString refused = BoxWatcher::critical("Error occurred during " + name + " operation");
            const QString failed = BoxWatcher::critical("Error during " + name + " of " + servo);
            row("refused") << false << QByteArray() << QStringList{refused};
            row("unanswered") << true << QByteArray() << QStringList();
            row("failed") << true << bad << QStringList{failed};
            row("done") << true << good << QStringList{BoxWatcher::success(done)};
        }
    }

    void oneShotOperations()
    {
        QFETCH(QString, action);
        QFETCH(bool, isAccepted);
        QFETCH(QByteArray, answer);
        Fixture fixture;
        fixture.servoId()->setValue(200);
        fixture.port->acceptsRequests = isAccepted;
        fixture.port->immediateReply = answer;
        fixture.trigger(qPrintable(action));
        QTEST(fixture.watcher.boxes, "boxes");
        QCOMPARE(fixture.port->calls[1].operation, action.mid(6).toLower());
        QCOMPARE(fixture.port->calls[1].id, 200);
        QCOMPARE(fixture.operations().last(), QString("close"));
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
    }
};

ZELVAR_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
