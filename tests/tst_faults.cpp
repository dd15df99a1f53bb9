// Every fault of the line against everything that the program does with it: nothing crashes, hangs or warns, nothing is
// shown that was never in the servo, and what was applied gets there, in its order.

#include "app/backups.h"
#include "link/processwide.h"
#include "search/searchdialog.h"
#include "tests/support/desk.h"
#include "widgets/uigrouphelper.h"

namespace {

constexpr int ServoId = 3;
constexpr int TargetPosition = 78;         // register
constexpr int AccelerationLimitRow = 18;   // in "Non-volatile bank 1"
constexpr int TargetPositionRow = 16;      // in "Volatile bank 1"
constexpr int RestingRow = 17;             // "Debug 2" in "Volatile bank 2": whether the servo is at rest
constexpr int ErrorRow = 18;               // "Debug 3" in "Volatile bank 2": how far away the target is
constexpr int Targets[] = {100, 200, 300}; // counts, applied in this order

const char *const Tables[] = {"eepromRegisterBank1Widget", "eepromRegisterBank2Widget", "ramRegisterBank1TableWidget",
                              "ramRegisterBank2TableWidget"};

QString hexadecimal(int value, int byte)
{
    return QString("0x%1").arg((value >> (8 * byte)) & 0xFF, 2, 16, QLatin1Char('0'));
}

QString cellName(const char *table, int row)
{
    return QString("%1:%2").arg(table).arg(row);
}

/** What each cell of the register view may show. */
using Cells = QMap<QString, QSet<QString>>;

/** A desk that writes down whatever the register view shows and nobody may ever see. */
struct WatchedDesk : Desk
{
    WatchedDesk(const QString &fault, const Cells &allowed) : Desk(ServoId, {"--seed", "11", "--fault", fault})
    {
        showTab(1);
        for (const char *name : Tables) {
            auto *table = find<QTableWidget>(name);
            QObject::connect(table, &QTableWidget::cellChanged, table, [=, &allowed](int row, int column) {
                const QString text = table->item(row, column)->text();
                if (column == 1 && !allowed.value(cellName(name, row)).contains(text))
                    wrong.append(cellName(name, row) + " " + text);
                ++shown;
            });
        }
    }

    /** Connects, again and again when the servo cannot be identified. @return whether it could. */
    bool connectToServo()
    {
        constexpr int Attempts = 8;
        for (int i = 0; i < Attempts && watcher.boxes.isEmpty(); ++i) {
            trigger("actionConnect");
            if (QTest::qWaitFor([this] { return status() != "Disconnected" || !watcher.boxes.isEmpty(); }, 500))
                return status() == "Connected";
            trigger("actionDisconnect");
        }
        return false;
    }
    QString targetPosition() const
    {
        QString bytes;
        for (int i = 0; i < 4; ++i)
            bytes += cell("ramRegisterBank1TableWidget", TargetPositionRow + i);
        return bytes;
    }
    void applyTargets() const
    {
        for (const int target : Targets) {
            Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(
                TargetPosition, QByteArray(reinterpret_cast<const char *>(&target), 4));
        }
    }

    QStringList wrong;
    int shown = 0;
};

/** Something that users do at a desk; @p mustWork unless the fault is the end of all answers. */
using Operation = void (*)(WatchedDesk &desk, bool mustWork);

} // namespace

Q_DECLARE_METATYPE(Operation)

class TestFaults : public QObject
{
    Q_OBJECT

    Cells m_allowed;

    static void poll(WatchedDesk &desk, bool mustWork)
    {
        QVERIFY(desk.connectToServo() || !mustWork);
        if (mustWork)
            QTRY_VERIFY(desk.shown > 0);
    }

    static void write(WatchedDesk &desk, bool mustWork)
    {
        desk.connectToServo();
        desk.applyTargets();
        if (mustWork)
            QTRY_COMPARE(desk.targetPosition(), QString("0x2c0x010x000x00"));
    }

