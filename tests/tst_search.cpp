// The search dialog and its scan: real probes on worker threads, over a pseudo terminal with scripted servos.

#include "link/serialhelper.h"
#include "search/searchdialog.h"
#include "search/searchhelper.h"
#include "serialport/protocol2.h"
#include "settings/settings.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/ptypeer.h"
#include "tests/support/simulatorprocess.h"
#include "tests/support/testenvironment.h"

#include <algorithm>

using namespace wire;

namespace {
const QStringList BaudRates{"9600",   "19200",  "38400",  "57600",  "115200",
                            "200000", "250000", "400000", "500000", "1000000"};

const QString OtherPort = "ttyOther";

/** A servo of the own family at every id, which answers at once whatever the baud rate. */
QByteArray everyServo(const Packet &request)
{
    if (request.framing != Framing::Protocol2)
        return {};
    return protocol2::encodeStatus(request.id, NoError, QByteArray("\x02\x80\x01\x01"));
}

/** The dialog as a user sees it. */
class Dialog : public SearchDialog
{
public:
    QStringList probes; ///< "baud rate:id", in order

    /** @param portName the port that is chosen; there is one more. */
    explicit Dialog(const QString &portName) : SearchDialog(linkWith(portName))
    {
        show();
        connect(this, &SearchDialog::doScanServo, this,
                [this](int id, int rate) { probes << QString("%1:%2").arg(rate).arg(id); });
    }

    QPushButton *button(const QString &name) const { return findChild<QPushButton *>(name + "PushButton"); }
    QCheckBox *baudRate(const QString &rate) const { return findChild<QCheckBox *>("baudRate" + rate + "CheckBox"); }
    QTreeWidget *tree() const { return findChild<QTreeWidget *>("servoTreeWidget"); }
    QComboBox *ports() const { return findChild<QComboBox *>("serialPortInfoListBox"); }
    QString said() const
    {
        const auto *label = findChild<QLabel *>("resultLabel");
        return label->isVisible() ? label->text() : QString();
    }
    QSpinBox *spinBox(const QString &limit) const { return findChild<QSpinBox *>(limit + "SearchRangeSpinBox"); }

    int checkedBaudRates() const
    {
        return int(std::count_if(BaudRates.begin(), BaudRates.end(),
                                 [&](const QString &rate) { return baudRate(rate)->isChecked(); }));
    }
    void choose(const QStringList &rates, int lower, int upper)
    {
        for (const QString &rate : rates)
            baudRate(rate)->setChecked(true);
        spinBox("upper")->setValue(upper);
        spinBox("lower")->setValue(lower);
    }
    /**
     * Scans until the tree lists @p expected: on a busy machine a servo may take longer than it has to answer, but
     * not each time.
     */
    bool scanFinds(const QStringList &expected)
    {
        for (int tries = 0; tries < 20 && (tries == 0 || rows() != expected); ++tries) {
            probes.clear();
            button("scan")->click();
        }
        return rows() == expected;
    }
    /** What the tree lists, a baud rate or servo a text. */
    QStringList rows() const
    {
        QStringList rows;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *root = tree()->topLevelItem(i);
            rows << root->text(0);
            for (int j = 0; j < root->childCount(); ++j)
                rows << root->child(j)->text(1) + ' ' + root->child(j)->text(2);
        }
        return rows;
    }

private:
    static std::shared_ptr<SerialHelper> linkWith(const QString &portName)
    {
        const auto ports = std::make_shared<FakeSerialPort>();
        ports->listPorts({portName, OtherPort});
        return std::make_shared<SerialHelper>(ports);
    }
};

