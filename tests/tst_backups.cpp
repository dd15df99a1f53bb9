// What the window does with a servo's parameters as a whole, on a simulated bus: a reset undone, gains stored, a servo
// replaced, and what keeps a restore from being done.

#include "app/backups.h"
#include "link/processwide.h"
#include "profile/profilefile.h"
#include "session/connection.h"
#include "tests/support/desk.h"
#include "widgets/uigrouphelper.h"

using dialogs::ComparisonDialog;
using Purpose = ComparisonDialog::Purpose;

namespace {

constexpr int AccelerationLimit = 18; // register
constexpr int MotorSwitch = 48;
constexpr int VelocityGain = 62;
const QStringList TwoServos{"--servo", "zelvar:3", "--servo", "zelvar:4"};

struct BackupDesk : Desk
{
    using Desk::Desk;

    void apply(int address, const char *data) const
    {
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(quint8(address), QByteArray(data, 2));
    }
    bool isApplied() const
    {
        const auto *event = find<QLabel>("linkEventLabel");
        return QTest::qWaitFor([event] { return event->text().startsWith("applied"); });
    }
    bool isReady() const
    {
        const auto *action = find<QAction>("actionRestore");
        return connects() && QTest::qWaitFor([action] { return action->isEnabled(); });
    }
    /** Another window, whose port is not about to be closed by an earlier Disconnect. */
    void openAnew()
    {
        window.reset();
        window = std::make_unique<MainWindow>(nullptr);
        window->show();
    }
    /** Shows what @p fields, the fields of a partial file, would change. */
    void restore(const char *fields)
    {
        QFile file(folder.filePath("wanted.zservo"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(R"({"format": "zelvar-servo-parameters", "version": 1, "model": 258, "partial": true,)"
                              R"("fields": {)") +
                   fields + "}}");
        file.close();
        window->backups().open(file.fileName(), Purpose::Restore);
    }
    ComparisonDialog *dialog() const { return find<ComparisonDialog>("comparisonDialog"); }
    QAbstractItemModel *rows() const { return dialog()->findChild<QTableView *>("comparisonTable")->model(); }
    QPushButton *button() const { return dialog()->findChild<QPushButton *>("restoreButton"); }
    QString statement() const { return dialog()->findChild<QLabel *>("statementLabel")->text(); }
    void tickAll() const
    {
        for (int row = 0; row < rows()->rowCount(); ++row)
            rows()->setData(rows()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    }

    QTemporaryDir folder;
};

} // namespace

class TestBackups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QSettings("Ostravel", "Zelvar Servo Manager").clear();
        QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).removeRecursively();
    }

    void aFactoryResetIsUndone()
    {
        BackupDesk desk(3);
        QVERIFY(desk.isReady());
        desk.apply(AccelerationLimit, "\x88\x13");
        QVERIFY(desk.isApplied());
        desk.trigger("actionDisconnect"); // at once: the history has it although no poll comes any more
        desk.openAnew();
        desk.trigger("actionReset");
        QVERIFY(desk.isReady());
        auto *offer = desk.find<QToolButton>("linkOfferButton");
        QTRY_VERIFY(offer->isVisible());
        QVERIFY(desk.find<QLabel>("linkEventLabel")->text().startsWith("1 parameter differs from"));
        offer->click();
        QCOMPARE(desk.rows()->rowCount(), 1);
        QCOMPARE(desk.dialog()->asText().section('\n', 1), QString("Acceleration limit\t24.00 rad/s²\t5.00 rad/s²"));
        const QPointer<ComparisonDialog> comparison = desk.dialog();
        desk.button()->click();
        QTRY_VERIFY(!comparison);
        desk.button()->click();
        QTRY_VERIFY2(desk.statement().startsWith("Restored and read back: 22 fields compared, 21 equal, 1 written"),
                     qPrintable(desk.statement()));
        desk.showTab(1);
        QTRY_COMPARE(desk.cell("eepromRegisterBank1Widget", AccelerationLimit), QString("0x88"));
        QCOMPARE(desk.status(), QString("Connected"));
        QVERIFY(!offer->isVisible()); // what was restored is no surprise
    }

    void gainsInUseAreStored()
    {
        BackupDesk desk(3);
        QVERIFY(desk.isReady());
        desk.apply(VelocityGain, "\xDC\x05");
        QVERIFY(desk.isApplied());
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(MotorSwitch, QByteArray(1, '\1'));
        const auto *sign = desk.find<QLabel>("linkUnkeptLabel");
        const auto *motor = desk.find<QLabel>("linkMotorLabel");
        QTRY_VERIFY(sign->isVisible() && motor->text() == "motor on");
        desk.trigger("actionKeepGains");
        QVERIFY(!desk.button()->isEnabled()); // not while the motor is on
        desk.dialog()->findChild<QCheckBox *>("stopMotorCheckBox")->click();
        desk.button()->click();
        QTRY_VERIFY2(desk.statement().startsWith("Kept and read back: 7 fields compared, 6 equal, 1 written"),
                     qPrintable(desk.statement()));
        QTRY_VERIFY(!sign->isVisible() && motor->text() == "motor off");
    }

    void aServoIsFollowedToItsNewAddress()
    {
        BackupDesk desk(3, TwoServos);
        QVERIFY(desk.isReady());
        desk.click("vParamsEditSaveToolButton");
        desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(0.5);
        desk.restore(R"("id": {"value": 42}, "baud_rate": {"value": 57600}, "acceleration_limit": {"value": 5})");
        desk.tickAll();
        desk.button()->click();
        QTRY_VERIFY2(desk.statement().startsWith("Restored"), qPrintable(desk.statement()));
        QTRY_COMPARE(desk.status(), QString("Connected"));
        QVERIFY((desk.window->connection().address() == model::ServoAddress{42, 57600}));
        // The connections ended and began by themselves: what that has cost is still there to be read.
        QVERIFY(desk.find<QLabel>("linkEventLabel")->text().startsWith("changed and not applied"));
    }

    void whatIsInTheWayIsTold()
    {
        BackupDesk desk(3, TwoServos);
        QVERIFY(desk.isReady());
        desk.restore(R"("id": {"value": 4}, "acceleration_limit": {"value": 5})");
        desk.tickAll();
        desk.button()->click();
        QTRY_VERIFY2(desk.statement().startsWith("Nothing was written: another servo has the id 4"),
                     qPrintable(desk.statement()));
        QVERIFY(desk.button()->isEnabled()); // once the other one is gone

        // A stop comes first, and the same restore again does the rest.
        QTRY_VERIFY(desk.find<QAction>("actionRestore")->isEnabled());
        desk.restore(R"("acceleration_limit": {"value": 5})");
        desk.button()->click();
        QTest::keyClick(desk.dialog(), Qt::Key_F8);
        QTRY_VERIFY2(desk.statement().startsWith("Stopped."), qPrintable(desk.statement()));
        desk.button()->click();
        QTRY_VERIFY2(desk.statement().startsWith("Restored"), qPrintable(desk.statement()));
        QTRY_COMPARE(desk.status(), QString("Connected"));
    }
};

ZELVAR_TEST_MAIN(TestBackups)
#include "tst_backups.moc"
