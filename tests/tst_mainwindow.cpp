// The window's sequences: connect, disconnect, reboot and factory reset, with their boxes, over a serial port that does
// what the test says.

#include "app/mainwindow.h"
#include "link/processwide.h"
#include "link/serialhelper.h"
#include "search/searchdialog.h"
#include "settings/settings.h"
#include "settings/settingsdialog.h"
#include "tests/support/boxwatcher.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"
#include "views/registerview.h"
#include "widgets/uigrouphelper.h"

namespace {
/** A window on a fake port, and what a test looks at. */
struct Fixture
{
    std::shared_ptr<FakeSerialPort> port = std::make_shared<FakeSerialPort>();
    BoxWatcher watcher;
    std::unique_ptr<MainWindow> window = std::make_unique<MainWindow>(nullptr, std::make_shared<SerialHelper>(port));

    QAction *action(const char *name) const { return window->findChild<QAction *>(name); }
    void trigger(const char *name) const { action(name)->trigger(); }
    QString status() const { return window->statusBar()->currentMessage(); }
    QList<QSpinBox *> spinBoxes() const { return window->findChild<QToolBar *>("toolBar")->findChildren<QSpinBox *>(); }
    QSpinBox *interval() const { return spinBoxes()[0]; }
    QSpinBox *servoId() const { return spinBoxes()[1]; }
    QStringList enabledActions() const
    {
        QStringList names;
        for (const QString name : {"Connect", "Disconnect", "Settings", "Quit", "About", "Search", "Reboot", "Reset"}) {
            if (action(qPrintable("action" + name))->isEnabled())
                names.append(name);
        }
        if (interval()->isEnabled() && servoId()->isEnabled())
            names.append("spin boxes");
        return names;
    }
    int rows() const { return window->findChild<QTableWidget *>("eepromRegisterBank1Widget")->rowCount(); }
    void connectToServo()
    {
        interval()->setValue(10);
        trigger("actionConnect");
        port->deliver(QByteArray(2 + 11, '\0'));
        QTRY_VERIFY(port->operations().count("read") >= 2);
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
        }
        // Edited by hand: text reads as 0, and numbers end at the limits.
        const std::tuple<QVariant, int, int> rows[] = {
            {9999, 5000, 253}, {"abc", 10, 0}, {-1, 10, 0}, {Q_INT64_C(4294967396), 5000, 253}};
        for (const auto &[stored, interval, servoId] : rows) {
            const InRow row(stored.toString());
            for (const char *key : {"pollingInterval", "servoId", "geometry", "windowState"})
                settings.setValue(key, stored);
            Fixture bounded;
            QCOMPARE(bounded.interval()->value(), interval);
            QCOMPARE(bounded.servoId()->value(), servoId);
        }
    }

