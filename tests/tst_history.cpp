// What is kept of servos by itself: which entries there are, what damages them and what does not, when the window keeps
// one and says that a servo has something else, and what the user sees of them.

#include "app/historykeeper.h"
#include "app/linkline.h"
#include "dialogs/historydialog.h"
#include "dialogs/historymodel.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "profile/tunedgains.h"
#include "serialport/servobus.h"
#include "session/applyproof.h"
#include "tests/support/fakeline.h"
#include "tests/support/testenvironment.h"

#include <sys/resource.h>

#include <csignal>
#include <thread>

using namespace profile;
using Outcome = KeepResult::Outcome;
using session::State;
using Verdict = session::ApplyReport::Verdict;

namespace {

const ServoKey Servo{258, 3};
const QDateTime Noon({2026, 11, 22}, {12, 0}, Qt::UTC);

model::RegisterImage imageOf(int value, int id = 3, const model::Family &family = model::ZelvarV1Family)
{
    QByteArray bytes(family.tableSize, '\0');
    bytes[0] = char(&family == &model::ZelvarV1Family ? 2 : 12);
    bytes[1] = char(&family == &model::ZelvarV1Family ? 1 : 0);
    bytes[3] = char(id);
    model::putLittleEndian(quint32(value), 2, reinterpret_cast<quint8 *>(bytes.data()) + 14); // (maximum) torque
    model::RegisterImage image(&family);
    image.take(0, bytes, {});
    return image;
}

Profile servoWith(int value, const QDateTime &time = Noon)
{
    return Profile::of(imageOf(value), time);
}

int torqueOf(const Profile &profile)
{
    return profile.raw(*profile.family().fieldAt(14)).value_or(-1);
}

/** The values of all entries, oldest first; -1 for those that cannot be read. */
QVector<int> valuesIn(const History &history, const ServoKey &servo = Servo)
{
    QVector<int> values;
    for (const HistoryEntry &entry : history.entries(servo).entries)
        values.prepend(entry.profile ? torqueOf(*entry.profile) : -1);
    return values;
}

struct Fixture
{
    void fill(int first, int last)
    {
        for (int value = first; value <= last; ++value)
            QCOMPARE(int(history.keep(servoWith(value)).outcome), int(Outcome::Kept));
    }
    HistoryEntry entryOf(int value) const
    {
        for (const HistoryEntry &entry : history.entries(Servo).entries) {
            if (entry.profile && torqueOf(*entry.profile) == value)
                return entry;
        }
        return {};
    }
    QString path(const QString &file) const { return folder.filePath("history/model-258-id-3/" + file); }
    static void write(const QString &path, const QByteArray &text)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder;
    History history{folder.filePath("history")};
};

struct KeeperFixture : Fixture
{
    void report(Verdict verdict)
    {
        session::ApplyReport report;
        report.verdict = verdict;
        Q_EMIT proof.reported(report);
    }

    TurnedClock clock;
    FakeLine *line = new FakeLine(clock, [](const wire::Packet &) { return QByteArray(); });
    ServoBus bus{std::unique_ptr<BusLine>(line), clock};
    std::shared_ptr<model::RegisterImage> image = std::make_shared<model::RegisterImage>();
    session::Connection connection{image, &bus, clock};
    session::ApplyProof proof{connection, bus, image, clock};
    HistoryKeeper keeper{connection, proof, history, [] { return Noon; }};
};

class PlainText : public dialogs::FieldText
{
public:
    QString caption(const model::Field &field) const override { return field.label; }
    QString value(const model::Field &, qint32 raw) const override { return QString("%1 Nm").arg(raw); }
    QString refusal(quint8) const override { return {}; }
};

} // namespace

class TestHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatDiffersIsKeptInOrder()
    {
        const Fixture fixture;
        History history = fixture.history;
        const std::tuple<int, QDateTime, Outcome> rows[] = {
            {1, Noon, Outcome::Kept},
            {1, Noon.addDays(1), Outcome::Same},
            {2, Noon, Outcome::Kept},              // in the same second
            {1, Noon.addYears(-9), Outcome::Kept}, // by a clock that was set back
        };
        for (const auto &[value, time, outcome] : rows)
            QCOMPARE(int(history.keep(servoWith(value, time)).outcome), int(outcome));
        QCOMPARE(int(history.keep(Profile::of(imageOf(7, 5, model::DynamixelAx12Family), Noon)).outcome),
                 int(Outcome::Kept));
        QCOMPARE(valuesIn(history), QVector<int>({1, 2, 1}));
        QCOMPARE(history.entries(Servo).entries.front().time, Noon.addYears(-9));
        QCOMPARE(torqueOf(*history.last({12, 5})), 7);
        QCOMPARE(int(history.servos().size()), 2);
        QCOMPARE(history.servos().back().last, Noon.addYears(-9));
        QVERIFY(!history.last({258, 4}));
    }

    void theOldestGoButForThePinnedAndTheDamaged()
    {
        Fixture fixture;
        fixture.fill(1, History::Capacity);
        QCOMPARE(fixture.history.setPinned(fixture.entryOf(2), true), QString());
        QCOMPARE(fixture.history.setName(fixture.entryOf(2), " as\ndelivered "), QString());
        Fixture::write(fixture.path(fixture.entryOf(3).file), "{");
        fixture.fill(101, 105); // of which one takes the place of the pinned one
        QVector<int> left{2, -1};
        for (int value = 6; value <= 105; ++value)
            left.append(value);
        QCOMPARE(valuesIn(fixture.history), left);
        QCOMPARE(fixture.entryOf(2).name, QString("as delivered"));
        Fixture::write(fixture.path("names.json"), "{\"000002"); // nobody knows what is pinned now
        fixture.fill(106, 110);
        QCOMPARE(valuesIn(fixture.history).size(), left.size() + 5);
        QVERIFY(fixture.history.entries(Servo).error.contains("names.json"));
        QVERIFY(!fixture.history.setName(fixture.entryOf(9), "nine").isEmpty());
    }

    void whatIsDamagedIsToldAndHindersNobody()
    {
        Fixture fixture;
        fixture.fill(1, 3);
        Fixture::write(fixture.path(fixture.entryOf(3).file), "{\n}");
        Fixture::write(fixture.path("notes.zservo"), "somebody else's");
        const HistoryListing listing = fixture.history.entries(Servo);
        QCOMPARE(valuesIn(fixture.history), QVector<int>({1, 2, -1}));
        QVERIFY(listing.entries.front().error.startsWith("line 1: "));
        QCOMPARE(listing.entries.front().time, Noon);
        QCOMPARE(torqueOf(*fixture.history.last(Servo)), 2);
        QCOMPARE(int(fixture.history.keep(servoWith(2)).outcome), int(Outcome::Same));
    }

    void programsDoNotTakeEachOthersEntries()
    {
        const Fixture fixture;
        const auto write = [&fixture](int first) {
            History history = fixture.history;
            for (int value = first; value < first + 40; ++value)
                while (history.keep(servoWith(value)).outcome == Outcome::Failed) {
                } // the other one has had it for a second
        };
        std::thread other(write, 1000);
        write(2000);
        other.join();
        QVector<int> values = valuesIn(fixture.history);
        std::sort(values.begin(), values.end());
        QCOMPARE(values.size(), 80);
        QCOMPARE(values.count(-1), 0);
        QCOMPARE(int(std::unique(values.begin(), values.end()) - values.begin()), 80);
    }

    void whatCannotBeWrittenIsTold()
    {
        Fixture fixture;
        fixture.fill(1, 1);
        const HistoryEntry entry = fixture.entryOf(1);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR);
        for (const rlim_t room : {rlim_t(0), rlim_t(200)}) { // of the lock, of the entry
            const rlimit full{room, before.rlim_max};
            setrlimit(RLIMIT_FSIZE, &full);
            const KeepResult result = fixture.history.keep(servoWith(2));
            setrlimit(RLIMIT_FSIZE, &before);
            QCOMPARE(int(result.outcome), int(Outcome::Failed));
            QVERIFY(!result.error.isEmpty());
        }
        QCOMPARE(valuesIn(fixture.history), QVector<int>({1}));
        QVERIFY(QDir().mkdir(fixture.path("names.json")));
        QVERIFY(!fixture.history.setName(entry, "one").isEmpty());
        QVERIFY(!History(fixture.path(entry.file)).keep(servoWith(1)).error.isEmpty()); // the folder is a file
    }

    void theKeeperKeepsAndTellsWhatItHasNotExpected()
    {
        KeeperFixture fixture;
        QVector<int> surprises; // what this id had before
        connect(&fixture.keeper, &HistoryKeeper::differs, this, [&surprises](int count, const Profile &before) {
            QCOMPARE(count, 1);
            surprises.append(torqueOf(before));
        });
        // clang-format off
        const auto connects = [&] { Q_EMIT fixture.connection.stateChanged(State::Identifying, State::Disconnected); };
        const auto answersAgain = [&] { Q_EMIT fixture.connection.stateChanged(State::Connected, State::Silent); };
        const auto reports = [&](Verdict verdict) { return [&fixture, verdict] { fixture.report(verdict); }; };
        const struct { const char *name; std::function<void()> event; int value; int id; bool isKept; bool isSurprise; } rows[] = {
            {"the first Connect",            connects,                                                      1,  3, true,  false},
            {"no event",                     [] {},                                                         2,  3, false, false},
            {"applied",                      reports(Verdict::Applied),                                     3,  3, true,  false},
            {"not all applied",              reports(Verdict::NotApplied),                                  4,  3, true,  false},
            {"never sent",                   reports(Verdict::Dropped),                                     5,  3, false, false},
            {"the same",                     connects,                                                      4,  3, false, false},
            {"another servo",                connects,                                                      6,  3, true,  true},
            {"another one after a silence",  answersAgain,                                                  7,  3, true,  true},
            {"applied, the connection ends", [&] { fixture.report(Verdict::Unproved); connects(); },        8,  3, true,  false},
            {"restored",                     [&] { fixture.keeper.expectChange(); connects(); },           9,  3, true,  false},
            {"and no more is expected",      connects,                                                      10, 3, true,  true},
            {"another id",                   connects,                                                      10, 4, true,  false},
        };
        // clang-format on
        int entries = 0;
        for (const auto &row : rows) {
            const InRow name(row.name);
            surprises.clear();
            row.event();
            Q_EMIT fixture.connection.polled(model::RegisterImage()); // of which nothing has been read
            const auto before = fixture.history.last({258, quint8(row.id)});
            Q_EMIT fixture.connection.polled(imageOf(row.value, row.id));
            entries += row.isKept;
            QCOMPARE(valuesIn(fixture.history).size() + valuesIn(fixture.history, {258, 4}).size(), entries);
            QCOMPARE(surprises, row.isSurprise ? QVector<int>{torqueOf(*before)} : QVector<int>());
        }
        QVERIFY(fixture.line->sent.isEmpty());
    }

    void theKeeperTellsOnceThatItCannotKeep()
    {
        KeeperFixture fixture;
        QSignalSpy failures(&fixture.keeper, &HistoryKeeper::failed);
        const auto applied = [&fixture](int value) {
            fixture.report(Verdict::Applied);
            Q_EMIT fixture.connection.polled(imageOf(value));
        };
        for (const int round : {1, 2}) {
            Fixture::write(fixture.folder.filePath("history"), "in the way");
            applied(1);
            applied(2);
            QCOMPARE(failures.size(), round);
            QVERIFY(QFile::remove(fixture.folder.filePath("history")));
            applied(3);
            QVERIFY(QDir(fixture.folder.filePath("history")).removeRecursively());
        }
    }

    void theDayIsTheUsers()
    {
        // clang-format off
        const struct { const char *locale; const char *thisYear; const char *lastYear; } rows[] = {
            {"en_US", "November 21",        "November 21, 2025"},
            {"en_GB", "21 November",        "21 November 2025"},
            {"de_DE", "21. November",       "21. November 2025"},
            {"es_ES", "21 de noviembre",    "21 de noviembre de 2025"},
        };
        // clang-format on
        for (const auto &row : rows) {
            const InRow name(row.locale);
            QLocale::setDefault(QLocale(row.locale));
            const QString four = HistoryKeeper::surprise(4, {2026, 11, 21}, {2026, 11, 22});
            const QString one = HistoryKeeper::surprise(1, {2025, 11, 21}, {2026, 11, 22});
            QLocale::setDefault(QLocale::c());
            QCOMPARE(four, QString("4 parameters differ from %1: another servo?").arg(row.thisYear));
            QCOMPARE(one, QString("1 parameter differs from %1: another servo?").arg(row.lastYear));
        }
    }

    void gainsInForceAreHeldAgainstTheirDefaults()
    {
        model::RegisterImage image = imageOf(1);
        QCOMPARE(int(tunedGains(image).values.size()), 7);
        QVERIFY(differingGains(image).empty());
        image.take(60, QByteArray("\x52\x03"), {}); // velocity integral gain
        QCOMPARE(int(differingGains(image).size()), 1);
        QCOMPARE(differingGains(image)[0].field->key, "default_velocity_integral_gain");
        QCOMPARE(differingGains(image)[0].file, 850);
        QVERIFY(differingGains(model::RegisterImage()).empty());
        QVERIFY(tunedGains(imageOf(1, 5, model::DynamixelAx12Family)).values.empty());
    }

    void theOfferLastsUntilTheNextEvent()
    {
        LinkLine line;
        QSignalSpy accepted(&line, &LinkLine::offerAccepted);
        auto *button = line.findChild<QToolButton *>("linkOfferButton");
        QVERIFY(button->isHidden());
        line.offer("it differs", {}, "Compare");
        QVERIFY(!button->isHidden());
        button->click();
        QCOMPARE(accepted.size(), 1);
        line.tell("applied");
        QVERIFY(button->isHidden());
    }

    void theDialogShowsNamesAndHandsOut()
    {
        Fixture fixture;
        fixture.fill(1, 3);
        Fixture::write(fixture.path(fixture.entryOf(1).file), "{");
        const PlainText text;
        auto dialog = std::make_unique<dialogs::HistoryDialog>(text, fixture.history,
                                                               dialogs::HistoryDialog::Purpose::Look, nullptr);
        QString wanted;
        connect(dialog.get(), &dialogs::HistoryDialog::restoreWanted, this,
                [&wanted](const Profile &profile, const QString &title) {
                    wanted = title + QString::number(torqueOf(profile));
                });
        dialog->showServo(Servo);
        dialog->show();
        auto *table = dialog->findChild<QTableView *>("historyTable");
        const QAbstractItemModel &model = *table->model();
        const auto shown = [&](int row, int column) { return model.index(row, column).data().toString(); };
        QCOMPARE(shown(0, dialogs::HistoryModel::ChangeColumn), QString("Torque limit 2 \u2192 3 Nm"));
        QVERIFY(shown(2, dialogs::HistoryModel::ChangeColumn).startsWith("cannot be read: line 1"));

        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QTest::keyClick(table, Qt::Key_Down);
        QTest::keyClick(table, Qt::Key_Space);
        QTest::keyClick(table, Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "two");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(fixture.entryOf(2).name, QString("two"));
        QVERIFY(fixture.entryOf(2).isPinned);

        auto *restore = dialog->findChild<QPushButton *>("historyRestoreButton");
        const auto isOffered = [&](const model::Family *connected, int row) {
            dialog->setConnected(connected);
            table->selectRow(row);
            return restore->isEnabled() && restore->toolTip().isEmpty();
        };
        QVERIFY(!isOffered(nullptr, 1));
        QVERIFY(!isOffered(&model::DynamixelAx12Family, 1));
        QVERIFY(!isOffered(&model::ZelvarV1Family, 2)); // the damaged one
        QVERIFY(isOffered(&model::ZelvarV1Family, 1));
        restore->click();
        QCOMPARE(wanted, QString("two2"));

        QTest::keyClick(table, Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "second");
        dialog.reset(); // in the middle of it
        QCOMPARE(fixture.entryOf(2).name, QString("second"));
    }
};

ZELVAR_TEST_MAIN(TestHistory)
#include "tst_history.moc"
