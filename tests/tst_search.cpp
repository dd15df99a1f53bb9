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

#include <QCheckBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>

using namespace wire;

namespace {
const QStringList BaudRates{"9600",   "19200",  "38400",  "57600",  "115200",
                            "200000", "250000", "400000", "500000", "1000000"};

std::shared_ptr<SerialPortItem> port(const QString &name)
{
    return std::make_shared<SerialPortItem>(name, QString(), QString(), "/dev/" + name, 0, 0);
}

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
    std::shared_ptr<FakeSerialPort> ports; ///< only lists; a probe opens its own
    QStringList probes;                    ///< "baud rate:id", in order

    explicit Dialog(const QStringList &portNames) : Dialog(portNames, std::make_shared<FakeSerialPort>()) {}

    QPushButton *button(const QString &name) const { return findChild<QPushButton *>(name + "PushButton"); }
    QCheckBox *baudRate(const QString &rate) const { return findChild<QCheckBox *>("baudRate" + rate + "CheckBox"); }
    QCheckBox *selectAll() const { return findChild<QCheckBox *>("selectCheckBox"); }
    QTreeWidget *tree() const { return findChild<QTreeWidget *>("servoTreeWidget"); }
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
    Dialog(const QStringList &portNames, std::shared_ptr<FakeSerialPort> fake)
        : SearchDialog(std::make_shared<SerialHelper>(listing(*fake, portNames, fake))), ports(fake)
    {
        show();
        connect(this, &SearchDialog::doScanServo, this,
                [this](int id, int rate) { probes << QString("%1:%2").arg(rate).arg(id); });
    }
    static std::shared_ptr<FakeSerialPort> listing(FakeSerialPort &fake, const QStringList &names,
                                                   std::shared_ptr<FakeSerialPort> owner)
    {
        for (const QString &name : names)
            fake.ports.push_back(port(name));
        return owner;
    }
};

/** What a user does in the middle of a scan. */
using Act = std::function<void(Dialog *)>;

/** How many file descriptors ("fd") or threads ("task") this process has. */
int countOf(const QString &kind)
{
    return QDir("/proc/self/" + kind).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

} // namespace

Q_DECLARE_METATYPE(Act)

class TestSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Settings("port settings").setValue("serialPortName", QString()); }

    void idLimitsDoNotCross()
    {
        Dialog dialog({"ttyA"});
        QVERIFY(!dialog.button("scan")->isEnabled()); // no baud rate is chosen
        const struct
        {
            const char *limit;
            int value;
            int expected;
        } guards[] = {
            {"lower", 40,  40 },
            {"lower", 41,  20 },
            {"upper", 20,  20 },
            {"upper", 19,  40 },
            {"upper", 254, 253},
        };
        for (const auto &guard : guards) {
            dialog.choose({}, 20, 40);
            dialog.spinBox(guard.limit)->setValue(guard.value);
            QCOMPARE(dialog.spinBox(guard.limit)->value(), guard.expected);
        }
    }

    void theSelectBoxTogglesBetweenAllAndNone()
    {
        const QMap<int, Qt::CheckState> states{
            {0,  Qt::Unchecked       },
            {1,  Qt::PartiallyChecked},
            {10, Qt::Checked         }
        };
        for (auto state = states.begin(); state != states.end(); ++state) {
            Dialog dialog({"ttyA"});
            dialog.choose(BaudRates.mid(0, state.key()), 1, 10);
            QCOMPARE(dialog.selectAll()->checkState(), state.value());
            const int checkedAfter = state.key() == 0 ? 10 : 0;
            dialog.selectAll()->click();
            QCOMPARE(dialog.checkedBaudRates(), checkedAfter);
            dialog.selectAll()->click();
            QCOMPARE(dialog.checkedBaudRates(), 10 - checkedAfter);
        }
    }

    void aScanListsEachServoWhereItAnsweredFirst()
    {
        SimulatorProcess simulator({"--servo", "zelvar:7:57600", "--servo", "zelvar:2:57600", "--servo", "zelvar:7",
                                    "--servo", "ax12:3", "--servo", "zelvar:0", "--servo", "zelvar:4:115200"});
        Dialog dialog({simulator.name()});
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
    }

    void theChosenServoIsHandedOver()
    {
        Dialog dialog({"ttyA"});
        QTreeWidgetItem *root = dialog.addTreeRoot("57600");
        dialog.addTreeChild(root, "7", "1");
        dialog.tree()->expandAll();
        QSignalSpy baudRates(&dialog, &SearchDialog::updateBaudRate);
        QSignalSpy ids(&dialog, &SearchDialog::updateId);
        const auto click = [&](QTreeWidgetItem *item) {
            QTest::mouseClick(dialog.tree()->viewport(), Qt::LeftButton, {},
                              dialog.tree()->visualItemRect(item).center());
        };
        click(root);
        QVERIFY(!dialog.button("select")->isEnabled());
        click(root->child(0));
        QVERIFY(dialog.button("select")->isEnabled());
        dialog.button("select")->click();
        QCOMPARE(baudRates, QList<QVariantList>{{57600}});
        QCOMPARE(ids, QList<QVariantList>{{7}});
        QVERIFY(!dialog.isVisible());
    }

    void whatEndsAScan_data()
    {
        QTest::addColumn<Act>("act");
        QTest::addColumn<bool>("isQueued"); // done when events are processed, before the second baud rate
        QTest::addColumn<QStringList>("expected");
        const QStringList first{"9600:1", "9600:2"};
        const QStringList second = first + QStringList{"19200:1", "19200:2"};
        QTest::newRow("abort, in the sweep") << Act([](Dialog *d) { d->abortScan(); }) << false << first;
        QTest::newRow("abort, clicked") << Act([](Dialog *d) { d->button("abortScan")->click(); }) << true << second;
        QTest::newRow("closed and shown again") << Act([](Dialog *d) { d->close(); d->show(); }) << true << first;
        QTest::newRow("destroyed") << Act([](Dialog *d) { delete d; }) << true << first;
        QTest::newRow("nothing: a scan in a scan")
            << Act([](Dialog *d) { d->scan(); }) << true << second + QStringList{"38400:1", "38400:2"};
    }

    void whatEndsAScan()
    {
        QFETCH(Act, act);
        QFETCH(bool, isQueued);
        const int threads = countOf("task");
        QStringList probes;
        {
            PtyPeer bus([](const Packet &) { return QByteArray(); });
            QPointer<Dialog> dialog = new Dialog({bus.path()});
            dialog->choose({"9600", "19200", "38400"}, 1, 2);
            connect(dialog, &SearchDialog::doScanServo, this, [&](int id, int rate) {
                probes << QString("%1:%2").arg(rate).arg(id);
                QVERIFY(!dialog->button("scan")->isEnabled());
                QVERIFY(dialog->button("abortScan")->isEnabled());
                if (probes.size() > 1)
                    return;
                if (isQueued)
                    QTimer::singleShot(0, this, [&] { act(dialog); });
                else
                    act(dialog);
            });
            dialog->scan();
            if (dialog)
                QVERIFY(!dialog->button("abortScan")->isEnabled());
            delete dialog;
        }
        QTEST(probes, "expected");
        QTRY_COMPARE(countOf("task"), threads);
        QCOMPARE(SearchDialog::instance(), nullptr);
    }

    void anAnswerThatComesBeforeTheWaitIsKept()
    {
        PtyPeer bus(everyServo);
        QThread thread;
        SearchHelper helper(bus.path());
        helper.moveToThread(&thread);
        connect(&thread, &QThread::finished, &helper, &SearchHelper::closePort, Qt::DirectConnection);
        thread.start();
        {
            const QMutexLocker lock(&SearchHelper::probeMutex());
            QMetaObject::invokeMethod(&helper, "scanServo", Q_ARG(int, 3), Q_ARG(int, 1000000));
            QTRY_VERIFY(bus.receivedCount() > 0);
            QCOMPARE(helper.waitForReply(QDeadlineTimer(5000)).size(), 4 + 11);
        }
        thread.quit();
        thread.wait();
    }

    void manyProbesLeaveNothingBehind()
    {
        PtyPeer bus(everyServo);
        Dialog dialog({bus.path()});
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
