// The program around its window: the command line, what the screen has room for, and how often it is painted.

#include "app/framelimiter.h"
#include "app/mainwindow.h"
#include "app/screenfit.h"
#include "link/serialhelper.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

namespace {

struct PaintedLabel : QLabel
{
    QStringList painted;

    void paintEvent(QPaintEvent *event) override
    {
        painted.append(text());
        QLabel::paintEvent(event);
    }
};

/** What the program, given @p arguments on a machine without that @p platform, prints, and its exit code. */
std::pair<int, QString> run(const QStringList &arguments, const char *platform)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", platform);
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(ZELVAR_PROGRAM, arguments);
    if (!program.waitForFinished())
        return {-1, program.errorString()};
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1, program.readAll()};
}

std::unique_ptr<MainWindow> makeWindow()
{
    return std::make_unique<MainWindow>(nullptr, std::make_shared<SerialHelper>(std::make_shared<FakeSerialPort>()));
}

} // namespace

class TestWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void theCommandLineIsAnswered_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("platform");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says");
        QTest::newRow("version") << QStringList{"--version"} << "none" << 0 << "zelvar-servo-manager " ZELVAR_VERSION;
        QTest::newRow("help") << QStringList{"-h"} << "none" << 0 << "Usage: ";
        QTest::newRow("unknown option") << QStringList{"-style", "fusion", "--speed"} << "offscreen" << 1 << "'speed'";
        QTest::newRow("file") << QStringList{"servo.txt"} << "offscreen" << 1 << "\"servo.txt\"";
    }

    void theCommandLineIsAnswered()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, platform);
        QFETCH(QString, says);
        const auto [exitCode, text] = run(arguments, qPrintable(platform));
        QTEST(exitCode, "exitCode");
        QVERIFY2(text.contains(says), qPrintable(text));
    }

    void aWindowTakesWhatTheScreenHas_data()
    {
        QTest::addColumn<QRect>("wanted");
        QTest::addColumn<QRect>("available");
        QTest::addColumn<QRect>("fitted");
        const QRect small(0, 0, 1366, 768);
        // clang-format off
        QTest::newRow("fits")           << QRect(700, 50, 1192, 1428)  << QRect(0, 0, 2560, 1600)    << QRect(700, 50, 1192, 1428);
        QTest::newRow("too high")       << QRect(50, 50, 1192, 1428)   << small                      << QRect(50, 30, 1192, 734);
        QTest::newRow("too wide")       << QRect(50, 50, 1400, 400)    << small                      << QRect(4, 50, 1358, 400);
        QTest::newRow("frame too much") << QRect(4, 30, 1192, 760)     << small                      << QRect(4, 30, 1192, 734);
        QTest::newRow("outside")        << QRect(-500, 2000, 600, 400) << small                      << QRect(4, 364, 600, 400);
        QTest::newRow("on another")     << QRect(1300, 50, 1192, 1428) << QRect(1366, 20, 1366, 748) << QRect(1370, 50, 1192, 714);
        QTest::newRow("no room")        << QRect(0, 0, 1192, 1428)     << QRect(0, 0, 4, 4)          << QRect(4, 30, 0, 0);
        // clang-format on
    }

    void aWindowTakesWhatTheScreenHas()
    {
        QFETCH(QRect, wanted);
        QFETCH(QRect, available);
        QTEST(screenfit::fitted(wanted, available, QMargins(4, 30, 4, 4)), "fitted");
    }

    void theWindowFitsTheScreenAtEachStart()
    {
        {
            const auto first = makeWindow();
            const QSize available = first->screen()->availableGeometry().size();
            QVERIFY(first->width() <= available.width());
            QVERIFY(first->height() < available.height());
            QVERIFY(first->height() > available.height() - 100);
        }
        // Of a larger screen, and of a program whose window could be smaller.
        for (const QRect &stored : {QRect(900, 700, 1192, 1428), QRect(750, 700, 30, 60)}) {
            {
                const auto window = makeWindow();
                window->setGeometry(stored);
                window->close();
            }
            const auto again = makeWindow();
            again->show();
            QVERIFY(QTest::qWaitForWindowExposed(again.get()));
            const QRect available = again->screen()->availableGeometry();
            QCOMPARE(again->geometry() & available, again->geometry());
        }
    }

    void paintingsAreLimitedAndTheLastOneIsNeverLost()
    {
        constexpr int Changes = 200;
        PaintedLabel label;
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        const FrameLimiter limiter(label);
        label.painted.clear();
        QElapsedTimer timer;
        timer.start();
        for (int i = 1; i <= Changes; ++i) {
            label.setText(QString::number(i));
            QCoreApplication::processEvents();
        }
        QVERIFY(label.painted.size() <= 2 + timer.elapsed() / 33);
        QTRY_COMPARE(label.painted.value(label.painted.size() - 1), QString::number(Changes));
    }
};

ZELVAR_TEST_MAIN(TestWindows)
#include "tst_windows.moc"
