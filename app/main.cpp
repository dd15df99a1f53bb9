#include "app/framelimiter.h"
#include "app/mainwindow.h"
#include "app/translations.h"

#include <QApplication>
#include <QLocale>

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    // By this name, the desktop finds the menu entry, and with it the icon, that the window belongs to.
    QGuiApplication::setDesktopFileName(QStringLiteral("com.ostravel.ZelvarServoManager"));
    installTranslations(application, QLocale::system());
    MainWindow window(nullptr);
    const FrameLimiter limiter(window);
    window.show();
    return QApplication::exec();
}
