// What a program with a window costs at least: the measure for the servo manager's start and memory.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    return QApplication::exec();
}
