#include "app/commandline.h"
#include "app/framelimiter.h"
#include "app/lightpalette.h"
#include "app/mainwindow.h"
#include "app/translations.h"

#include <QApplication>
#include <QLocale>

#include <cstdlib>

int main(int argc, char *argv[])
{
    if (commandline::answersQuestion(argc, argv))
        return EXIT_SUCCESS;
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    if (!commandline::isValid(QApplication::arguments()))
        return EXIT_FAILURE;
    // By this name, the desktop finds the menu entry, and with it the icon, that the window belongs to.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.ostravel.ZelvarServoManager"));
    installTranslations(application, QLocale::system());
    installLightPalette(application);
    MainWindow window(nullptr);
    const FrameLimiter limiter(window);
    window.show();
    return QApplication::exec();
}