    void connectGoesToTheServoThatWasChosenInTheSearch()
    {
        const Fixture fixture;
        SearchDialog &search = *SearchDialog::instance();
        auto *ports = search.findChild<QComboBox *>("serialPortInfoListBox");
        ports->addItem("ttySearched");
        ports->setCurrentText("ttySearched");
        QTreeWidgetItem *root = search.addTreeRoot("57600");
        search.addTreeChild(root, "7", "1");
        root->child(0)->setSelected(true);
        search.select();
        QCOMPARE(Settings("main window settings").value("servoId", 0).toInt(), 7);
        QCOMPARE(Settings("port settings").value("baudRate", 0).toInt(), 57600);
        QCOMPARE(Settings("port settings").value("serialPortName", {}).toString(), QString("ttySearched"));
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.port->calls.first().operation, QString("open ttySearched"));
        QCOMPARE(fixture.port->calls.first().length, 57600);
    }

    void connectIdentifiesAndThenPolls()
    {
        Fixture fixture;
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        fixture.port->openError = "The port is on strike.";
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.watcher.boxes, QStringList{BoxWatcher::critical("The port is on strike.")});
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.port->operations().count("read"), 0);
        fixture.watcher.boxes.clear();
        fixture.port->openError.clear();

        fixture.servoId()->setValue(3);
        fixture.interval()->setValue(10);
        fixture.trigger("actionConnect");
        QCOMPARE(fixture.enabledActions(), WhenConnected);
        QCOMPARE(fixture.status(), QString("Disconnected")); // until the servo has said what it is
        QCOMPARE(fixture.port->operations().last(), QString("read"));
        QCOMPARE(fixture.port->calls.last().length, 2);
        QCOMPARE(fixture.rows(), 0);

        fixture.port->deliver(QByteArray(2 + 11, '\0'));
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.rows(), 27);
        const auto *edit = fixture.window->findChild<QToolButton *>("vParamsEditSaveToolButton");
        QVERIFY(edit->isEnabled());
        QTRY_COMPARE(fixture.port->calls.last().length, 118);
        QCOMPARE(fixture.port->calls.last().id, 3);

        fixture.trigger("actionDisconnect");
        QCOMPARE(fixture.enabledActions(), WhenDisconnected);
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QVERIFY(fixture.rows() == 0 && !edit->isEnabled());
        QVERIFY(fixture.port->operations().last() != "close"); // an exchange under way may finish
        QTRY_COMPARE(fixture.port->operations().last(), QString("close"));
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void anIdentificationThatComesTooLateConnectsNothing()
    {
        Fixture fixture;
        fixture.trigger("actionConnect");
        fixture.trigger("actionDisconnect");
        fixture.port->deliver(QByteArray(2 + 11, '\0'));
        QCOMPARE(fixture.status(), QString("Disconnected"));
        QTRY_COMPARE(fixture.port->operations().last(), QString("close"));
        QCOMPARE(fixture.port->operations().count("read"), 1); // no polling
    }

    void aQuickReconnectIsClosedOnceAndNothingLeaks()
    {
        Fixture fixture;
        for (int i = 0; i < 6; ++i)
            fixture.trigger(i % 2 ? "actionDisconnect" : "actionConnect");
        fixture.trigger("actionConnect");
        QTRY_COMPARE(fixture.port->operations().count("close"), 1);
        fixture.trigger("actionDisconnect");
        QTRY_COMPARE(fixture.port->operations().count("close"), 2);
        Q_EMIT fixture.port->connectionLost("It is gone."); // nobody's concern any more
        QCOMPARE(fixture.watcher.boxes, QStringList());
    }

    void anAppliedAddressIsTakenOver()
    {
        Fixture fixture;
        fixture.servoId()->setValue(3);
        fixture.connectToServo();
        const auto *edit = fixture.window->findChild<QToolButton *>("vParamsEditSaveToolButton");
        const QByteArray address = QByteArray::fromHex("c8cf"); // 200 at 9600 baud
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(3, address + QByteArray(36, '\0'));
        QTRY_VERIFY(fixture.status().contains("address 200 and 9600 baud"));
        QCOMPARE(fixture.servoId()->value(), 200);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, 9600);
        QCOMPARE(Settings("main window settings").value("servoId", 0).toInt(), 200);
        QCOMPARE(Settings("port settings").value("baudRate", 0).toInt(), 9600);
        QVERIFY(!edit->isEnabled()); // it would go to where the servo is no more
        // It answers where it was before: it has refused the block.
        QTRY_COMPARE(fixture.port->operations().last(), QString("read"));
        fixture.port->deliver(QByteArray(118 + 11, '\0'));
        QCOMPARE(fixture.status(), QString("Connected"));
        QCOMPARE(fixture.servoId()->value(), 3);
        QCOMPARE(SettingsDialog::instance()->portSettings().baudRate, 1000000);
        QVERIFY(edit->isEnabled());
    }

    // Taken out of the window first, all its controls would be styled anew only to go.
    void closingStylesNothing()
    {
        struct StyleCounter : QObject
        {
            int changes = 0;

            bool eventFilter(QObject *, QEvent *event) override
            {
                changes += event->type() == QEvent::StyleChange || event->type() == QEvent::Polish;
                return false;
            }
        } counter;
        Fixture fixture;
        fixture.window->show();
        qApp->installEventFilter(&counter);
        fixture.window.reset();
        QCOMPARE(counter.changes, 0);
    }

    void oneShotOperations()
    {
        const QByteArray good("\xFF\xFF\xC8\x02\0\0", 6);
        const QByteArray bad("\xFF\xFF\xC8\x02\x80\0", 6);
        const QString servo = "Zelvar servo id:200";
        for (const QString name : {"reboot", "factory reset"}) {
            const bool isReboot = name == "reboot";
            const QString done =
                isReboot ? servo + " was rebooted successfully" : "Factory reset of " + servo + " was successful";
            const QString silent =
                "Servo 200 did not answer at 1000000 baud on PORT. Check its supply, the cable, its address "
                "and its baud rate; Search finds servos at other ones.";
            // clang-format off
            const std::tuple<const char *, QByteArray, QStringList> rows[] = {
                {"refused",    {},   {BoxWatcher::critical("Error occurred during " + name + " operation")}},
                {"unanswered", {},   {BoxWatcher::critical(silent)}},
                {"failed",     bad,  {BoxWatcher::critical("Error during " + name + " of " + servo)}},
                {"done",       good, {BoxWatcher::success(done)}},
                {"lost",       {},   {BoxWatcher::critical("Error occurred during " + name + " operation")}},
            };
            // clang-format on
            for (const auto &[outcome, answer, boxes] : rows) {
                const InRow row(name + ' ' + outcome);
                Fixture fixture;
                fixture.servoId()->setValue(200);
                fixture.port->acceptsRequests = QStringList{"failed", "done", "unanswered"}.contains(outcome);
                if (QByteArray(outcome) == "lost") // told while the box is open
                    QTimer::singleShot(0, fixture.port.get(), [&] { Q_EMIT fixture.port->connectionLost("Gone."); });
                fixture.port->immediateReply = answer;
                fixture.trigger(isReboot ? "actionReboot" : "actionReset");
                QStringList expected = boxes;
                expected.replaceInStrings("PORT", SettingsDialog::instance()->portSettings().portName);
                QCOMPARE(fixture.watcher.boxes, expected);
                QCOMPARE(fixture.port->calls[1].operation, QString(isReboot ? "reboot" : "reset"));
                QCOMPARE(fixture.port->calls[1].id, 200);
                QCOMPARE(fixture.port->operations().last(), QString("close"));
                QCOMPARE(fixture.enabledActions(), WhenDisconnected);
            }
        }
    }
};

ZELVAR_TEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
