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
    const QFont unstretched = stretchedFont(font(), FullStretch);
    if (unstretched != m_measured) {
        m_measured = unstretched;
        m_widths.clear();
    }
    const auto known = m_widths.constFind(stretch);
    if (known != m_widths.constEnd())
        return *known;
    return *m_widths.insert(stretch, QFontMetrics(stretchedFont(m_measured, stretch)).horizontalAdvance(text()));
}

/** What the label needs beside its text. */
int FittedLabel::surroundings() const
{
    const QMargins margins = contentsMargins();
    return margins.left() + margins.right() + 2 * (margin() + frameWidth());
}

/** Where to begin to look for the stretch that fits: one step above what the widths say, which are not quite linear. */
int FittedLabel::firstStretch(int available) const
{
    const int share = FullStretch * qMax(available, 0) / qMax(textWidth(FullStretch), 1);
    const int steps = (share - LeastStretch) / StretchStep + 2;
    return qBound(LeastStretch, LeastStretch + steps * StretchStep, FullStretch);
}

/** Draws the letters together as far as needed; left to the time when the label is seen, since until then it grows. */
void FittedLabel::fit()
{
    if (!isVisible())
        return;
    const int available = width() - surroundings();
    int stretch = firstStretch(available);
    while (stretch > LeastStretch && textWidth(stretch) > available)
        stretch -= StretchStep;
    const bool isCut = textWidth(stretch) > available;
    const int current = font().stretch() == QFont::AnyStretch ? FullStretch : font().stretch();
    if (current != stretch)
        setFont(stretchedFont(font(), stretch));
    setToolTip(isCut ? text() : QString());
}
