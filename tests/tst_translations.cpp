// The catalogues: complete, true to the texts they translate, and used by the program.

#include "app/mainwindow.h"
#include "app/translations.h"
#include "tests/support/testenvironment.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

const QDir Catalogues(ZELVAR_TRANSLATIONS);

struct Message
{
    QString context;
    QString source;
    QString comment;
    bool dependsOnNumber = false;
    QString type; ///< of the translation: empty when it is finished
    QStringList translations; ///< one, or one for each kind of number

    QString key() const { return context + '|' + source + '|' + comment; }
};

QVector<Message> messagesOf(const QString &path)
{
    QVector<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QString context;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "name") {
            context = xml.readElementText();
        } else if (xml.name() == "message") {
            messages.append({context, {}, {}, xml.attributes().hasAttribute("numerus"), {}, {}});
        } else if (xml.name() == "source") {
            messages.last().source = xml.readElementText();
        } else if (xml.name() == "comment") {
            messages.last().comment = xml.readElementText();
        } else if (xml.name() == "translation") {
            messages.last().type = xml.attributes().value("type").toString();
            if (!messages.last().dependsOnNumber)
                messages.last().translations.append(xml.readElementText());
        } else if (xml.name() == "numerusform") {
            messages.last().translations.append(xml.readElementText());
        }
    }
    return xml.hasError() ? QVector<Message>() : messages;
}

