// Writes the style sheets that the program's widgets give themselves, as rows of a table in C++.

#include "app/lightpalette.h"
#include "app/mainwindow.h"
#include "search/searchdialog.h"
#include "settings/settingsdialog.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

#include <cstdlib>

namespace {

void write(QTextStream &out, const QString &name, const QString &sheet)
{
    if (!name.isEmpty() && !sheet.isEmpty())
        out << "{\"" << name << "\", R\"sheet(" << sheet << ")sheet\"},\n";
}

void writeAll(QTextStream &out, const QWidget &root)
{
    write(out, root.objectName(), root.styleSheet());
    for (const QWidget *widget : root.findChildren<QWidget *>())
        write(out, widget->objectName(), widget->styleSheet());
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QFile file(argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (!file.open(QIODevice::WriteOnly))
        return EXIT_FAILURE;
    installLightPalette(application);
    const MainWindow window(nullptr);
    QTextStream out(&file);
    write(out, QStringLiteral("application"), application.styleSheet());
    for (const QWidget *root :
         {static_cast<const QWidget *>(&window), static_cast<const QWidget *>(SettingsDialog::instance()),
          static_cast<const QWidget *>(SearchDialog::instance())})
        writeAll(out, *root);
    return EXIT_SUCCESS;
}
