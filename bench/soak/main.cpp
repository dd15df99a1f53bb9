// Drives the whole program for long, as fast as the bus allows and with a line that is disturbed, and looks at what
// must stay flat or whole: memory, descriptors, every write, and Qt's silence. Exits with 1 when something does not.

#include "link/processwide.h"
#include "model/families.h"
#include "model/littleendian.h"
#include "session/connection.h"
#include "tests/support/desk.h"
#include "tests/support/testenvironment.h"
#include "widgets/uigrouphelper.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QSpinBox>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr int DefaultPolls = 100000;
constexpr int PollsPerWrite = 100;
constexpr double AllowedGrowth = 0.01;
/** Before so many polls caches still fill, and more growth is no sign of a leak. */
constexpr int LongRun = 20000;
constexpr double AllowedEarlyGrowth = 0.05;

// clang-format off
const QStringList Disturbances{"--seed",   "5",     "--fault", "drop=0.01",    "--fault", "corrupt=0.01",
                               "--fault",  "truncate=0.01", "--fault", "garbage=0.02", "--fault", "chunk"};
// clang-format on

int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // Qt's offscreen platform says this of each window.
    if (type == QtDebugMsg || type == QtInfoMsg || message.contains("propagateSizeHints"))
        return;
    ++warnings;
    std::fprintf(stderr, "warning: %s\n", qPrintable(message));
}

long residentKilobytes()
{
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLong() * (sysconf(_SC_PAGESIZE) / 1024);
}

int openDescriptors()
{
    return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

/** Counts polls and checks writes by watching what the polls bring. */
class Soak
{
public:
    Soak(int polls, const session::Connection &connection, QEventLoop &loop) : m_polls(polls), m_loop(loop)
    {
        QObject::connect(&connection, &session::Connection::polled, &loop,
                         [this](const model::RegisterImage &image) { onPoll(image); });
    }

    /** The last write is looked for in the polls after it. */
    bool isOver() const { return m_seen >= m_polls + PollsPerWrite; }
    int polls() const { return m_seen; }
    int writes() const { return m_written; }
    int lost() const { return m_lost; }
    long halfTimeMemory() const { return m_halfTimeMemory; }

private:
    void onPoll(const model::RegisterImage &image)
    {
        ++m_seen;
        if (m_seen == m_polls / 2)
            m_halfTimeMemory = residentKilobytes();
        if (isOver())
            m_loop.quit();
        if (m_seen % PollsPerWrite != 0)
            return;
        if (m_written > 0 && image.raw(m_target) != m_written)
            ++m_lost;
        if (isOver())
            return;
        ++m_written;
        QByteArray block(m_target.size, '\0');
        model::putLittleEndian(quint32(m_written), m_target.size, reinterpret_cast<quint8 *>(block.data()));
        Q_EMIT ProcessWide<UiGroupHelper>::instance()->addQueueRequest(m_target.address, block);
    }

    const model::Field &m_target = model::ZelvarV1Family["target_position"];
    int m_polls;
    QEventLoop &m_loop;
    int m_seen = 0;
    int m_written = 0;
    int m_lost = 0;
    long m_halfTimeMemory = 0;
};

bool report(const char *what, const QString &figure, bool isMet)
{
    std::printf("%-34s %14s  %s\n", what, qPrintable(figure), isMet ? "ok" : "FAILED");
    return isMet;
}

} // namespace

int main(int argc, char **argv)
{
    TestEnvironment environment;
    QApplication application(argc, argv);
    qInstallMessageHandler(countWarnings);
    const int polls = argc > 1 ? std::atoi(argv[1]) : DefaultPolls;
    if (polls <= 0) {
        std::fprintf(stderr, "usage: zelvar-servo-soak [POLLS]\n");
        return 2;
    }

    Desk desk(3, Disturbances);
    auto *interval = desk.find<QToolBar>("toolBar")->findChildren<QSpinBox *>().first();
    interval->setMinimum(0); // a poll whenever the event loop turns: as fast as the bus allows
    interval->setValue(0);
    QEventLoop loop;
    Soak soak(polls, desk.window->connection(), loop);
    const auto isConnected = [&desk] { return desk.status() == "Connected"; };
    for (int attempt = 0; attempt < 10 && !isConnected(); ++attempt) {
        desk.trigger("actionConnect");
        if (!QTest::qWaitFor(isConnected, 1000))
            desk.trigger("actionDisconnect");
    }
    const int descriptors = openDescriptors();

    QElapsedTimer clock;
    clock.start();
    constexpr int LongestMinutes = 60;
    QTimer::singleShot(LongestMinutes * 60 * 1000, &loop, &QEventLoop::quit);
    loop.exec();
    const double seconds = double(clock.elapsed()) / 1000;
    const long memory = residentKilobytes();
    const double growth = double(memory - soak.halfTimeMemory()) / double(std::max(1L, soak.halfTimeMemory()));

    std::printf("%-34s %14.1f\n", "seconds", seconds);
    std::printf("%-34s %14.0f\n", "polls a second", double(soak.polls()) / seconds);
    bool isMet = report("polls", QString::number(soak.polls()), soak.isOver());
    isMet &= report("writes", QString::number(soak.writes()), soak.writes() > 0);
    isMet &= report("writes lost", QString::number(soak.lost()), soak.lost() == 0);
    isMet &= report("memory growth in the second half", QString::number(100 * growth, 'f', 2) + " %",
                    growth < (polls < LongRun ? AllowedEarlyGrowth : AllowedGrowth));
    isMet &= report("descriptors more than at the start", QString::number(openDescriptors() - descriptors),
                    openDescriptors() == descriptors);
    isMet &= report("boxes", QString::number(desk.watcher.boxes.size()), desk.watcher.boxes.isEmpty());
    desk.window.reset();
    isMet &= report("Qt warnings", QString::number(warnings), warnings == 0);
    return isMet ? 0 : 1;
}
