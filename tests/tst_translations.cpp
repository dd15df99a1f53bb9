// The catalogues: complete, true to the texts they translate, and used by the program.

#include "app/mainwindow.h"
#include "app/translations.h"
#include "device/zelvarv1.h"
#include "tests/support/testenvironment.h"

#include <QDomDocument>

namespace {

const QDir Catalogues(ZELVAR_TRANSLATIONS);

struct Message
{
    QString key; ///< context, source and comment
    QString source;
    QString type; ///< of the translation: empty when it is finished
    QString translation;
};

QVector<Message> messagesOf(const QString &path)
{
    QFile file(path);
    QDomDocument catalogue;
    if (!file.open(QIODevice::ReadOnly) || !catalogue.setContent(&file))
        return {};
    QVector<Message> messages;
    const QDomNodeList nodes = catalogue.elementsByTagName("message");
    for (int i = 0; i < nodes.size(); ++i) {
        const auto text = [node = nodes.at(i)](const char *tag) { return node.firstChildElement(tag).text(); };
        const QString context = nodes.at(i).parentNode().firstChildElement("name").text();
        const QDomElement translation = nodes.at(i).firstChildElement("translation");
        const QString key = QStringList{context, text("source"), text("comment")}.join('|');
        QDomElement form = translation.firstChildElement("numerusform"); // of a plural; each one on its own
        do {
            const QString translated = form.isNull() ? translation.text() : form.text();
            messages.append({key, text("source"), translation.attribute("type"), translated});
            form = form.nextSiblingElement("numerusform");
        } while (!form.isNull());
    }
    return messages;
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

/** What would go wrong in the program with the translation in place of the source; empty when nothing would. */
QString flaw(const Message &message)
{
    if (!message.type.isEmpty() || message.translation.trimmed().isEmpty())
        return "unfinished";
    for (const char *kept : {"%L?\\d+|%n", "\n", "^\\s+|\\s+$"}) {
        if (sortedMatches(message.source, kept) != sortedMatches(message.translation, kept))
            return kept;
    }
    // A translation may do without an accelerator, but not bring one where nothing takes it.
    const char *const accelerator = "&[^& ]";
    if (sortedMatches(message.translation, accelerator).size() > sortedMatches(message.source, accelerator).size())
        return accelerator;
    return {};
}

QSet<QString> keysOf(const QVector<Message> &messages)
{
    QSet<QString> keys;
    for (const Message &message : messages)
        keys.insert(message.key);
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

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextOfTheProgramIsTranslated_data()
    {
        QTest::addColumn<QString>("path");
        for (const QString &name : Catalogues.entryList({"zelvar_*.ts"}))
            QTest::newRow(qPrintable(name)) << Catalogues.filePath(name);
    }

    void everyTextOfTheProgramIsTranslated()
    {
        QFETCH(QString, path);
        const QVector<Message> messages = messagesOf(path);
        QVERIFY(messages.size() > 200);
        QStringList flaws;
        for (const Message &message : messages) {
            const QString found = flaw(message);
            if (!found.isEmpty())
                flaws.append(message.key + ": " + found);
        }
        QVERIFY2(flaws.isEmpty(), qPrintable(flaws.join('\n')));

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
        const QSet<QString> translated = keysOf(messages);
        QCOMPARE((texts - translated).values(), QStringList());
        QCOMPARE((translated - texts).values(), QStringList());
    }

    // In the tables there is room for about half of the longest, with the middle left out.
    void registersAreToldApart_data() { everyTextOfTheProgramIsTranslated_data(); }

    void registersAreToldApart()
    {
        QFETCH(QString, path);
        constexpr int Room = 130; // pixels, of the column in a window as wide as it starts with
        const Speaking speaking(QStringList{QFileInfo(path).baseName().section('_', 1)});
        QFont font;
        font.setPointSize(8);
        QMap<QPair<quint32, QString>, QString> seen;
        QStringList confused;
        const ZelvarV1 device;
        for (unsigned address = 0; address < device.controlTableSize(); ++address) {
            const auto row = device.registerDescription(quint16(address));
            if (!row)
                continue;
            const QString text = row->description;
            QString &other = seen[{row->bank, QFontMetrics(font).elidedText(text, Qt::ElideMiddle, Room)}];
            if (!other.isEmpty() && other != text)
                confused << other + " / " + text;
            other = text;
        }
        QCOMPARE(confused, QStringList());
    }

    // Texts that stand in the code, in a form, in a list and on a button, one made of parts, and one of Qt's own.
    void theProgramSpeaksAndKeepsItsKeys()
    {
        const QStringList english{"C&onnect", "Disconnected", "Target position (radians):", "Wheel", "Edit", "Cancel"};
        const QStringList german{"&Verbinden", "Getrennt", "Zielposition (Radiant):", "Rad", "Bearbeiten", "Abbrechen"};
        const QStringList spanish{
            "C&onectar", "Desconectado", "Posición objetivo (radianes):", "Rueda", "Editar", "Cancelar"};
        const auto shortcuts = shortcutsOf(MainWindow(nullptr));
        // clang-format off
        const std::pair<QStringList, QStringList> rows[] = {
            {QLocale("de_AT").uiLanguages(), german},
            {{"de-DE", "en"},                german},
            {{"fi", "es", "de"},             spanish}, // no catalogue for the first
            {{"qqq", "de"},                  german},
            {{"C", "de"},                    english},
            {{"en-GB", "de"},                english},
            {{"fi"},                         english},
        };
        // clang-format on
        for (const auto &[languages, texts] : rows) {
            const InRow row(languages.join(", "));
            const Speaking speaking(languages);
            const MainWindow window(nullptr);
            const QStringList spoken{window.findChild<QAction *>("actionConnect")->text(),
                                     window.findChild<QStatusBar *>()->currentMessage(),
                                     window.findChild<QLabel *>("targetPositionLabel")->text(),
                                     window.findChild<QComboBox *>("operatingModeComboBox")->itemText(1),
                                     window.findChild<QAbstractButton *>("vParamsEditSaveToolButton")->text(),
                                     QCoreApplication::translate("QPlatformTheme", "Cancel")};
            QCOMPARE(spoken, texts);
            QCOMPARE(shortcutsOf(window), shortcuts);
        }
    }
};

ZELVAR_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
