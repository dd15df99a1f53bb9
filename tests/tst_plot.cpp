// The plot pane: its arithmetic, and what a user does with it on a simulated servo.

#include "app/plotting.h"
#include "model/families.h"
#include "plot/curves.h"
#include "plot/plotpane.h"
#include "plot/striparea.h"
#include "plot/timewindow.h"
#include "plot/valuerange.h"
#include "profile/profilefile.h"
#include "tests/support/desk.h"

using namespace plot;

namespace {

QStringList linesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString(file.readAll()).split("\r\n") : QStringList();
}

/** Puts both cursors into @p strips and holds what they read against the samples of @p csv. */
void compareCursorsWith(const QList<QByteArray> &csv, StripArea &strips)
{
    const auto press = [&strips](Qt::Key key, int times) {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(&strips, key);
    };
    press(Qt::Key_Left, 3);
    press(Qt::Key_Return, 1);
    press(Qt::Key_Left, 17);
    const QStringList lines = strips.valuesText().split('\n');
    const QStringList times = lines[1].split('\t');
    const QStringList positions = lines[2].split('\t');
    for (const int cursor : {1, 2}) {
        // On a busy machine two samples may come within one millisecond.
        const auto isIt = [&](const QByteArray &line) {
            const auto has = [fields = line.split(',')](int column, const QString &text) {
                return QString::number(fields.value(column).toDouble(), 'f', 3) == text;
            };
            return has(1, times[cursor]) && has(2, positions[cursor]);
        };
        QVERIFY2(std::any_of(csv.begin() + 1, csv.end(), isIt), qPrintable(lines.join('\n')));
    }
    QVERIFY(times[1] != times[2]);
}

} // namespace

