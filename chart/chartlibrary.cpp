#include "chart/chartlibrary.h"

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>

namespace chart {

namespace {

const QString Library = QStringLiteral("zelvarcharts");

/** Its name as it is installed, seen from the program; without the prefix and the suffix that systems have for it. */
QString installedName()
{
    return QStringLiteral("%1/" ZELVAR_PLUGINS_FROM_PROGRAMS "/%2")
        .arg(QCoreApplication::applicationDirPath(), Library);
}

LoadResult load(const QString &name)
{
    QPluginLoader loader(name);
    QObject *root = loader.instance(); // stays when the loader goes
    if (!root)
        return {nullptr, QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(name), loader.errorString())};
    const auto *charts = qobject_cast<Charts *>(root);
    if (!charts)
        return {nullptr, QCoreApplication::translate("chart::Charts", "%1 is of another version of the program.")
                             .arg(QDir::toNativeSeparators(loader.fileName()))};
    return {charts, {}};
}

} // namespace

LoadResult load()
{
    LoadResult installed = load(installedName());
    // Also where Qt looks for its own: beside the program, say.
    const LoadResult elsewhere = installed.charts ? installed : load(Library);
    return elsewhere.charts ? elsewhere : installed;
}

} // namespace chart
