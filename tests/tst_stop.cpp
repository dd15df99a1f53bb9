// Stopping the motor: the rules one by one on a line in memory and a clock that is turned; and the key in the whole
// program, against every fault of the line and whatever is open.

#include "app/boxes.h"
#include "guide/guidewindow.h"
#include "link/processwide.h"
#include "model/families.h"
#include "search/searchdialog.h"
#include "serialport/servobus.h"
#include "session/motorstop.h"
#include "settings/settingsdialog.h"
#include "tests/support/desk.h"
#include "tests/support/fakeline.h"
#include "tests/support/scriptedservo.h"
#include "widgets/uigrouphelper.h"

using namespace std::chrono_literals;
using namespace wire;
using Keeps = ScriptedServo::Keeps;

namespace {

constexpr quint8 ServoId = 3;
constexpr int MotorOfZelvar = 48; // register
constexpr int MotorOfAx12 = 24;

/** A servo with its motor on. */
ScriptedServo servoSpeaking(Framing framing, Keeps keeps = Keeps::All)
{
    ScriptedServo servo;
    servo.framing = framing;
    servo.registers.fill('\1');
    servo.keeps = keeps;
    return servo;
}

/** A bus with a servo, somebody who stops it, and what comes of that. */
struct Rig
{
    TurnedClock clock;
    ScriptedServo servo;
    FakeLine *line;
    std::unique_ptr<ServoBus> bus;
    std::unique_ptr<session::MotorStop> stop;
    int proved = 0;
    int overdue = 0;

    explicit Rig(ScriptedServo first) : servo(std::move(first))
    {
        auto owned = std::make_unique<FakeLine>(clock, [this](const Packet &packet) { return servo(packet); });
        line = owned.get();
        bus = std::make_unique<ServoBus>(std::move(owned), clock);
        bus->open("line", 1000000);
        stop = std::make_unique<session::MotorStop>(*bus, clock);
        QObject::connect(stop.get(), &session::MotorStop::proved, [this] { ++proved; });
        QObject::connect(stop.get(), &session::MotorStop::overdue, [this] { ++overdue; });
    }
    bool isMotorOn() const
    {
        return servo.registers[servo.framing == Framing::Protocol2 ? MotorOfZelvar : MotorOfAx12] != 0;
    }
    void pass(std::chrono::milliseconds duration)
    {
        for (const auto end = clock.now() + duration; clock.now() < end; clock.turn(1ms)) {
            while (line->deliver()) {
            }
            QCoreApplication::processEvents();
        }
    }
    /** One packet each: id and register, a "2" or "1" for its framing, "w" or "r". */
    QStringList sent() const
    {
        QStringList texts;
        for (const Packet &packet : qAsConst(line->sent)) {
            texts.append(QString("%1:%2 %3%4")
                             .arg(packet.id)
                             .arg(quint8(packet.parameters[0]))
                             .arg(packet.framing == Framing::Protocol2 ? '2' : '1')
                             .arg(packet.instruction == Read ? 'r' : 'w'));
        }
        return texts;
    }
};

const QString MayBeOn = "The motor may still be on";

/** A window, and what its user does about the motor. */
struct StopDesk : Desk
{
    explicit StopDesk(const QStringList &simulatorArguments = {}, int pollingInterval = 10)
        : Desk(ServoId, simulatorArguments)
    {
        window->findChild<QToolBar *>("toolBar")->findChildren<QSpinBox *>()[0]->setValue(pollingInterval);
    }

    QString motor() const { return find<QLabel>("linkMotorLabel")->text(); }
    QString event() const { return find<QLabel>("linkEventLabel")->text(); }
    /** As the system delivers it: not to a window that a modal one blocks. */
    static void pressKey(QWidget &target) { QTest::keyClick(target.windowHandle(), Qt::Key_F8); }
    static void queue(int address, const QByteArray &data)
    {
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(quint8(address), data);
    }
    bool switchesOn() const
    {
        queue(MotorOfZelvar, "\1");
        return QTest::qWaitFor([this] { return motor() == "motor on"; });
    }
    bool isToldInBox() const { return !watcher.boxes.filter(MayBeOn).isEmpty(); }
};

/** Opens something, has @p press called while it is there, and closes it again. */
using Opening = void (*)(StopDesk &desk, const std::function<void(QWidget &)> &press);

} // namespace

