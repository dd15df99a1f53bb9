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
#include <QComboBox>
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

std::shared_ptr<SerialPortItem> port(const QString &name, quint16 vendor = 0, const QString &description = {})
{
    return std::make_shared<SerialPortItem>(name, description, QString(), "/dev/" + name, vendor, quint16(0));
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

    template <typename T> T *child(const QString &name) const
    {
        T *found = findChild<T *>(name);
        if (!found)
            qFatal("no child %s", qPrintable(name));
        return found;
    }
    QPushButton *button(const QString &name) const { return child<QPushButton>(name + "PushButton"); }
    QCheckBox *baudRate(const QString &rate) const { return child<QCheckBox>("baudRate" + rate + "CheckBox"); }
    QCheckBox *selectAll() const { return child<QCheckBox>("selectCheckBox"); }
    QComboBox *portBox() const { return child<QComboBox>("serialPortInfoListBox"); }
    QTreeWidget *tree() const { return child<QTreeWidget>("servoTreeWidget"); }
    QSpinBox *spinBox(const QString &limit) const { return child<QSpinBox>(limit + "SearchRangeSpinBox"); }

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

int entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot).size();
}
int openDescriptors()
{
    return entriesOf("/proc/self/fd");
}
int runningThreads()
{
    return entriesOf("/proc/self/task");
}

} // namespace

Q_DECLARE_METATYPE(Act)

class TestSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Settings("port settings").setValue("serialPortName", QString()); }

    void idLimitsDoNotCross_data()
    {
        QTest::addColumn<QString>("limit");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("expected");
        QTest::newRow("lower below upper") << "lower" << 39 << 39;
        QTest::newRow("lower meets upper") << "lower" << 40 << 40;
        QTest::newRow("lower above upper goes back") << "lower" << 41 << 20;
        QTest::newRow("lower down to 0") << "lower" << 0 << 0;
        QTest::newRow("upper above lower") << "upper" << 21 << 21;
        QTest::newRow("upper meets lower") << "upper" << 20 << 20;
        QTest::newRow("upper below lower goes back") << "upper" << 19 << 40;
        QTest::newRow("upper up to 253") << "upper" << 254 << 253;
    }

    void idLimitsDoNotCross()
    {
        QFETCH(QString, limit);
        QFETCH(int, value);
        Dialog dialog({"ttyA"});
        dialog.choose({}, 20, 40);
        dialog.spinBox(limit)->setValue(value);
        QTEST(dialog.spinBox(limit)->value(), "expected");
        dialog.show(); // from limits that both lie beyond those it starts over with
        QCOMPARE(dialog.spinBox("lower")->value(), 1);
        QCOMPARE(dialog.spinBox("upper")->value(), 10);
    }

    void theSelectBoxTogglesBetweenAllAndNone_data()
    {
        QTest::addColumn<int>("checkedBefore");
        QTest::addColumn<int>("stateBefore");
        QTest::addColumn<int>("checkedAfter");
        QTest::newRow("none -> all") << 0 << int(Qt::Unchecked) << 10;
        QTest::newRow("one -> none") << 1 << int(Qt::PartiallyChecked) << 0;
        QTest::newRow("nine -> none") << 9 << int(Qt::PartiallyChecked) << 0;
        QTest::newRow("all -> none") << 10 << int(Qt::Checked) << 0;
    }

    void theSelectBoxTogglesBetweenAllAndNone()
    {
        QFETCH(int, checkedBefore);
        QFETCH(int, checkedAfter);
        Dialog dialog({"ttyA"});
        dialog.choose(BaudRates.mid(0, checkedBefore), 1, 10);
        QTEST(int(dialog.selectAll()->checkState()), "stateBefore");
        dialog.selectAll()->click();
        QCOMPARE(dialog.checkedBaudRates(), checkedAfter);
        QCOMPARE(int(dialog.selectAll()->checkState()), int(checkedAfter ? Qt::Checked : Qt::Unchecked));
        dialog.selectAll()->click();
        QCOMPARE(dialog.checkedBaudRates(), 10 - checkedAfter);
    }

    void scanNeedsAPortAndABaudRate()
    {
        Dialog dialog({});
        dialog.choose({"9600"}, 1, 10);
        QVERIFY(!dialog.button("scan")->isEnabled());
        dialog.portBox()->addItem("ttyA");
        QVERIFY(dialog.button("scan")->isEnabled());
        dialog.baudRate("9600")->setChecked(false);
        QVERIFY(!dialog.button("scan")->isEnabled());
        dialog.portBox()->clear();
        dialog.portBox()->addItem("ttyB");
        QVERIFY(!dialog.button("scan")->isEnabled());
    }

    void showingStartsOverWithThePortsPresent()
    {
        Dialog dialog({"ttyA", "ttyB"});
        dialog.portBox()->setCurrentText("ttyB");
        dialog.choose(BaudRates, 100, 200);
        dialog.tree()->setCurrentItem(dialog.addTreeRoot("9600"));
        dialog.ports->ports.insert(dialog.ports->ports.begin(), port("ttyNew", 0x10c4, "Adapter"));
        dialog.show();
        QCOMPARE(dialog.portBox()->currentText(), QString("ttyB"));
        QCOMPARE(dialog.portBox()->itemData(0).toStringList(),
                 QStringList({"ttyNew", "Adapter", "N/A", "/dev/ttyNew", "10c4", "N/A"}));
        QCOMPARE(dialog.checkedBaudRates(), 0);
        QCOMPARE(dialog.spinBox("lower")->value(), 1);
        QCOMPARE(dialog.spinBox("upper")->value(), 10);
        QCOMPARE(dialog.rows(), QStringList());
        QVERIFY(!dialog.button("select")->isEnabled());

        Settings("port settings").setValue("serialPortName", "ttyA");
        dialog.show();
        QCOMPARE(dialog.portBox()->currentText(), QString("ttyA"));
        Settings("port settings").setValue("serialPortName", "unplugged");
        dialog.show();
        QCOMPARE(dialog.portBox()->currentText(), QString("ttyA"));
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

    void theModelIsASignedByte()
    {
        PtyPeer bus(everyServo);
        Dialog dialog({bus.path()});
        dialog.choose({"9600"}, 9, 9);
        QVERIFY(dialog.scanFinds({"9600", "9 Zelvar M-128"}));
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

        dialog.tree()->clearSelection();
        root->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        root->setSelected(true);
        dialog.select();
        QCOMPARE(ids.size(), 1);
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
        QTest::newRow("cancel") << Act([](Dialog *d) { d->button("cancel")->click(); }) << true << first;
        QTest::newRow("closed and shown again") << Act([](Dialog *d) { d->close(); d->show(); }) << true << first;
        QTest::newRow("destroyed") << Act([](Dialog *d) { delete d; }) << true << first;
        QTest::newRow("nothing: a scan in a scan")
            << Act([](Dialog *d) { d->scan(); }) << true << second + QStringList{"38400:1", "38400:2"};
    }

    void whatEndsAScan()
    {
        QFETCH(Act, act);
        QFETCH(bool, isQueued);
        const int threads = runningThreads();
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
        QTRY_COMPARE(runningThreads(), threads);
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
            QTRY_COMPARE(bus.receivedCount(), 1);
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
        const int threads = runningThreads();
        dialog.scan(); // opens what the process opens only once
        const int descriptors = openDescriptors();
        QVERIFY(dialog.rows().size() > 254 / 2); // all but those that a busy machine was too slow for
        dialog.scan();
        QCOMPARE(openDescriptors(), descriptors);
        QTRY_COMPARE(runningThreads(), threads);
    }

    void aPortThatCannotBeOpenedAnswersNothing()
    {
        Dialog dialog({"/dev/null/no-such-port"});
        dialog.choose({"9600", "1000000"}, 1, 10);
        dialog.scan();
        QCOMPARE(dialog.probes.size(), 20);
        QCOMPARE(dialog.rows(), QStringList());
        QVERIFY(dialog.button("scan")->isEnabled());
    }
};

ZELVAR_TEST_MAIN(TestSearch)
#include "tst_search.moc"
