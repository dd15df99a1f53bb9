#include "guide/guidewindow.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>

namespace guide {

namespace {

const QString StartPage = QStringLiteral("user-guide.md");
constexpr int CharactersPerLine = 100;
constexpr int Lines = 44;
constexpr int CellPadding = 4;  // pixels
constexpr int PageMargin = 140; // pixels: the window's edges, the scroll bar, and how far a list is indented

QTextTableFormat ruled(QTextTableFormat format)
{
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Qt::lightGray);
    format.setBorderCollapse(true);
    format.setCellPadding(CellPadding);
    return format;
}

} // namespace

GuideWindow::GuideWindow(const QString &folder, QWidget *parent) : QDialog(parent), m_page(new QTextBrowser(this))
{
    setObjectName(QStringLiteral("guideWindow"));
    setWindowTitle(tr("User guide"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_page->setOpenLinks(false);
    m_page->setSearchPaths({folder});
    m_page->setAccessibleName(windowTitle());
    connect(m_page, &QTextBrowser::anchorClicked, this, &GuideWindow::follow);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_page);
    layout->addWidget(buttons);
    resize(CharactersPerLine * fontMetrics().averageCharWidth(), Lines * fontMetrics().height());
    load(QUrl::fromLocalFile(QDir(folder).filePath(StartPage)));
}

void GuideWindow::showChapter(const QString &chapter)
{
    const QUrl start = QUrl::fromLocalFile(QDir(m_page->searchPaths().constFirst()).filePath(StartPage));
    if (m_page->source() != start)
        load(start);
    scrollTo(chapter);
}

QString GuideWindow::installedFolder()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    return QDir::cleanPath(programs.absoluteFilePath(QStringLiteral(ZELVAR_GUIDE_FROM_PROGRAM)));
}

QString GuideWindow::chapterOf(const QString &heading)
{
    QString chapter;
    const QString lower = heading.toLower();
    for (const QChar letter : lower) {
        if (letter.isLetterOrNumber() || letter == QLatin1Char('-'))
            chapter.append(letter);
        else if (letter.isSpace())
            chapter.append(QLatin1Char('-'));
    }
    return chapter;
}

void GuideWindow::follow(const QUrl &link)
{
    const QUrl target = m_page->source().resolved(link);
    if (!target.isLocalFile()) {
        QDesktopServices::openUrl(target);
        return;
    }
    if (target.adjusted(QUrl::RemoveFragment) != m_page->source())
        load(target.adjusted(QUrl::RemoveFragment));
    scrollTo(target.fragment());
}

void GuideWindow::load(const QUrl &page)
{
    if (!QFileInfo(page.toLocalFile()).isReadable()) {
        m_page->setPlainText(tr("This page of the user guide is missing: %1. Install the program anew.")
                                 .arg(QDir::toNativeSeparators(page.toLocalFile())));
        return;
    }
    m_page->setSource(page, QTextDocument::MarkdownResource);
    layOutTables();
    fitPictures();
}

/** Without lines, the cells of a table run into each other. */
void GuideWindow::layOutTables()
{
    const auto frames = m_page->document()->rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        if (auto *table = qobject_cast<QTextTable *>(frame))
            table->setFormat(ruled(table->format()));
    }
}

/** A picture that is wider than the page would need scrolling, and the text beside it, too. */
void GuideWindow::fitPictures()
{
    const int widest = CharactersPerLine * fontMetrics().averageCharWidth() - PageMargin;
    for (QTextBlock block = m_page->document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextImageFormat picture = part.fragment().charFormat().toImageFormat();
            const QUrl file = m_page->source().resolved(QUrl(picture.name()));
            if (!picture.isValid() || QImageReader(file.toLocalFile()).size().width() <= widest)
                continue;
            picture.setWidth(widest);
            QTextCursor cursor(m_page->document());
            cursor.setPosition(part.fragment().position());
            cursor.setPosition(part.fragment().position() + part.fragment().length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
            break; // the block has changed; the guide has one picture in each
        }
    }
}

void GuideWindow::scrollTo(const QString &chapter)
{
    for (QTextBlock block = m_page->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || chapterOf(block.text()) != chapter)
            continue;
        m_page->setTextCursor(QTextCursor(block));
        // The cursor alone would be anywhere in the window.
        m_page->verticalScrollBar()->setValue(m_page->verticalScrollBar()->value() + m_page->cursorRect().top());
        return;
    }
    m_page->moveCursor(QTextCursor::Start);
}

} // namespace guide
