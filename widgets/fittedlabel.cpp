#include "widgets/fittedlabel.h"

#include "widgets/ground.h"

#include <QFontMetrics>
#include <QResizeEvent>

namespace {

// Percent of the letters' own width
constexpr int FullStretch = 100;
constexpr int LeastStretch = 76; // narrower letters are hard to read
constexpr int StretchStep = 4;

} // namespace

FittedLabel::FittedLabel(QWidget *parent) : QLabel(parent) {}

void FittedLabel::setText(const QString &text)
{
    QLabel::setText(text);
    fit();
}

QSize FittedLabel::sizeHint() const
{
    return {textWidth(stretchedFont(FullStretch)) + surroundings(), QLabel::sizeHint().height()};
}

QSize FittedLabel::minimumSizeHint() const
{
    return {textWidth(stretchedFont(LeastStretch)) + surroundings(), QLabel::minimumSizeHint().height()};
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

QFont FittedLabel::stretchedFont(int percent) const
{
    QFont stretched = font();
    stretched.setStretch(percent);
    return stretched;
}

int FittedLabel::textWidth(const QFont &font) const
{
    return QFontMetrics(font).horizontalAdvance(text());
}

/** What the label needs beside its text. */
int FittedLabel::surroundings() const
{
    const QMargins margins = contentsMargins();
    return margins.left() + margins.right() + 2 * (margin() + frameWidth());
}

void FittedLabel::fit()
{
    const int available = width() - surroundings();
    int stretch = FullStretch;
    while (stretch > LeastStretch && textWidth(stretchedFont(stretch)) > available)
        stretch -= StretchStep;
    const QFont fitting = stretchedFont(stretch);
    const int current = font().stretch() == QFont::AnyStretch ? FullStretch : font().stretch();
    if (current != stretch)
        setFont(fitting);
    setToolTip(textWidth(fitting) > available ? text() : QString());
}
