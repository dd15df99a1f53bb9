#pragma once

#include <QFont>
#include <QHash>
#include <QLabel>

/**
 * A one-line caption that is drawn with narrower letters when its text is wider than its place: the groups have fixed
 * sizes, while fonts, units and languages differ. A text that does not fit even then is in the tool tip.
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
    int textWidth(int stretch) const;
    int surroundings() const;
    int firstStretch(int available) const;
    void fit();

    /** Pixels of the text at a stretch in m_measured; measuring is dear, and layouts ask again and again. */
    mutable QHash<int, int> m_widths;
    mutable QFont m_measured; ///< unstretched
};
