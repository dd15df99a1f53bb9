// Takes the pictures of the user guide from the running program on a simulated bus. Exits with 1 when the
// program does not come into a state that a picture is of.

#include "app/lightpalette.h"
#include "dialogs/comparisondialog.h"
#include "dialogs/historydialog.h"
#include "search/searchdialog.h"
#include "settings/settingsdialog.h"
#include "tests/support/desk.h"
#include "tests/support/testenvironment.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QFont>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolBar>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>

namespace {

constexpr int ServoId = 3;
constexpr int PollingInterval = 20;     // ms
constexpr QSize WindowSize(1192, 1000); // all of the parameters
constexpr QSize PlotSize(1000, 720);
constexpr int SpanIndex = 2;     // ten seconds
constexpr int SettleTime = 1200; // ms, in which the curves get their ends
constexpr double Target = 2.5;   // rad
constexpr double OnTheWay = 0.5; // rad
constexpr int CloseTime = 200;   // ms, in which Disconnect closes the port
constexpr int Patience = 20000;  // ms

enum Tab {
    UnitFields,
    RegisterFields,
};

// Qt's offscreen platform says this of each window.
void printWarning(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !message.contains("propagateSizeHints"))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

template <typename Condition>
void require(const char *state, Condition condition)
{
    if (!QTest::qWaitFor(condition, Patience))
        throw std::runtime_error(std::string("not reached: ") + state);
}

/** The states of the program that there are pictures of, and the way from one to the next. */
class Photographer
{
public:
    explicit Photographer(const QString &folder) : m_folder(folder), m_desk(ServoId)
    {
        require("a simulated bus", [this] { return !m_desk.simulator.name().isEmpty(); });
        m_desk.window->resize(WindowSize);
        // The toolbar has the polling interval first.
        m_desk.find<QToolBar>("toolBar")->findChildren<QSpinBox *>().first()->setValue(PollingInterval);
    }

    void takeAll() const
    {
        takeSettings();
        takeSearch();
        m_desk.trigger("actionConnect");
        require("values", [this] { return !position().isEmpty() && m_desk.status() == "Connected"; });
        takeEditing();
        takeMovement();
        takeRegisters();
        takeSteps();
        m_desk.trigger("actionPlot");
        takeUndoneReset();
        m_desk.trigger("actionDisconnect");
    }

private:
    void takeSettings() const
    {
        m_desk.trigger("actionSettings");
        auto *dialog = SettingsDialog::instance();
        take(*dialog, "settings-connection");
        dialog->findChild<QTabWidget *>("settingsTabWidget")->setCurrentIndex(1);
        take(*dialog, "settings-units");
        dialog->cancel();
    }

    void takeSearch() const
    {
        m_desk.trigger("actionSearch");
        auto *dialog = SearchDialog::instance();
        for (const char *baudRate : {"baudRate57600CheckBox", "baudRate1000000CheckBox"})
            dialog->findChild<QCheckBox *>(baudRate)->click();
        dialog->findChild<QPushButton *>("scanPushButton")->click();
        auto *servos = dialog->findChild<QTreeWidget *>("servoTreeWidget");
        require("two baud rates with servos", [servos] { return servos->topLevelItemCount() == 2; });
        servos->setCurrentItem(servos->topLevelItem(1)->child(0));
        take(*dialog, "search");
        dialog->cancel();
    }

    void takeEditing() const
    {
        m_desk.click("vParamsEditSaveToolButton");
        // The locks follow the modes a poll later.
        const auto *unlocked = m_desk.find<QDoubleSpinBox>("accelerationProfileDoubleSpinBox");
        require("the locks of the mode", [unlocked] { return unlocked->isEnabled(); });
        m_desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(true);
        m_desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(Target);
        auto *apply = m_desk.find<QToolButton>("vParamsEditSaveToolButton");
        require("changes to apply", [apply] { return apply->isEnabled() && apply->isChecked(); });
        take(*m_desk.window, "editing");
    }

    void takeMovement() const
    {
        m_desk.click("vParamsEditSaveToolButton");
        require("a moving servo", [this] {
            return position().toDouble() > OnTheWay && m_desk.find<QCheckBox>("isMovingCheckBox")->isChecked();
        });
        take(*m_desk.window, "unit-fields");
    }

    void takeRegisters() const
    {
        m_desk.showTab(RegisterFields);
        require("register values", [this] { return !m_desk.cell("eepromRegisterBank1Widget", 0).isEmpty(); });
        take(*m_desk.window, "register-fields");
        m_desk.showTab(UnitFields);
    }

