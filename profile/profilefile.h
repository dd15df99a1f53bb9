#pragma once

#include "profile/profile.h"
#include "storage/replacefile.h"

#include <QString>
#include <QStringList>

namespace profile {

/** What the member "format" of each file says. */
inline constexpr const char *FileFormat = "zelvar-servo-parameters";
/** The version written; goes up when a reader of the one before would take a file wrongly. */
inline constexpr int FileVersion = 1;

/** What a file says. */
struct Reading
{
    std::optional<Profile> profile; ///< nothing when the file cannot be taken
    QString error;                  ///< why not, one sentence for the user that begins with the line: "line 7: …"
    QStringList edits;              ///< what a person has changed in it, a sentence each, beginning with the line
};

/** @p profile as a file: JSON, UTF-8, one field a line in register order. docs/zservo.schema.json describes it. */
QByteArray encoded(const Profile &profile);
/** The reverse. Of a value that a person has changed, that one is taken which the checked bytes do not have. */
Reading decoded(const QByteArray &text);

/** What the file at @p path says. */
Reading readFile(const QString &path);
/** Makes @p profile the whole of the file at @p path: see storage::replaceFile(). */
storage::ReplaceResult writeFile(const QString &path, const Profile &profile);
/** A name for the file of @p profile, which is not partial: "ZelvarV1-3-2026-11-22.zservo". */
QString proposedName(const Profile &profile);

/** CRC-16/X-25 of @p bytes as files have it, four hexadecimal digits; that of "123456789" is "906e". */
QString checksum(const QByteArray &bytes);

} // namespace profile
