// Loaded by Qt into the programs whose start, memory and processor time are measured, so that these run just as they
// were built.

#include "bench/measuring.h"
#include "bench/windowsize.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTabWidget>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

/**
 * Prints when the first window has been painted; then, if it is told to, it leaves or closes the program, or chooses a
 * tab and a size and connects.
 */
class Watcher : public QObject
{
public:
    Watcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *widget = event->type() == QEvent::Paint ? qobject_cast<QWidget *>(watched) : nullptr;
        if (widget && widget->isWindow()) {
            qApp->removeEventFilter(this);
            // Queued, since its children are painted after it and before the next event.
            QMetaObject::invokeMethod(
                this, [this] { onPainted(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void onPainted()
    {
        std::printf("%.1f\n", wallTime());
        std::fflush(stdout);
        if (qEnvironmentVariableIsSet("ZELVAR_BENCH_LEAVE"))
            std::_Exit(0); // what the end costs is not meant
        if (qEnvironmentVariableIsSet("ZELVAR_BENCH_CLOSE"))
            QApplication::closeAllWindows();
        bool hasTab = false;
        const int tab = qEnvironmentVariableIntValue("ZELVAR_BENCH_TAB", &hasTab);
        if (!hasTab)
            return;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("tabWidget"))) {
                tabs->setCurrentIndex(tab);
                if (qEnvironmentVariableIsSet("ZELVAR_BENCH_LARGE"))
                    window->resize(WindowSize);
                if (auto *plot = window->findChild<QWidget *>(QStringLiteral("plotDock")))
                    plot->resize(PlotSize);
            }
            if (auto *connectAction = window->findChild<QAction *>(QStringLiteral("actionConnect")))
                connectAction->trigger();
        }
    }
};

class WatchPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "watchplugin.json")

public:
    QObject *create(const QString &, const QString &) override { return new Watcher; }
};

#include "watchplugin.moc"