    /** Two steps with different gains, in the plot. */
    void takeSteps() const
    {
        // Without a trajectory, so that the gains alone say how the servo follows.
        edit("vParamsEditSaveToolButton", [this] { m_desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(false); });
        edit("nvParamsEditSaveToolButton", [this] { m_desk.find<QComboBox>("inputModeComboBox")->setCurrentIndex(1); });
        edit("vParamsEditSaveToolButton", [this] { m_desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(true); });
        m_desk.trigger("actionPlot");
        auto *dock = m_desk.find<QDockWidget>("plotDock");
        dock->setFloating(true);
        dock->resize(PlotSize);
        auto *spans = m_desk.find<QComboBox>("plotSpanComboBox");
        spans->setCurrentIndex(SpanIndex);
        Q_EMIT spans->activated(SpanIndex);
        const std::pair<double, double> steps[] = {{0.0, 12.0}, {1.0, 12.0}, {0.0, 12.0}, {1.0, 3.0}};
        for (const auto &[target, gain] : steps) {
            edit("vParamsEditSaveToolButton", [this, to = target, with = gain] {
                m_desk.find<QDoubleSpinBox>("targetPositionDoubleSpinBox")->setValue(to);
                m_desk.find<QDoubleSpinBox>("positionProportionalTermDoubleSpinBox")->setValue(with);
            });
            require("a step", [this, to = target] { return qAbs(position().toDouble() - to) < 0.02; });
            QTest::qWait(SettleTime);
        }
        take(*dock, "plot");
    }

    /** A factory reset, what the history says of it, and the restore. */
    void takeUndoneReset() const
    {
        edit("vParamsEditSaveToolButton", [this] { m_desk.find<QCheckBox>("enableMotorCheckBox")->setChecked(false); });
        edit("nvParamsEditSaveToolButton", [this] {
            m_desk.find<QDoubleSpinBox>("accelerationLimitDoubleSpinBox")->setValue(5.0);
            m_desk.find<QDoubleSpinBox>("defVelocityIntegralTermDoubleSpinBox")->setValue(0.85);
        });
        m_desk.trigger("actionDisconnect");
        QTest::qWait(CloseTime);
        m_desk.trigger("actionReset");
        m_desk.trigger("actionConnect");
        const auto *offer = m_desk.find<QToolButton>("linkOfferButton");
        require("the offer to compare", [offer] { return offer->isVisible(); });
        take(*m_desk.find<QStatusBar>("statusBar"), "another-servo");

        m_desk.trigger("actionRestore");
        auto *history = m_desk.find<dialogs::HistoryDialog>("historyDialog");
        auto *entries = history->findChild<QTableView *>("historyTable");
        entries->selectRow(1); // what it had before the latest entry, the reset
        take(*history, "history");
        history->findChild<QPushButton *>("historyRestoreButton")->click();
        auto *restore = m_desk.find<dialogs::ComparisonDialog>("comparisonDialog");
        take(*restore, "restore");
        restore->findChild<QPushButton *>("restoreButton")->click();
        const auto *statement = restore->findChild<QLabel *>("statementLabel");
        require("a restored servo", [statement] { return statement->text().startsWith("Restored"); });
        take(*restore, "restored");
        restore->close();
        history->close();
    }

    void edit(const char *button, const std::function<void()> &change) const
    {
        const auto *text = m_desk.find<QToolButton>(button);
        require("a group to edit", [text] { return text->isEnabled() && !text->isChecked(); });
        m_desk.click(button);
        change();
        require("changes to apply", [text] { return text->isEnabled() && text->isChecked(); });
        auto *event = m_desk.find<QLabel>("linkEventLabel");
        event->clear(); // it tells of an earlier edit
        m_desk.click(button);
        require("the changes in the servo", [event] { return event->text().startsWith("applied"); });
    }

    QString position() const { return m_desk.text("actualPositionLineEdit"); }

    void take(QWidget &widget, const QString &name) const
    {
        const QString path = m_folder.filePath(name + ".png");
        require("an exposed window", [&widget] { return widget.isVisible(); });
        if (!widget.grab().save(path))
            throw std::runtime_error("cannot write " + path.toStdString());
        std::puts(qPrintable(path));
    }

    QDir m_folder;
    Desk m_desk;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: zelvar-servo-screenshots FOLDER\n");
        return 2;
    }
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    TestEnvironment environment;
    qputenv("QT_QPA_PLATFORM", platform); // the one without a display has no room for each dialog
    qInstallMessageHandler(printWarning);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont("DejaVu Sans", 9));
    installLightPalette(application);
    try {
        Photographer(QString::fromLocal8Bit(argv[1])).takeAll();
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "%s\n", error.what()); // the simulator has been ended on the way here
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
