#include "widgets/fittedlabel.h"

#include "widgets/fittedtext.h"
#include "widgets/ground.h"

#include <QFontMetrics>
#include <QResizeEvent>

FittedLabel::FittedLabel(QWidget *parent) : QLabel(parent) {}

void FittedLabel::setText(const QString &text)
{
    QLabel::setText(text);
    m_widths.clear();
    fit();
}

QSize FittedLabel::sizeHint() const
{
    return {textWidth(FullStretch) + surroundings(), QLabel::sizeHint().height()};
}

QSize FittedLabel::minimumSizeHint() const
{
    return {textWidth(LeastStretch) + surroundings(), QLabel::minimumSizeHint().height()};
}

void FittedLabel::showEvent(QShowEvent *event)
{
    QLabel::showEvent(event);
    fit();
}

void FittedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    fit();
}

bool FittedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_widths.clear();
    const bool isHandled = QLabel::event(event);
    ground::declareOwn(*this, *event);
    return isHandled;
}

void FittedLabel::paintEvent(QPaintEvent *event)
{
    ground::paint(*this, *event);
    QLabel::paintEvent(event);
}

int FittedLabel::textWidth(int stretch) const
{
    const auto known = m_widths.constFind(stretch);
    if (known != m_widths.constEnd())
        return *known;
    return *m_widths.insert(stretch, QFontMetrics(stretchedFont(font(), stretch)).horizontalAdvance(text()));
}

/** What the label needs beside its text. */
int FittedLabel::surroundings() const
{
    const QMargins margins = contentsMargins();
    return margins.left() + margins.right() + 2 * (margin() + frameWidth());
}

/** Draws the letters together as far as needed; left to the time when the label is seen, since until then it grows. */
void FittedLabel::fit()
{
    if (!isVisible())
        return;
    const int available = width() - surroundings();
    int stretch = FullStretch;
    while (stretch > LeastStretch && textWidth(stretch) > available)
        stretch -= StretchStep;
    const bool isCut = textWidth(stretch) > available;
    const int current = font().stretch() == QFont::AnyStretch ? FullStretch : font().stretch();
    if (current != stretch)
        setFont(stretchedFont(font(), stretch));
    setToolTip(isCut ? text() : QString());
}
