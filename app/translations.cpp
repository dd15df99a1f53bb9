#include "app/translations.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

// Outside any namespace, since that is where the resource compiler puts what this calls.
static void initialiseCatalogues()
{
    Q_INIT_RESOURCE(translations); // they sit in a static library, which would leave them out
}

namespace {

/** @return whether @p folder has the catalogue @p name in the language of @p locale. */
bool installCatalogue(QApplication &application, const QLocale &locale, const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(locale, name, QStringLiteral("_"), folder))
        return false;
    if (!application.installTranslator(translator.get()))
        return false;
    translator.release()->setParent(&application);
    return true;
}

} // namespace

void installTranslations(QApplication &application, const QLocale &locale)
{
    installTranslations(application, locale.uiLanguages());
}

void installTranslations(QApplication &application, const QStringList &languages)
{
    initialiseCatalogues();
    const QString own = QStringLiteral(":/translations");
    const QString qts = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    for (const QString &name : languages) {
        // One by one, since QTranslator passes over English, which has no catalogue, to whatever else the user reads.
        const QLocale language(name);
        if (language.language() == QLocale::English || name == QLatin1String("C"))
            return;
        if (!installCatalogue(application, language, QStringLiteral("zelvar"), own))
            continue;
        // Qt's only in the language that the program has, so that buttons and boxes speak the same one.
        installCatalogue(application, language, QStringLiteral("qtbase"), qts);
        installCatalogue(application, language, QStringLiteral("qtserialport"), qts);
        return;
    }
}