    /** The word "restored" is said when the servo has it all, and nothing is said to be proved that is not. */
    static void restore(WatchedDesk &desk, bool mustWork)
    {
        if (!desk.connectToServo())
            return;
        auto *action = desk.find<QAction>("actionRestore");
        if (!QTest::qWaitFor([action] { return action->isEnabled(); }, 1000))
            return; // it was never polled
        QTemporaryDir folder;
        QFile file(folder.filePath("slow.zservo"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(R"({"format": "zelvar-servo-parameters", "version": 1, "model": 258, "partial": true,)"
                   R"("fields": {"acceleration_limit": {"raw": 5000}}})");
        file.close();
        desk.window->backups().open(file.fileName(), dialogs::ComparisonDialog::Purpose::Restore);
        auto *dialog = desk.find<dialogs::ComparisonDialog>("comparisonDialog");
        dialog->findChild<QPushButton *>("restoreButton")->click();
        const auto *statement = dialog->findChild<QLabel *>("statementLabel");
        QTRY_VERIFY_WITH_TIMEOUT(!statement->text().startsWith("Writing"), 20000);
        const bool isRestored = statement->text().startsWith("Restored");
        QVERIFY2(isRestored || !mustWork, qPrintable(statement->text()));
        QVERIFY2(isRestored || statement->text().contains("rest") || statement->text().contains("Nothing"),
                 qPrintable(statement->text()));
        dialog->reject();
        if (mustWork)
            QTRY_COMPARE(desk.cell(Tables[0], AccelerationLimitRow) + desk.cell(Tables[0], AccelerationLimitRow + 1),
                         QString("0x880x13"));
    }

    static void rebootAndReset(WatchedDesk &desk, bool)
    {
        const std::pair<const char *, const char *> steps[] = {
            {"actionReboot", "Zelvar servo id:3 was rebooted successfully"},
            {"actionReset", "Factory reset of Zelvar servo id:3 was successful"}};
        for (const auto &[action, text] : steps) {
            const int before = desk.watcher.boxes.size();
            desk.trigger(action);
            QVERIFY(desk.watcher.boxes.size() <= before + 1);
            desk.watcher.boxes.removeAll(BoxWatcher::success(text));
        }
    }

    static void scan(WatchedDesk &desk, bool)
    {
        desk.trigger("actionSearch");
        SearchDialog *dialog = SearchDialog::instance();
        dialog->findChild<QCheckBox *>("baudRate1000000CheckBox")->setChecked(true);
        dialog->findChild<QPushButton *>("scanPushButton")->click();
        const auto *tree = dialog->findChild<QTreeWidget *>("servoTreeWidget");
        if (const QTreeWidgetItem *root = tree->topLevelItem(0)) {
            for (int i = 0; i < root->childCount(); ++i) {
                const QString found = root->child(i)->text(1) + root->child(i)->text(2);
                QVERIFY2(found == "3Zelvar M1" || found == "5Zelvar M0", qPrintable(found));
            }
        }
        dialog->close();
    }

    static void disconnectInBetween(WatchedDesk &desk, bool)
    {
        if (desk.connectToServo())
            desk.trigger("actionDisconnect");
        QCOMPARE(desk.status(), QString("Disconnected"));
        QVERIFY(desk.find<QAction>("actionConnect")->isEnabled());
    }

    static void closeInBetween(WatchedDesk &desk, bool)
    {
        desk.connectToServo();
        desk.applyTargets();
        desk.window->close();
        desk.window.reset();
    }

private Q_SLOTS:
    void initTestCase()
    {
        // What a servo that nobody disturbs shows, and the targets that are applied below.
        Desk desk(ServoId);
        desk.showTab(1);
        desk.trigger("actionConnect");
        QTRY_COMPARE(desk.cell("ramRegisterBank2TableWidget", 21), QString("0x00"));
        for (const char *table : Tables) {
            for (int row = 0; row < desk.find<QTableWidget>(table)->rowCount(); ++row)
                m_allowed[cellName(table, row)].insert(desk.cell(table, row));
        }
        m_allowed[cellName(Tables[0], AccelerationLimitRow)].insert("0x88");
        m_allowed[cellName(Tables[0], AccelerationLimitRow + 1)].insert("0x13");
        m_allowed[cellName(Tables[3], RestingRow)] = {"0x00", "0x01"};
        for (const int target : Targets) {
            for (int byte = 0; byte < 4; ++byte)
                m_allowed[cellName(Tables[2], TargetPositionRow + byte)].insert(hexadecimal(target, byte));
            for (int byte = 0; byte < 2; ++byte) // the servo does not move
                m_allowed[cellName(Tables[3], ErrorRow + byte)].insert(hexadecimal(target, byte));
        }
    }

    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void everyFaultAgainstEverything_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<Operation>("operation");
        const char *const faults[] = {"drop=0.4",  "corrupt=0.4", "truncate=0.4", "garbage=0.5",  "delay=45",
                                      "delay=100", "chunk",       "echo",         "mute-after=2", "vanish-after=2"};
        const std::pair<const char *, Operation> operations[] = {
            {"poll", poll},           {"write", write},
            {"restore", restore},     {"reboot, reset", rebootAndReset},
            {"scan", scan},           {"disconnect", disconnectInBetween},
            {"close", closeInBetween}};
        for (const char *fault : faults) {
            for (const auto &[name, operation] : operations)
                QTest::addRow("%s while %s", fault, name) << QString(fault) << operation;
        }
    }

    void everyFaultAgainstEverything()
    {
        QFETCH(QString, fault);
        QFETCH(Operation, operation);
        // Two replies are enough to be identified and polled once, and not for more.
        const bool isEnd = fault.contains("after");
        WatchedDesk desk(fault, m_allowed);
        operation(desk, !isEnd);
        QVERIFY2(desk.wrong.isEmpty(), qPrintable(desk.wrong.join(", ")));
        // What may be told: the port's end, a servo that fell silent after a write, and a reboot that got lost.
        QStringList telling;
        if (fault.startsWith("vanish"))
            telling << "was lost"
                    << "was not found";
        if (isEnd)
            telling << "has not answered since";
        if (QByteArray(QTest::currentDataTag()).contains("reboot"))
            telling << "did not answer";
        for (const QString &box : qAsConst(desk.watcher.boxes)) {
            const auto isIn = [&box](const QString &text) { return box.contains(text); };
            QVERIFY2(std::any_of(telling.begin(), telling.end(), isIn), qPrintable(box));
        }
    }
};

ZELVAR_TEST_MAIN(TestFaults)
#include "tst_faults.moc"
