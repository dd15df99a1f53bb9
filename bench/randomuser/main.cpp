// Somebody who presses the buttons of the whole program at random, on whatever the first port leads to: for
// tests/torture, which plays the servo. Exits with 1 when Qt warned of something.

#include "link/processwide.h"
#include "search/searchdialog.h"
#include "tests/support/desk.h"
#include "widgets/uigrouphelper.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int ServoId = 3;
constexpr int TargetPosition = 78; // register, 4 bytes
constexpr int LongestPause = 200;  // ms

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // Qt's offscreen platform says this of each window.
    if (type == QtDebugMsg || type == QtInfoMsg || message.contains("propagateSizeHints"))
        return;
    ++warnings;
    std::fprintf(stderr, "warning: %s\n", qPrintable(message));
}

/** There is a bus already. */
struct NoSimulator
{
    explicit NoSimulator(const QStringList &) {}
};
using RandomDesk = DeskWith<NoSimulator>;

/** What a user does; the program lets it happen only while it is possible. */
using Operation = void (*)(const RandomDesk &desk, QRandomGenerator &random);

void press(const RandomDesk &desk, const char *action)
{
    if (desk.find<QAction>(action)->isEnabled())
        desk.trigger(action);
}

void applyTarget(const RandomDesk &, QRandomGenerator &random)
{
    const quint32 target = qToLittleEndian(random.generate() % 1000);
    Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(
        TargetPosition, QByteArray(reinterpret_cast<const char *>(&target), sizeof target));
}

void scan(const RandomDesk &desk, QRandomGenerator &)
{
    press(desk, "actionDisconnect");
    desk.trigger("actionSearch");
    SearchDialog *dialog = SearchDialog::instance();
    dialog->findChild<QCheckBox *>("baudRate1000000CheckBox")->setChecked(true);
    dialog->findChild<QPushButton *>("scanPushButton")->click();
    dialog->close();
}

// clang-format off
const Operation Operations[] = {
    [](const RandomDesk &desk, QRandomGenerator &) { press(desk, "actionConnect"); },
    [](const RandomDesk &desk, QRandomGenerator &) { press(desk, "actionConnect"); },
    [](const RandomDesk &desk, QRandomGenerator &) { press(desk, "actionDisconnect"); },
    [](const RandomDesk &desk, QRandomGenerator &) { press(desk, "actionReboot"); },
    [](const RandomDesk &desk, QRandomGenerator &) { press(desk, "actionReset"); },
    [](const RandomDesk &desk, QRandomGenerator &random) { desk.showTab(random.bounded(2)); },
    applyTarget,
    applyTarget,
};
// clang-format on

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(countWarnings);
    if (argc != 3) {
        std::fprintf(stderr, "usage: zelvar-servo-random-user SECONDS SEED\n");
        return 2;
    }
    const QDeadlineTimer deadline(std::atoi(argv[1]) * 1000);
    QRandomGenerator random(quint32(std::strtoul(argv[2], nullptr, 10)));

    RandomDesk desk(ServoId);
    if (random.bounded(8) == 0)
        scan(desk, random);
    while (!deadline.hasExpired()) {
        Operations[random.bounded(int(std::size(Operations)))](desk, random);
        QTest::qWait(random.bounded(LongestPause));
    }
    desk.window->close();
    desk.window.reset();
    return warnings == 0 ? 0 : 1;
}
