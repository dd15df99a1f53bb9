#pragma once

#include "widgets/fittedtext.h"

#include <QLabel>

#include <optional>

/**
 * A one-line caption that is drawn with narrower letters, or smaller ones, when its text is wider than its place: the
 * groups have fixed sizes, while fonts, units and languages differ. A text that is cut even then is in the tool tip.
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
    int textWidth() const;
    int surroundings() const;
    QRect textRoom() const;
    void fit();

    /** Pixels of the text in m_measuredFont, or less than 0; measuring is dear, and layouts ask again and again. */
    mutable int m_textWidth = -1;
    mutable QFont m_measuredFont;
    std::optional<FittedText> m_fitted; ///< nothing while there is room for the text as it is
};
