#include "cli/program.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    return cli::run(QCoreApplication::arguments());
}
