#include "tests/support/testenvironment.h"

#include <cstdio>

namespace {

void printMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        std::fprintf(stderr, "QWARN  : outside the test functions: %s\n", qPrintable(message));
}

} // namespace

TestEnvironment::TestEnvironment()
{
    qInstallMessageHandler(printMessage);
    if (!m_folder.isValid())
        qFatal("no temporary folder");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    QLocale::setDefault(QLocale::c());
    QCoreApplication::addLibraryPath(QStringLiteral(ZELVAR_PLUGINS)); // test programs lie elsewhere than the program
}

TestEnvironment::~TestEnvironment()
{
    qInstallMessageHandler(nullptr);
}
