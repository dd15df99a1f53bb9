#pragma once

#include <QHash>
#include <QLabel>

/**
 * A caption of one line that draws its letters together when its place is too narrow for it: the groups have fixed
 * sizes, while fonts, units and languages differ. What does not fit even so is in the tool tip.
 */
class FittedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit FittedLabel(QWidget *parent);

    void setText(const QString &text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QFont stretchedFont(int percent) const;
    int textWidth(int stretch) const;
    int surroundings() const;
    void fit();

    /** Pixels of the text at a stretch; measuring is dear, and layouts ask again and again. */
    mutable QHash<int, int> m_widths;
};
