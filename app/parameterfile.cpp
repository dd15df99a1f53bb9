#include "app/parameterfile.h"

#include "profile/profilefile.h"

#include <QDir>
#include <QFileInfo>

namespace parameterfile {

namespace {

bool hasSameParameters(const QString &path, const profile::Profile &profile)
{
    const profile::Reading there = profile::readFile(path);
    return there.profile && there.edits.isEmpty() && there.profile->model == profile.model &&
           there.profile->firmware == profile.firmware && there.profile->bytes == profile.bytes;
}

} // namespace

QString pathFor(const QString &recordingPath, const profile::Profile &profile)
{
    const QFileInfo recording(recordingPath);
    const QString name = recording.dir().filePath(recording.completeBaseName());
    QString path = name + QStringLiteral(".zservo");
    for (int number = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number) {
        if (hasSameParameters(path, profile))
            return {};
        path = QStringLiteral("%1-%2.zservo").arg(name).arg(number);
    }
    return path;
}

} // namespace parameterfile
