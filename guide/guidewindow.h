#pragma once

#include <QDialog>

class QTextBrowser;
class QUrl;

namespace guide {

/**
 * A window with the pages of the user guide, which lie as Markdown in a folder. A link to another page of that folder
 * is followed in the window, one to the web in the user's browser. GUI thread only.
 */
class GuideWindow : public QDialog
{
    Q_OBJECT

public:
    /** @param folder has user-guide.md; where it has not, the window says so. */
    GuideWindow(const QString &folder, QWidget *parent);

    /** Turns to @p chapter of the user guide, named as in a link: "register-fields" for "Register fields". */
    void showChapter(const QString &chapter);

    /** The folder that the installed program has the guide in, or the build tree for a program that was built there. */
    static QString installedFolder();
    /** How a link names the chapter with @p heading. */
    static QString chapterOf(const QString &heading);

private:
    void follow(const QUrl &link);
    void load(const QUrl &page);
    void layOutTables();
    void fitPictures();
    void scrollTo(const QString &chapter);

    QTextBrowser *m_page;
};

} // namespace guide
