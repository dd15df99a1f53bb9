#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPointer>

class QMenu;
class QWidget;

namespace guide {

class GuideWindow;

/**
 * Opens the user guide at the chapter of what has the focus, by F1 in the whole program or when it is asked to. GUI
 * thread only.
 */
class GuideKey : public QObject
{
    Q_OBJECT

public:
    /** @param window the program's, which must outlive this object. @param folder of the guide's pages. */
    GuideKey(QWidget &window, QString folder);

    /** Opens the guide, or turns the one that is open, to the chapter of what has the focus. */
    void open();

    bool eventFilter(QObject *watched, QEvent *event) override;

    /** The chapter on @p widget or the nearest of its parents that has one. */
    static QString chapterFor(const QWidget *widget);
    /** All chapters that are opened this way. */
    static QStringList chapters();

private:
    QWidget &m_window;
    QString m_folder;
    QPointer<GuideWindow> m_guide;
};

} // namespace guide
