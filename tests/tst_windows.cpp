// The program around its window: the command line, what the screen has room for, and how often it is painted.

#include "app/framelimiter.h"
#include "app/lightpalette.h"
#include "app/mainwindow.h"
#include "app/screenfit.h"
#include "link/serialhelper.h"
#include "search/searchdialog.h"
#include "settings/settingsdialog.h"
#include "tests/support/fakeserialport.h"
#include "tests/support/testenvironment.h"

#include <cmath>

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

double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/** Of the lightest and the darkest pixel. */
double contrastIn(const QImage &image)
{
    double darkest = 1;
    double lightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double is = luminance(image.pixel(x, y));
            darkest = std::min(darkest, is);
            lightest = std::max(lightest, is);
        }
    }
    return (lightest + 0.05) / (darkest + 0.05);
}

/** Where @p widget has text, or the handle of a scroll bar; empty for what has neither. */
QRect inscription(const QWidget &widget)
{
    constexpr int Frame = 3;
    constexpr int Arrow = 25;
    const bool isPicture = widget.property("toolButtonStyle") == Qt::ToolButtonIconOnly;
    const bool isList = !widget.property("currentText").toString().isEmpty();
    const bool isText = !widget.property("text").toString().isEmpty() && !widget.inherits("QAbstractSpinBox");
    const bool isHandle = widget.inherits("QScrollBar") && widget.property("maximum").toInt() > 0;
    if (isPicture || !(isList || isText || isHandle || widget.inherits("QTabBar")))
        return {};
    return widget.rect().adjusted(Frame, Frame, isList ? -Arrow : -Frame, -Frame);
}

/** The two greys that stay as they are: of a list without a servo, and of a locked check box. */
bool isPaleOnPurpose(const QWidget &widget)
{
    return !widget.isEnabled() && widget.styleSheet().contains(QRegularExpression("color: ?#(B3B3B3|9F9E9E)"));
}

QStringList illegible(QWidget &window)
{
    constexpr double TextContrast = 4.5;
    constexpr double PaleContrast = 3;
    QStringList found;
    int inscribed = 0;
    const QImage image = window.grab().toImage();
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const QRect place = inscription(*widget);
        if (place.isEmpty() || !widget->isVisibleTo(&window) || isPaleOnPurpose(*widget) ||
            widget->visibleRegion().boundingRect() != widget->rect())
            continue;
        ++inscribed;
        const double is = contrastIn(image.copy(place.translated(widget->mapTo(&window, QPoint()))));
        const bool isText = widget->isEnabled() && !qobject_cast<QScrollBar *>(widget);
        const bool isBlank = is == 1 && qobject_cast<QComboBox *>(widget) && !widget->isEnabled(); // locked
        if (!isBlank && is < (isText ? TextContrast : PaleContrast))
            found.append(QString("%1 %2: %3").arg(widget->metaObject()->className(), widget->objectName()).arg(is));
    }
    return inscribed > 0 ? found : QStringList{"nothing to read"};
}

/** Desktop colours, until it goes. */
struct Desktop
{
    explicit Desktop(bool isDark)
    {
        QPalette colors = isDark ? QPalette(QColor(45, 45, 45)) : QApplication::style()->standardPalette();
        QApplication::setPalette(colors);
        for (const char *kind : {"QMenu", "QTipLabel", "QMessageBoxLabel"})
            QApplication::setPalette(colors, kind);
        QToolTip::setPalette(colors);
        installLightPalette(*qApp);
    }
    ~Desktop()
    {
        qApp->setStyleSheet(QString());
        QApplication::setPalette(QApplication::style()->standardPalette());
    }
    Q_DISABLE_COPY(Desktop)
};

} // namespace

class TestWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void theCommandLineIsAnswered()
    {
        const std::tuple<QStringList, const char *, int, const char *> rows[] = {
            {{"--version"}, "none", 0, "zelvar-servo-manager " ZELVAR_VERSION},
            {{"-h"}, "none", 0, "Usage: "},
            {{"-style", "fusion", "--speed"}, "offscreen", 1, "'speed'"},
            {{"servo.txt"}, "offscreen", 1, "\"servo.txt\""},
        };
        for (const auto &[arguments, platform, expectedCode, says] : rows) {
            const auto [exitCode, text] = run(arguments, platform);
            QCOMPARE(exitCode, expectedCode);
            QVERIFY2(text.contains(says), qPrintable(text));
        }
    }

    void everythingCanBeReadOnEveryDesktop_data()
    {
        QTest::addColumn<bool>("isDark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void everythingCanBeReadOnEveryDesktop()
    {
        QFETCH(bool, isDark);
        const Desktop desktop(isDark);
        const auto port = std::make_shared<FakeSerialPort>();
        port->listPorts({"one", "two"});
        MainWindow window(nullptr, std::make_shared<SerialHelper>(port));
        window.show();
        window.resize(1192, 600); // with scroll bars
        QCOMPARE(illegible(window), QStringList());
        window.findChild<QAction *>("actionConnect")->trigger();
        port->deliver(QByteArray(2 + 11, '\0'));
        QByteArray reply(118 + 11, '\0');
        QTRY_COMPARE(port->calls.last().length, 118);
        port->deliver(reply);
        QTRY_VERIFY(port->operations().count("read") >= 3);
        port->deliver(reply); // the locks follow one reply later
        for (const bool isEdited : {false, true}) {
            window.findChild<QToolButton *>("vParamsEditSaveToolButton")->setChecked(isEdited);
            for (const int height : {600, 1428}) {
                window.resize(1192, height);
                QCOMPARE(illegible(window), QStringList());
            }
        }
        window.findChild<QTabWidget *>("tabWidget")->setCurrentIndex(1);
        QCOMPARE(illegible(window), QStringList());
        window.findChild<QAction *>("actionDisconnect")->trigger();

        SettingsDialog::instance()->show();
        for (const int tab : {0, 1}) {
            SettingsDialog::instance()->findChild<QTabWidget *>()->setCurrentIndex(tab);
            QCOMPARE(illegible(*SettingsDialog::instance()), QStringList());
        }
        SettingsDialog::instance()->hide();
        SearchDialog::instance()->show();
        QVERIFY(QTest::qWaitForWindowExposed(SearchDialog::instance())); // it scrolls here
        QCOMPARE(illegible(*SearchDialog::instance()), QStringList());
        SearchDialog::instance()->hide();
        QMessageBox box(QMessageBox::Critical, "Error", "The port is on strike.", QMessageBox::Ok);
        box.show();
        QCOMPARE(illegible(box), QStringList());
        auto *menu = window.findChild<QMenu *>("menuConnections");
        menu->ensurePolished();
        QVERIFY(contrastIn(menu->grab(menu->actionGeometry(menu->actions().first())).toImage()) >= 4.5);
        QToolTip::showText(QPoint(10, 10), "A tip");
        for (QWidget *tip : QApplication::topLevelWidgets()) {
            if (tip->inherits("QTipLabel"))
                QVERIFY(contrastIn(tip->grab().toImage()) >= 4.5);
        }
        QToolTip::hideText();
    }

    // The screen of the tests has 800 by 800 pixels.
    void aDialogThatDoesNotFitScrolls()
    {
        const auto window = makeWindow();
        SearchDialog &dialog = *SearchDialog::instance();
        for (int times = 0; times < 2; ++times) {
            dialog.show();
            const QRect available = dialog.screen()->availableGeometry();
            QCOMPARE(dialog.frameGeometry() & available, dialog.frameGeometry());
            const std::pair<const char *, QRect> placed[] = {{"selectPushButton", {710, 620, 93, 28}},
                                                             {"cancelPushButton", {600, 620, 93, 28}},
                                                             {"deviceGroupBox", {360, 10, 441, 601}}};
            for (const auto &[name, geometry] : placed)
                QCOMPARE(dialog.findChild<QWidget *>(name)->geometry(), geometry);
            auto *select = dialog.findChild<QPushButton *>("selectPushButton");
            const auto isSeen = [select] { return select->visibleRegion().boundingRect() == select->rect(); };
            QVERIFY(QTest::qWaitForWindowExposed(&dialog) && !isSeen());
            dialog.findChild<QScrollArea *>()->ensureWidgetVisible(select);
            QVERIFY(isSeen());
            dialog.findChild<QScrollArea *>()->ensureVisible(0, 0);
            dialog.findChild<QPushButton *>("cancelPushButton")->click();
            QVERIFY(!dialog.isVisible());
        }
    }

    void aWindowTakesWhatTheScreenHas()
    {
        const QRect small(0, 0, 1366, 768);
        // clang-format off
        const std::tuple<const char *, QRect, QRect, QRect> rows[] = {
            {"fits",           {700, 50, 1192, 1428},  {0, 0, 2560, 1600},    {700, 50, 1192, 1428}},
            {"too high",       {50, 50, 1192, 1428},   small,                 {50, 30, 1192, 734}  },
            {"too wide",       {50, 50, 1400, 400},    small,                 {4, 50, 1358, 400}   },
            {"frame too much", {4, 30, 1192, 760},     small,                 {4, 30, 1192, 734}   },
            {"outside",        {-500, 2000, 600, 400}, small,                 {4, 364, 600, 400}   },
            {"on another",     {1300, 50, 1192, 1428}, {1366, 20, 1366, 748}, {1370, 50, 1192, 714}},
            {"no room",        {0, 0, 1192, 1428},     {0, 0, 4, 4},          {4, 30, 0, 0}        },
        };
        // clang-format on
        for (const auto &[name, wanted, available, fitted] : rows) {
            const InRow row(name);
            QCOMPARE(screenfit::fitted(wanted, available, QMargins(4, 30, 4, 4)), fitted);
        }
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