class TestStop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void eachFamilyIsStoppedInItsOwnWay()
    {
        using model::DynamixelAx12Family;
        using model::ZelvarV1Family;
        // clang-format off
        const std::tuple<const char *, Framing, const model::Family *, QStringList> rows[] = {
            {"Zelvar",            Framing::Protocol2, &ZelvarV1Family,      {"3:48 2w", "3:48 2r"}},
            {"AX-12",             Framing::Protocol1, &DynamixelAx12Family, {"3:24 1w", "3:24 1r"}},
            {"Zelvar, not known", Framing::Protocol2, nullptr,              {"3:48 2w", "3:24 1w", "3:48 2r"}},
            {"AX-12, not known",  Framing::Protocol1, nullptr,              {"3:48 2w", "3:24 1w", "3:48 2r", "3:48 2r", "3:48 2r", "3:24 1r"}},
        };
        // clang-format on
        for (const auto &[name, framing, family, sent] : rows) {
            const InRow row(name);
            Rig rig(servoSpeaking(framing));
            rig.stop->begin(ServoId, family);
            QCOMPARE(rig.sent(), sent.mid(0, 1)); // before anything else happens
            rig.pass(2s);
            QVERIFY(!rig.isMotorOn() && rig.proved == 1 && rig.overdue == 0 && !rig.stop->isRunning());
            QCOMPARE(rig.sent(), sent);
        }
    }

    void aStopGoesAheadOfEverything()
    {
        Rig rig(servoSpeaking(Framing::Protocol2));
        rig.servo.isMute = true;
        const auto write = [](quint8 address) {
            return BusRequest{BusRequest::Operation::Write, ServoId, address, 0, QByteArray(1, '\1')};
        };
        for (quint8 i = 0; i < 100; ++i)
            rig.bus->request(write(100 + i), nullptr);
        rig.pass(5ms);
        rig.stop->begin(ServoId, &model::ZelvarV1Family);
        rig.stop->begin(ServoId, &model::ZelvarV1Family); // the key is pressed again
        rig.pass(100ms);
        QCOMPARE(rig.sent().mid(0, 4), (QStringList{"3:100 2w", "3:48 2w", "3:48 2w", "3:48 2r"}));
        const auto fromOneOn = [](const BusRequest &request) { return request.address > 150; };
        QCOMPARE(rig.bus->withdrawWaiting(fromOneOn).size(), std::size_t(49));
        rig.servo.isMute = false;
        rig.pass(1s);
        QCOMPARE(rig.proved, 1);
        QVERIFY(rig.sent().contains("3:150 2w") && !rig.sent().contains("3:151 2w"));
    }

    void whatIsNotProvedIsRepeatedUntilTheEnd()
    {
        for (const bool isMute : {true, false}) {
            for (const bool isEnded : {true, false}) {
                Rig rig(servoSpeaking(Framing::Protocol2, Keeps::Nothing));
                rig.servo.isMute = isMute;
                rig.stop->begin(ServoId, nullptr);
                rig.pass(999ms);
                QVERIFY(rig.overdue == 0 && rig.proved == 0);
                rig.pass(9s);
                QCOMPARE(rig.overdue, 1);
                const int before = rig.sent().size();
                rig.pass(1s);
                QVERIFY(rig.sent().size() > before + 3);
                if (isEnded)
                    rig.stop->end();
                rig.pass(100ms); // what is under way is finished
                rig.servo = servoSpeaking(Framing::Protocol2);
                const int atEnd = rig.sent().size();
                rig.pass(1s);
                QCOMPARE(rig.sent().size() > atEnd, !isEnded);
                QCOMPARE(rig.proved, isEnded ? 0 : 1);
                for (const QString &packet : rig.sent())
                    QVERIFY2(packet.startsWith("3:48 2") || packet.startsWith("3:24 1"), qPrintable(packet));
            }
        }
    }

    void everybodyIsToldInBothFramings()
    {
        Rig rig(servoSpeaking(Framing::Protocol1));
        rig.stop->tellAll();
        rig.pass(100ms);
        const QStringList once{"254:48 2w", "254:24 1w"};
        QCOMPARE(rig.sent(), once + once + once);
        QVERIFY(!rig.isMotorOn());
    }

    void everyFaultAtEveryInterval()
    {
        const char *const faults[] = {"drop=0.4",  "corrupt=0.4", "truncate=0.4", "garbage=0.5",  "delay=45",
                                      "delay=100", "chunk",       "echo",         "mute-after=3", "vanish-after=3"};
        for (const QString fault : faults) {
            for (const int interval : {10, 5000}) {
                const InRow row(QString("%1 at %2 ms").arg(fault).arg(interval));
                StopDesk desk({"--seed", "11", "--fault", fault}, interval);
                const bool isEnd = fault.contains("after");
                const bool isConnected = desk.connects();
                QVERIFY(isConnected || isEnd);
                // A full queue, of which the slow one has not sent anything yet.
                for (int i = 0; i < (interval == 10 ? 1 : 100) && isConnected; ++i)
                    desk.queue(MotorOfZelvar, "\1");
                // A slow servo is hardly ever read so often.
                if (!isEnd && interval == 10)
                    QTRY_VERIFY(desk.motor() == "motor on" || desk.status().startsWith("No answer"));
                desk.pressKey(*desk.window);
                QTRY_VERIFY(desk.event().startsWith("motor stopped") || desk.isToldInBox());
                if (!isEnd) {
                    QVERIFY(desk.event().contains("not applied") || interval == 10);
                    QVERIFY2(desk.watcher.boxes.isEmpty(), qPrintable(desk.watcher.boxes.join("; ")));
                }
            }
        }
    }

    void aStopIsToldUntilDisconnectAndOneThatIsLateClosesItsBox()
    {
        StopDesk desk({"--fault", "mute-after=40"});
        qApp->removeEventFilter(&desk.watcher); // the box stays open
        QVERIFY(desk.connects());
        QTRY_COMPARE(desk.status(), QString("No answer from servo 3"));
        QCOMPARE(desk.motor(), QString("motor not known"));
        desk.click("stopMotorButton");
        QCOMPARE(desk.motor(), QString("stopping the motor"));
        QTRY_VERIFY(QApplication::activeModalWidget());
        QCOMPARE(QApplication::activeModalWidget()->windowTitle(), MayBeOn);
        QCOMPARE(desk.motor(), QString("the motor may still be on"));
        desk.queue(MotorOfZelvar, "\1");
        QTRY_VERIFY(desk.event().startsWith("not applied"));
        desk.pressKey(*QApplication::activeModalWidget());
        desk.trigger("actionDisconnect");
        QCOMPARE(desk.motor(), QString("motor not known"));
        delete QApplication::activeModalWidget();
    }

    void anOpenEditDoesNotSwitchTheMotorOnAgain()
    {
        for (const bool wasOn : {true, false}) {
            StopDesk desk;
            QVERIFY(desk.connects());
            QTRY_COMPARE(desk.motor(), QString("motor off"));
            QVERIFY(!wasOn || desk.switchesOn());
            auto *enable = desk.find<QCheckBox>("enableMotorCheckBox");
            QTRY_COMPARE(enable->isChecked(), wasOn);
            desk.click("vParamsEditSaveToolButton");
            enable->setChecked(true);
            QCOMPARE(desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled(), !wasOn);
            desk.pressKey(*desk.window);
            QVERIFY(!enable->isChecked() && enable->isEnabled());
            QVERIFY(!desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
            // What else is edited can be applied, and leaves the motor off.
            desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(0.5);
            desk.click("vParamsEditSaveToolButton");
            QTRY_VERIFY2(desk.event().startsWith("applied"), qPrintable(desk.event()));
            QTRY_COMPARE(desk.motor(), QString("motor off"));
            QVERIFY(desk.switchesOn()); // what is asked for after the stop
        }
    }

    void anEditThatMakesTheServoJumpIsMarked()
    {
        StopDesk desk;
        QVERIFY(desk.connects());
        QTRY_COMPARE(desk.motor(), QString("motor off"));
        const auto *mark = desk.find<QToolButton>("switchOnMark");
        auto *target = desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox");
        desk.click("vParamsEditSaveToolButton");
        QTRY_VERIFY(target->isEnabled());
        target->setValue(0.5);
        QVERIFY(!mark->isVisible()); // it stays off
        desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(true);
        QVERIFY(mark->isVisible());
        QVERIFY2(mark->text().contains("0.49") || mark->text().contains("0.50"), qPrintable(mark->text()));
        mark->menu()->actions().constFirst()->trigger();
        QVERIFY(!mark->isVisible() && target->value() == desk.text("actualPositionLineEdit").toDouble());
    }

    void theKeyReachesThroughWhateverIsOpen()
    {
        // clang-format off
        const std::pair<const char *, Opening> openings[] = {
            {"nothing",  [](StopDesk &desk, const auto &press) { press(*desk.window); }},
            {"settings", [](StopDesk &desk, const auto &press) { desk.trigger("actionSettings"); press(*SettingsDialog::instance()); SettingsDialog::instance()->close(); }},
            {"search",   [](StopDesk &desk, const auto &press) { desk.trigger("actionSearch"); press(*SearchDialog::instance()); SearchDialog::instance()->close(); }},
            {"box",      [](StopDesk &desk, const auto &press) {
                QTimer::singleShot(0, &desk.watcher, [&] { press(*QApplication::activeModalWidget()); });
                boxes::show(desk.window.get(), QMessageBox::Critical, "Error", "text");
            }},
            {"not applied", [](StopDesk &desk, const auto &press) { press(*boxes::tell(desk.window.get(), QMessageBox::Warning, "Not applied", "text")); }},
            {"guide",    [](StopDesk &desk, const auto &press) { desk.trigger("actionGuide"); press(*desk.find<guide::GuideWindow>("guideWindow")); }},
            {"scan",     [](StopDesk &desk, const auto &press) {
                desk.trigger("actionSearch");
                SearchDialog &dialog = *SearchDialog::instance();
                for (const char *rate : {"baudRate57600CheckBox", "baudRate1000000CheckBox"})
                    dialog.findChild<QCheckBox *>(rate)->setChecked(true);
                // It is handled between two rates, and the scan goes on.
                QTimer::singleShot(0, &dialog, [&] { press(dialog); });
                dialog.findChild<QPushButton *>("scanPushButton")->click();
                QCOMPARE(dialog.findChild<QTreeWidget *>("servoTreeWidget")->topLevelItemCount(), 2);
                dialog.close();
            }},
        };
        // clang-format on
        for (const auto &[name, open] : openings) {
            const InRow row(name);
            StopDesk desk;
            QVERIFY(desk.connects());
            QVERIFY(desk.switchesOn());
            desk.trigger("actionDisconnect");
            QCOMPARE(desk.motor(), QString("the motor was left on"));
            qApp->removeEventFilter(&desk.watcher);
            int presses = 0;
            open(desk, [&](QWidget &target) {
                ++presses;
                desk.pressKey(target);
                if (qobject_cast<QMessageBox *>(&target))
                    target.close();
            });
            QCOMPARE(presses, 1);
            QTRY_COMPARE(desk.motor(), QString("the motor was left off"));
            QVERIFY(desk.event().startsWith("motor stopped"));
            QVERIFY(desk.connects()); // the port is free again
            QTRY_COMPARE(desk.motor(), QString("motor off"));
        }
    }

    void anAx12IsStoppedToo()
    {
        StopDesk desk;
        desk.window->findChild<QToolBar *>("toolBar")->findChildren<QSpinBox *>()[1]->setValue(5);
        QVERIFY(desk.connects());
        desk.queue(MotorOfAx12, "\1");
        QTRY_COMPARE(desk.motor(), QString("motor on"));
        QVERIFY(!desk.find<QAction>("actionHoldHere")->isEnabled());
        desk.pressKey(*desk.window);
        QTRY_COMPARE(desk.event(), QString("motor stopped"));
        QCOMPARE(desk.motor(), QString("motor off"));
    }

    void withoutAPortItIsSaidAtOnce()
    {
        StopDesk desk;
        SettingsDialog::instance()->findChild<QComboBox *>("serialPortInfoListBox")->clear();
        SettingsDialog::instance()->apply();
        desk.trigger("actionStopAll");
        QVERIFY(desk.isToldInBox());
    }

    void theShaftIsHeldWhereItIs()
    {
        constexpr quint8 Mode = 6; // register
        constexpr int Torque = 0;
        constexpr int Joint = 2;
        StopDesk desk;
        QVERIFY(!desk.find<QAction>("actionHoldHere")->isEnabled());
        QVERIFY(desk.connects());
        QTRY_VERIFY(desk.find<QAction>("actionHoldHere")->isEnabled()); // in the mode Joint
        QVERIFY(desk.switchesOn());
        desk.queue(78, QByteArray("\xe8\3\0\0", 4)); // far away
        const auto *position = desk.find<QLineEdit>("actualPositionLineEdit");
        const QString atRest = position->text();
        QTRY_VERIFY(position->text() != atRest);
        desk.trigger("actionHoldHere");
        QTRY_VERIFY2(desk.event().startsWith("holding: "), qPrintable(desk.event()));
        const QString held = desk.event().section(' ', 1, 1);
        QVERIFY(held.toDouble() < 1.5);
        QTRY_VERIFY(qAbs(position->text().toDouble() - held.toDouble()) < 0.02);
        QCOMPARE(desk.motor(), QString("motor on"));
        desk.pressKey(*desk.window);
        QTRY_COMPARE(desk.motor(), QString("motor off"));
        desk.queue(Mode, QByteArray(1, char(Torque)));
        QTRY_VERIFY(!desk.find<QAction>("actionHoldHere")->isEnabled());
        QVERIFY(desk.find<QAction>("actionHoldHere")->toolTip().contains("Torque"));
        desk.queue(Mode, QByteArray(1, char(Joint)));
        QTRY_VERIFY(desk.find<QAction>("actionHoldHere")->isEnabled());
    }
};

ZELVAR_TEST_MAIN(TestStop)
#include "tst_stop.moc"