QStringList sortedMatches(const QString &text, const char *pattern)
{
    QStringList found;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

int acceleratorCount(QString text)
{
    return text.remove("&&").count('&');
}

/** What would go wrong in the program with @p translation in place of @p source; empty when nothing would. */
QString flaw(const QString &source, const QString &translation)
{
    if (translation.trimmed().isEmpty())
        return "empty";
    if (sortedMatches(source, "%L?\\d+|%n") != sortedMatches(translation, "%L?\\d+|%n"))
        return "placeholders";
    if (source.count('\n') != translation.count('\n'))
        return "lines";
    if (sortedMatches(source, "^\\s+|\\s+$") != sortedMatches(translation, "^\\s+|\\s+$"))
        return "blanks at the ends";
    // A translation may do without an accelerator, but not bring one where nothing takes it.
    if (acceleratorCount(translation) > acceleratorCount(source))
        return "accelerators";
    return {};
}

QSet<QString> keysOf(const QVector<Message> &messages)
{
    QSet<QString> keys;
    for (const Message &message : messages)
        keys.insert(message.key());
    return keys;
}

/** The program speaks a language for as long as this lives. */
struct Speaking
{
    template <class Languages>
    explicit Speaking(const Languages &languages)
    {
        installTranslations(*qApp, languages);
    }
    ~Speaking() { qDeleteAll(qApp->findChildren<QTranslator *>()); }
    Q_DISABLE_COPY(Speaking)
};

QMap<QString, QKeySequence> shortcutsOf(const MainWindow &window)
{
    QMap<QString, QKeySequence> shortcuts;
    for (const QAction *action : window.findChildren<QAction *>())
        shortcuts.insert(action->objectName(), action->shortcut());
    return shortcuts;
}

/** The accelerators of @p menu, lower-case. */
QString acceleratorsOf(const QWidget &menu)
{
    QString letters;
    for (const QAction *action : menu.actions()) {
        const QString text = action->text().remove("&&");
        const int mark = text.indexOf('&');
        if (mark >= 0)
            letters += text.mid(mark + 1, 1).toLower();
    }
    return letters;
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private:
    static void addCatalogues()
    {
        QTest::addColumn<QString>("path");
        for (const QString &name : Catalogues.entryList({"zelvar_*.ts"}))
            QTest::newRow(qPrintable(name)) << Catalogues.filePath(name);
    }

private Q_SLOTS:
    void aFlawIsSeen_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("translation");
        QTest::addColumn<QString>("found");
        QTest::newRow("none") << "&Servo %1 of %2 " << "Von %2: &Servo %1 " << "";
        QTest::newRow("untranslated") << "Servo" << " " << "empty";
        QTest::newRow("placeholder lost") << "Servo %1" << "Servo" << "placeholders";
        QTest::newRow("placeholder repeated") << "Servo %1" << "%1 %1" << "placeholders";
        QTest::newRow("another placeholder") << "%1 of %2" << "%1 von %3" << "placeholders";
        QTest::newRow("placeholder without the locale") << "%L1 mA" << "%1 mA" << "placeholders";
        QTest::newRow("count lost") << "%n servos" << "Servos" << "placeholders";
        QTest::newRow("line lost") << "one\ntwo" << "eins zwei" << "lines";
        QTest::newRow("blank lost") << "Address: " << "Adresse:" << "blanks at the ends";
        QTest::newRow("accelerator dropped") << "&Quit" << "Beenden" << "";
        QTest::newRow("accelerator added") << "Quit" << "&Beenden" << "accelerators";
        QTest::newRow("two accelerators") << "&Quit" << "&Been&den" << "accelerators";
        QTest::newRow("ampersand") << "Send && wait" << "Senden && warten" << "";
    }

    void aFlawIsSeen()
    {
        QFETCH(QString, source);
        QFETCH(QString, translation);
        QTEST(flaw(source, translation), "found");
    }

    void everyTextIsTranslated_data() { addCatalogues(); }

    void everyTextIsTranslated()
    {
        QFETCH(QString, path);
        const QVector<Message> messages = messagesOf(path);
        QVERIFY(messages.size() > 200);
        QStringList flaws;
        for (const Message &message : messages) {
            if (!message.type.isEmpty() || message.translations.isEmpty())
                flaws.append(message.key() + ": " + (message.type.isEmpty() ? "missing" : message.type));
            for (const QString &translation : message.translations) {
                const QString found = flaw(message.source, translation);
                if (!found.isEmpty())
                    flaws.append(message.key() + ": " + found);
            }
        }
        QVERIFY2(flaws.isEmpty(), qPrintable(flaws.join('\n')));
    }

    void noTextOfTheProgramIsMissing_data() { addCatalogues(); }

    void noTextOfTheProgramIsMissing()
    {
        QFETCH(QString, path);
        const QTemporaryDir folder;
        const QString current = folder.filePath("zelvar_en.ts");
        QProcess update;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LUPDATE", ZELVAR_LUPDATE);
        update.setProcessEnvironment(environment);
        update.start(Catalogues.filePath("update"), {current});
        QVERIFY(update.waitForFinished());
        QCOMPARE(update.exitCode(), 0);
        const QSet<QString> texts = keysOf(messagesOf(current));
        const QSet<QString> translated = keysOf(messagesOf(path));
        QVERIFY(texts.size() > 200);
        QCOMPARE((texts - translated).values(), QStringList());
        QCOMPARE((translated - texts).values(), QStringList());
    }

    void theProgramSpeaks_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("connectAction");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("caption"); // made of texts and the name of a unit
        QTest::addColumn<QString>("operatingMode");
        QTest::addColumn<QString>("edit");
        QTest::addColumn<QString>("cancelOfQt");
        QTest::newRow("English") << QLocale(QLocale::English) << "C&onnect" << "Disconnected"
                                 << "Target position (radians):" << "Wheel" << "Edit" << "Cancel";
        QTest::newRow("without a catalogue") << QLocale(QLocale::Finnish) << "C&onnect" << "Disconnected"
                                             << "Target position (radians):" << "Wheel" << "Edit" << "Cancel";
        QTest::newRow("German") << QLocale(QLocale::German) << "&Verbinden" << "Getrennt"
                                << "Zielposition (Radiant):" << "Rad" << "Bearbeiten" << "Abbrechen";
        QTest::newRow("German of Austria") << QLocale("de_AT") << "&Verbinden" << "Getrennt"
                                           << "Zielposition (Radiant):" << "Rad" << "Bearbeiten"
                                           << "Abbrechen";
        QTest::newRow("Spanish") << QLocale(QLocale::Spanish) << "C&onectar" << "Desconectado"
                                 << QString::fromUtf8("Posición objetivo (radianes):") << "Rueda" << "Editar"
                                 << "Cancelar";
    }

    void theProgramSpeaks()
    {
        QFETCH(QLocale, locale);
        const Speaking speaking(locale);
        const MainWindow window(nullptr);
        QTEST(window.findChild<QAction *>("actionConnect")->text(), "connectAction");
        QTEST(window.findChild<QStatusBar *>()->currentMessage(), "status");
        QTEST(window.findChild<QLabel *>("targetPositionLabel")->text(), "caption");
        QTEST(window.findChild<QComboBox *>("operatingModeComboBox")->itemText(1), "operatingMode");
        QTEST(window.findChild<QAbstractButton *>("vParamsEditSaveToolButton")->text(), "edit");
        QTEST(QCoreApplication::translate("QPlatformTheme", "Cancel"), "cancelOfQt");
    }

    void theFirstLanguageKnownIsSpoken_data()
    {
        QTest::addColumn<QStringList>("languages"); // the user's, the favourite first
        QTest::addColumn<QString>("connected");
        QTest::newRow("German") << QStringList{"de-DE", "en"} << "Verbunden";
        QTest::newRow("one that there is no catalogue for") << QStringList{"fi", "es", "de"} << "Conectado";
        QTest::newRow("one that Qt does not know") << QStringList{"qqq", "de"} << "Verbunden";
        QTest::newRow("none") << QStringList{"C", "de"} << "Connected";
        QTest::newRow("English before German") << QStringList{"en-GB", "de"} << "Connected";
    }

    void theFirstLanguageKnownIsSpoken()
    {
        QFETCH(QStringList, languages);
        const Speaking speaking(languages);
        QTEST(MainWindow::tr("Connected"), "connected");
    }

    void keysDoNotDependOnTheLanguage_data() { theProgramSpeaks_data(); }

    void keysDoNotDependOnTheLanguage()
    {
        const auto english = shortcutsOf(MainWindow(nullptr));
        QFETCH(QLocale, locale);
        const Speaking speaking(locale);
        const MainWindow window(nullptr);
        QCOMPARE(shortcutsOf(window), english);
        QList<QWidget *> menus{window.menuBar()};
        for (QMenu *menu : window.menuBar()->findChildren<QMenu *>())
            menus.append(menu);
        for (const QWidget *menu : menus) {
            const QString letters = acceleratorsOf(*menu);
            const QSet<QChar> distinct(letters.begin(), letters.end());
            QVERIFY2(distinct.size() == letters.size(), qPrintable(letters));
        }
    }
};

ZELVAR_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