class TestPlot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QSettings("Ostravel", "Zelvar Servo Manager").clear(); }

    void theWindowFollowsOrIsHeld()
    {
        TimeWindow window;
        window.setSpan(10);
        window.setNewest(100);
        window.zoom(2, 95);
        QVERIFY(window.isLive() && window.begin() == 80 && window.end() == 100);
        window.pan(-30);
        window.setNewest(150);
        QVERIFY(!window.isLive() && window.end() == 70);
        window.zoom(0.5, 60);
        QVERIFY(window.begin() == 55 && window.end() == 65); // the anchor stays in the middle
        window.pan(84);
        QVERIFY(!window.isLive());
        window.pan(1);
        QVERIFY(window.isLive() && window.end() == 150);
        for (const double factor : {1e-9, 1e9})
            window.zoom(factor, 0);
        QCOMPARE(window.span(), TimeWindow::GreatestSpan);
    }

    void aRangeDoesNotJitter()
    {
        ValueRange range;
        range.follow({0.0, 1.0}, 0.1);
        const auto ends = [&range] { return std::pair(range.lower(), range.upper()); };
        const auto first = ends();
        QVERIFY(first.first <= 0 && first.first > -0.3 && first.second >= 1 && first.second < 1.3);
        for (const double greatest : {1.03, 0.9, 0.5, 1.0}) {
            range.follow({0.0, greatest}, 0.1);
            QCOMPARE(ends(), first);
        }
        range.follow({0.0, 5.0}, 0.1);
        QVERIFY(range.upper() >= 5);
        range.follow({4.0, 4.0}, 0.1); // the noise of a value at rest does not fill the strip
        QVERIFY(range.lower() < 4 && range.upper() > 4 && range.upper() - range.lower() >= 0.1);
        range.fix(-1, 1);
        range.follow({0.0, 5.0}, 0.1);
        QCOMPARE(ends(), std::pair(-1.0, 1.0));
    }

    void curvesOfOneQuantityShareAStrip()
    {
        const model::Family &family = model::ZelvarV1Family;
        const auto strips =
            stripsOf(family, defaultKeys(family) << "position_proportional_gain", [](model::FieldKind) { return 1; });
        QStringList shown;
        for (const StripCurves &strip : strips) {
            QStringList names;
            for (const Curve &curve : strip.curves)
                names.append(curve.name(family) + (curve.pen.style() == Qt::DashLine ? "-" : ""));
            shown.append(names.join('+'));
        }
        QCOMPARE(shown,
                 QStringList({"Actual position+Target position-", "Actual angular velocity+Target angular velocity-",
                              "Actual torque+Target torque-", "Actual phase current", "Actual voltage",
                              "Actual temperature", "Position proportional gain-"}));
        for (const model::Family *each : {&model::ZelvarV1Family, &model::DynamixelAx12Family}) {
            for (const QString &key : defaultKeys(*each))
                QVERIFY(each->field(QLatin1String(qPrintable(key))));
        }
    }

    void theLibraryOfTheChartsMayBeMissing()
    {
        const QStringList folders = QCoreApplication::libraryPaths();
        QCoreApplication::setLibraryPaths({});
        Settings("plot settings").setValue("shown", true);
        BoxWatcher watcher;
        MainWindow window(nullptr); // which keeps quiet until the user asks
        QCOMPARE(watcher.boxes, QStringList());
        auto *show = window.findChild<QAction *>("actionPlot");
        show->trigger();
        QCOMPARE(watcher.boxes.size(), 1);
        QVERIFY2(watcher.boxes[0].contains("zelvarcharts"), qPrintable(watcher.boxes[0]));
        QVERIFY(!show->isChecked() && !window.findChild<PlotPane *>("plotPane"));
        QCoreApplication::setLibraryPaths(folders);
        show->trigger();
        QVERIFY(show->isChecked() && window.findChild<PlotPane *>("plotPane"));
        QCOMPARE(watcher.boxes.size(), 1);
    }

    void aServoIsWatchedRecordedAndLookedAtAgain()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.csv");
        Desk desk(3, {"--motion", "sine:3:2"});
        QTRY_VERIFY(!desk.simulator.name().isEmpty());
        QVERIFY(!desk.find<QDockWidget>("plotDock")); // until it is first shown
        desk.trigger("actionPlot");
        auto *pane = desk.find<PlotPane>("plotPane");
        QVERIFY(pane && pane->isVisible());
        QFile taken(folder.filePath("a.zservo"));
        QVERIFY(taken.open(QIODevice::ReadWrite) && taken.write("mine") == 4 && taken.flush());
        desk.window->plotting().record(path);
        QVERIFY(desk.connects());
        QTRY_VERIFY(linesOf(path).size() > 50);
        QVERIFY(desk.find<QLabel>("linkRecordingLabel")->text().contains("recording"));
        desk.window->plotting().record(path); // once more, over it
        QTRY_VERIFY(linesOf(path).size() > 50);
        desk.trigger("actionRecord"); // which ends it
        QVERIFY(desk.find<QLabel>("linkRecordingLabel")->text().isEmpty());
        QCOMPARE(linesOf(taken.fileName()), QStringList("mine"));
        QCOMPARE(profile::readFile(folder.filePath("a-2.zservo")).profile->id, std::optional<quint8>(3));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 3);

        const auto columns = pane->columns();
        QCOMPARE(columns.size(), std::size_t(9));
        const QList<QByteArray> csv = pane->contents(PlotPane::Format::Csv).split('\n');
        QVERIFY(csv.size() > 20 && csv[0].startsWith("time,elapsed [s],actual_position [rad],target_position [rad],"));
        QVERIFY(pane->contents(PlotPane::Format::Svg).contains("<svg"));
        QVERIFY(QImage::fromData(pane->contents(PlotPane::Format::Png)).width() > 100);

        desk.window->plotting().open(path);
        QTRY_VERIFY(desk.find<QAction>("actionPlotCloseRecording")->isVisible());
        const QList<QByteArray> again = pane->contents(PlotPane::Format::Csv).split('\n');
        QVERIFY(again.size() > 40);
        compareCursorsWith(again, *desk.find<StripArea>("plotStrips"));
        desk.trigger("actionPlotCloseRecording");
        desk.trigger("actionPlot");
        QVERIFY(!pane->isVisible());
        QCOMPARE(desk.watcher.boxes, QStringList());
    }

    void aRecordingTakesTheFieldsOfTheServoThatComes()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.csv");
        Desk desk(5);
        desk.window->plotting().record(path); // of which family nobody knows yet
        QVERIFY(desk.connects());
        QTRY_VERIFY(linesOf(path).size() > 5);
        QVERIFY(linesOf(path)[0].contains(",present_position [rad],"));
        QCOMPARE(profile::readFile(folder.filePath("a.zservo")).profile->id, std::optional<quint8>(5));
    }

    void theGainsOfTheStepBeforeAreWrittenBack()
    {
        Desk desk(3);
        desk.trigger("actionPlot");
        QVERIFY(desk.connects());
        auto *gain = desk.find<QDoubleSpinBox>("velocityProportionalTermDoubleSpinBox");
        const auto *event = desk.find<QLabel>("linkEventLabel");
        const auto apply = [&](double target, double gainValue) {
            QTRY_VERIFY(desk.find<QToolButton>("vParamsEditSaveToolButton")->isEnabled());
            desk.click("vParamsEditSaveToolButton");
            desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(target);
            gain->setValue(gainValue);
            desk.click("vParamsEditSaveToolButton");
            QTRY_COMPARE(event->text(), QString("applied: 2 values"));
        };
        QTRY_COMPARE(gain->value(), 1.0); // the servo's
        apply(0.5, 0.8);
        auto *button = desk.find<QPushButton>("plotWriteGainsButton");
        QTRY_VERIFY(desk.find<QLabel>("plotLatestStep1")->isVisible());
        QVERIFY(!button->isVisible());
        apply(-0.5, 0.4);
        QTRY_COMPARE(desk.find<QLabel>("plotStepGains")->text(),
                     QString("Gains: Velocity proportional gain 0.800 \u2192 0.400"));
        QWidget *pane = desk.find<QWidget>("plotPane");
        QWidget *under = pane->childAt(button->mapTo(pane, button->rect().center())); // what the mouse gets hold of
        QCOMPARE(under, static_cast<QWidget *>(button));
        QTest::mouseClick(under, Qt::LeftButton);
        QTRY_VERIFY(event->text().startsWith("applied: ") && event->text().endsWith(" 0.800"));
        QTRY_COMPARE(gain->value(), 0.8);
    }
};

ZELVAR_TEST_MAIN(TestPlot)
#include "tst_plot.moc"
