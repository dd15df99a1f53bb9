#include "app/mainwindow.h"
#include "guide/guidekey.h"
#include "guide/guidewindow.h"
#include "search/searchdialog.h"
#include "settings/settingsdialog.h"
#include "tests/support/testenvironment.h"

#include <QTextBrowser>
#include <QtTest>

using guide::GuideKey;
using guide::GuideWindow;

namespace {

const QString Docs = QStringLiteral(ZELVAR_SOURCES "/docs");

QString contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList matches(const QString &text, const char *pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
         match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

/** The heading at the upper edge of the page that @p guide shows. */
QString headingShown(const GuideWindow &guide)
{
    return guide.findChild<QTextBrowser *>()->textCursor().block().text();
}

} // namespace

class TestGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLinkLeadsSomewhere()
    {
        const QString guide = contents(Docs + "/user-guide.md");
        QStringList chapters;
        for (const QString &heading : matches(guide, "^##+ (.+)$"))
            chapters.append(GuideWindow::chapterOf(heading));
        for (const QString &chapter : matches(guide, "\\]\\(#([^)]+)\\)") + GuideKey::chapters())
            QVERIFY2(chapters.contains(chapter), qPrintable(chapter));

        const QString installed = contents(ZELVAR_SOURCES "/cmake/Install.cmake");
        for (const QString &page : matches(guide, "\\]\\(([^#)]+\\.md)\\)")) {
            QVERIFY2(QFile::exists(Docs + '/' + page), qPrintable(page));
            QVERIFY2(installed.contains("docs/" + page), qPrintable(page + " is not in the package"));
        }
        for (const QString &picture : matches(guide, "!\\[[^]]*\\]\\(([^)]+)\\)"))
            QVERIFY2(QFile::exists(Docs + '/' + picture), qPrintable(picture));
    }

    void helpIsOnWhatHasTheFocus()
    {
        MainWindow window(nullptr);
        const auto chapterOn = [](const QWidget *part) { return GuideKey::chapterFor(part); };
        const auto part = [&window](const char *name) { return window.findChild<QWidget *>(name); };
        QCOMPARE(chapterOn(part("stopMotorButton")), QString("stopping-the-motor"));
        QCOMPARE(chapterOn(part("linkMotorLabel")), QString("the-status-bar"));
        QCOMPARE(chapterOn(part("toolBar")), QString("the-window"));
        QCOMPARE(chapterOn(part("operatingModeComboBox")), QString("operating-modes-and-locks"));
        QCOMPARE(chapterOn(part("encoderStatusCheckBox")), QString("hardware-errors"));
        QCOMPARE(chapterOn(part("alertStatusCheckBox")), QString("hardware-errors"));
        QCOMPARE(chapterOn(part("movingThresholdDoubleSpinBox")), QString("what-the-parameters-mean"));
        QCOMPARE(chapterOn(part("pendingShadowInstructionCheckBox")), QString("what-the-parameters-mean"));
        QCOMPARE(chapterOn(part("actualPositionLineEdit")), QString("unit-fields"));
        QCOMPARE(chapterOn(part("eepromRegisterBank1Widget")), QString("register-fields"));
        QCOMPARE(chapterOn(SearchDialog::instance()), QString("search"));
        QCOMPARE(chapterOn(SettingsDialog::instance()), QString("settings"));
    }

    void theKeyReachesThroughAModalDialog()
    {
        QWidget window;
        const GuideKey key(window, Docs);
        QDialog dialog(&window);
        dialog.setObjectName("SearchDialog");
        dialog.setModal(true);
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(&dialog, Qt::Key_F1);
        const auto *guide = dialog.findChild<GuideWindow *>();
        QVERIFY(guide && guide->isVisible());
        QCOMPARE(headingShown(*guide), QString("Search"));
        Q_EMIT guide->findChild<QTextBrowser *>()->anchorClicked(QUrl("#slow-adapters"));
        QCOMPARE(headingShown(*guide), QString("Slow adapters"));
        Q_EMIT guide->findChild<QTextBrowser *>()->anchorClicked(QUrl("building.md"));
        QVERIFY(headingShown(*guide).contains("uilding"));
    }
};

ZELVAR_TEST_MAIN(TestGuide)
#include "tst_guide.moc"
