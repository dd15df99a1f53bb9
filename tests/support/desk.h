#pragma once

#include "app/mainwindow.h"
#include "settings/settings.h"
#include "tests/support/boxwatcher.h"
#include "tests/support/simulatorprocess.h"
#include "tests/support/testenvironment.h"

/**
 * A window on a simulated bus, and what its user does and sees.
 *
 * @tparam Simulator publishes the bus for as long as it lives; made from the arguments of zelvar-servo-simulator.
 */
template <class Simulator>
struct DeskWith
{
    explicit DeskWith(int servoId, const QStringList &simulatorArguments = {}) : simulator(simulatorArguments)
    {
        Settings("main window settings").setValue("servoId", servoId);
        Settings("main window settings").setValue("pollingInterval", 10);
        window = std::make_unique<MainWindow>(nullptr);
        window->show();
    }

    template <typename Widget>
    Widget *find(const char *name) const
    {
        return window->findChild<Widget *>(name);
    }
    void trigger(const char *name) const { find<QAction>(name)->trigger(); }
    void click(const char *name) const { QTest::mouseClick(find<QToolButton>(name), Qt::LeftButton); }
    void showTab(int index) const { find<QTabWidget>("tabWidget")->setCurrentIndex(index); }
    /** Connects, again when a busy machine answered too late. @return whether it came about. */
    bool connects() const
    {
        for (int attempt = 0; attempt < 3; ++attempt) {
            trigger("actionConnect");
            if (QTest::qWaitFor([this] { return status() == "Connected"; }, 3000))
                return true;
            trigger("actionDisconnect");
        }
        return false;
    }
    QString status() const { return window->statusBar()->currentMessage(); }
    QString text(const char *lineEdit) const { return find<QLineEdit>(lineEdit)->text(); }
    /** The byte that the register view shows, in hexadecimal; empty when it shows none. */
    QString cell(const char *table, int row) const
    {
        const QTableWidgetItem *item = find<QTableWidget>(table)->item(row, 1);
        return item ? item->text() : QString();
    }

    BoxWatcher watcher;
    Simulator simulator;
    std::unique_ptr<MainWindow> window;
};

/** The simulator is a process of its own. */
using Desk = DeskWith<SimulatorProcess>;
