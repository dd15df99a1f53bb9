#pragma once

#include <QStringList>

class QApplication;
class QLocale;

/**
 * Makes the program and Qt speak the first of the user's languages that there are catalogues for, English
 * where that comes first or there are none. To be called before the first window is made, whose texts stay as
 * they are then.
 *
 * The translators belong to @p application.
 */
void installTranslations(QApplication &application, const QLocale &locale);
/** The same for a user who reads @p languages, named like "de" or "de-AT", the favourite first. */
void installTranslations(QApplication &application, const QStringList &languages);
