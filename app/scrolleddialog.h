#pragma once

#include <QObject>

class QDialog;
class QScrollArea;
class QSize;

/**
 * Lets a dialog scroll on a screen that has no room for it. Where it fits it stays as its form has made it.
 *
 * Belongs to the dialog. GUI thread only.
 */
class ScrolledDialog : public QObject
{
    Q_OBJECT

public:
    explicit ScrolledDialog(QDialog &dialog);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
    QSize sizeOnScreen(const QSize &wanted) const;
    void moveContents();

    QDialog &m_dialog;
    QScrollArea *m_area = nullptr; ///< a child of the dialog; null until it is needed
};