/** How many file descriptors ("fd") or threads ("task") this process has. */
int countOf(const QString &kind)
{
    return QDir("/proc/self/" + kind).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

class TestSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Settings("port settings").setValue("serialPortName", QString()); }

    void idLimitsDoNotCross()
    {
        Dialog dialog("ttyA");
        QVERIFY(!dialog.button("scan")->isEnabled()); // no baud rate is chosen
        const std::tuple<const char *, int, int> guards[] = {
            {"lower", 40, 40}, {"lower", 41, 20}, {"upper", 20, 20}, {"upper", 19, 40}, {"upper", 254, 253}};
        for (const auto &[limit, value, expected] : guards) {
            dialog.choose({}, 20, 40);
            dialog.spinBox(limit)->setValue(value);
            QCOMPARE(dialog.spinBox(limit)->value(), expected);
        }
    }

    void theSelectBoxTogglesBetweenAllAndNone()
    {
        const std::tuple<int, Qt::CheckState, int> rows[] = {
            {0, Qt::Unchecked, 10}, {1, Qt::PartiallyChecked, 0}, {10, Qt::Checked, 0}};
        for (const auto &[chosen, state, checkedAfter] : rows) {
            Dialog dialog("ttyA");
            dialog.choose(BaudRates.mid(0, chosen), 1, 10);
            auto *all = dialog.findChild<QCheckBox *>("selectCheckBox");
            QCOMPARE(all->checkState(), state);
            all->click();
            QCOMPARE(dialog.checkedBaudRates(), checkedAfter);
            all->click();
            QCOMPARE(dialog.checkedBaudRates(), 10 - checkedAfter);
        }
    }

    void aScanListsEachServoWhereItAnsweredFirst()
    {
        SimulatorProcess simulator({"--servo", "zelvar:7:57600", "--servo", "zelvar:2:57600", "--servo", "zelvar:7",
                                    "--servo", "ax12:3", "--servo", "zelvar:0", "--servo", "zelvar:4:115200"});
        Dialog dialog(simulator.name());
        dialog.choose({"1000000", "57600"}, 0, 7);
        QVERIFY(dialog.scanFinds({"57600", "2 Zelvar M1", "7 Zelvar M1", //
                                  "1000000", "0 Zelvar M1", "3 Zelvar M0"}));
        QStringList expected;
        for (int id = 0; id <= 7; ++id)
            expected << QString("57600:%1").arg(id);
        for (const int id : {0, 1, 3, 4, 5, 6})
            expected << QString("1000000:%1").arg(id);
        QCOMPARE(dialog.probes, expected);
        QVERIFY(dialog.tree()->topLevelItem(0)->isExpanded());
        QVERIFY(dialog.button("scan")->isEnabled());
        QVERIFY(!dialog.button("abortScan")->isEnabled());
        QCOMPARE(dialog.said(), "The search is over. Servos found: 4.\n"
                                "Asked: ids 0 to 7 at 57600, 1000000 baud on " +
                                    simulator.name() + '.');
        QCOMPARE(dialog.focusWidget(), dialog.tree());
        QCOMPARE(dialog.tree()->currentItem()->text(1), QString("2"));
    }

    void aScanThatFindsNothingSaysWhy()
    {
        const PtyPeer silent([](const Packet &) { return QByteArray(); });
        const QString missing = "/dev/no-such-port";
        const QString notAsked = "The search is over. No servo was asked.\nThe serial port " + missing +
                                 " was not found. Check that the adapter is plugged in, or choose another port in the "
                                 "settings.";
        const QString asked =
            "The search is over. No servo answered.\nAsked: ids 1 to 2 at %1 baud on " + silent.path();
        const QString missed = ".\nAt %1 baud, servos may need more than the 20 ms that each one is given and may have "
                               "been missed. To make sure, choose the baud rate in the settings and connect to the "
                               "servo's id.";
        const std::tuple<QString, QStringList, QString> rows[] = {
            {missing, {"9600", "1000000"}, notAsked},
            {silent.path(), {"38400", "1000000"}, asked.arg("38400, 1000000") + '.'},
            {silent.path(), BaudRates.mid(0, 2), asked.arg("9600, 19200") + missed.arg("9600, 19200")},
        };
        for (const auto &[port, baudRates, statement] : rows) {
            const InRow row(statement);
            Dialog dialog(port);
            dialog.choose(baudRates, 1, 2);
            dialog.button("scan")->click();
            QCOMPARE(dialog.said(), statement);
            dialog.close();
            dialog.show();
            QCOMPARE(dialog.said(), statement);
        }
    }

    void theChosenServoIsHandedOver()
    {
        for (const bool byDoubleClick : {false, true}) {
            Dialog dialog("ttyA");
            QTreeWidgetItem *root = dialog.addTreeRoot("57600");
            dialog.addTreeChild(root, "7", "1");
            dialog.tree()->expandAll();
            dialog.ports()->setCurrentText(OtherPort); // not where the servo is
            QSignalSpy baudRates(&dialog, &SearchDialog::updateBaudRate);
            QSignalSpy ids(&dialog, &SearchDialog::updateId);
            QWidget *rows = dialog.tree()->viewport();
            const auto placeOf = [&](QTreeWidgetItem *item) { return dialog.tree()->visualItemRect(item).center(); };
            QTest::mouseClick(rows, Qt::LeftButton, {}, placeOf(root));
            QVERIFY(!dialog.button("select")->isEnabled());
            QTest::mouseClick(rows, Qt::LeftButton, {}, placeOf(root->child(0)));
            QVERIFY(dialog.button("select")->isEnabled());
            QTest::mouseDClick(rows, Qt::LeftButton, {}, placeOf(root));
            QVERIFY(dialog.isVisible());
            dialog.tree()->expandAll(); // the double click has folded it
            QTest::mouseClick(rows, Qt::LeftButton, {}, placeOf(root->child(0)));
            if (byDoubleClick)
                QTest::mouseDClick(rows, Qt::LeftButton, {}, placeOf(root->child(0)));
            else
                dialog.button("select")->click();
            QCOMPARE(baudRates, QList<QVariantList>{{57600}});
            QCOMPARE(ids, QList<QVariantList>{{7}});
            QCOMPARE(dialog.selectedPort(), QString("ttyA"));
            QVERIFY(!dialog.isVisible());
        }
    }

    void whatEndsAScan()
    {
        using Act = void (*)(Dialog *);
        const QStringList first{"9600:1", "9600:2"};
        const QStringList second = first + QStringList{"19200:1", "19200:2"};
        const QStringList all = second + QStringList{"38400:1", "38400:2"};
        // What a user does during the first probe or, queued, when events are processed before the second baud rate.
        // clang-format off
        const std::tuple<const char *, Act, bool, QStringList, const char *> rows[] = {
            {"abort, in the sweep",      [](Dialog *d) { d->abortScan(); },                  false, first,  "The search was aborted after 1 of 3 baud rates"},
            {"abort, clicked",           [](Dialog *d) { d->button("abortScan")->click(); }, true,  second, "The search was aborted after 2 of 3 baud rates"},
            {"closed and shown again",   [](Dialog *d) { d->close(); d->show(); },           true,  first,  ""},
            {"destroyed",                [](Dialog *d) { delete d; },                        true,  first,  ""},
            {"nothing: a scan in a scan", [](Dialog *d) { d->scan(); },                      true,  all,    "The search is over"},
        };
        // clang-format on
        for (const auto &[name, act, isQueued, expected, statement] : rows) {
            const InRow row(name);
            const int threads = countOf("task");
            QStringList probes;
            {
                PtyPeer bus([](const Packet &) { return QByteArray(); });
                QPointer<Dialog> dialog = new Dialog(bus.path());
                dialog->choose({"9600", "19200", "38400"}, 1, 2);
                connect(dialog, &SearchDialog::doScanServo, this,
                        [&, action = act, queued = isQueued](int id, int rate) {
                            probes << QString("%1:%2").arg(rate).arg(id);
                            QVERIFY(!dialog->button("scan")->isEnabled());
                            QVERIFY(dialog->button("abortScan")->isEnabled());
                            if (probes.size() > 1)
                                return;
                            if (!queued)
                                return action(dialog);
                            QTimer::singleShot(0, this, [&dialog, action] { action(dialog); });
                        });
                dialog->scan();
                QVERIFY(!dialog || !dialog->button("abortScan")->isEnabled());
                QCOMPARE(dialog ? dialog->said().section('.', 0, 0) : QString(), QString(statement));
                delete dialog;
            }
            QCOMPARE(probes, expected);
            QTRY_COMPARE(countOf("task"), threads);
            QCOMPARE(SearchDialog::instance(), nullptr);
        }
    }

    void manyProbesLeaveNothingBehind()
    {
        PtyPeer bus(everyServo);
        Dialog dialog(bus.path());
        dialog.choose({"1000000"}, 0, 253);
        connect(&dialog, &SearchDialog::doScanServo, this,
                [] { QVERIFY2(!SearchHelper::probeMutex().tryLock(), "the answer may come before the wait for it"); });
        const int threads = countOf("task");
        dialog.scan(); // opens what the process opens only once
        const int descriptors = countOf("fd");
        QVERIFY(dialog.rows().size() > 254 / 2); // all but those that a busy machine was too slow for
        QVERIFY(dialog.rows()[1].endsWith(" Zelvar M-128"));
        dialog.scan();
        QCOMPARE(countOf("fd"), descriptors);
        QTRY_COMPARE(countOf("task"), threads);
    }
};

ZELVAR_TEST_MAIN(TestSearch)
#include "tst_search.moc"
