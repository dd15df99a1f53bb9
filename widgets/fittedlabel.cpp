#include "widgets/fittedlabel.h"

#include "widgets/ground.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

FittedLabel::FittedLabel(QWidget *parent) : QLabel(parent) {}

void FittedLabel::setText(const QString &text)
{
    QLabel::setText(text);
    m_textWidth = -1;
    fit();
}

QSize FittedLabel::sizeHint() const
{
    return {textWidth() + surroundings(), QLabel::sizeHint().height()};
}

QSize FittedLabel::minimumSizeHint() const
{
    const int least = (textWidth() * LeastWidth + FullWidth - 1) / FullWidth;
    return {least + surroundings(), QLabel::minimumSizeHint().height()};
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
    if (event->type() == QEvent::FontChange)
        fit();
    ground::declareOwn(*this, *event);
    return isHandled;
}

void FittedLabel::paintEvent(QPaintEvent *event)
{
    ground::paint(*this, *event);
    if (!m_fitted)
        return QLabel::paintEvent(event);
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(foregroundRole()));
    m_fitted->draw(painter, textRoom(), int(alignment()));
}

int FittedLabel::textWidth() const
{
    if (m_textWidth < 0 || font() != m_measuredFont) {
        m_measuredFont = font();
        m_textWidth = QFontMetrics(m_measuredFont).horizontalAdvance(text());
    }
    return m_textWidth;
}

/** What the label needs beside its text. */
int FittedLabel::surroundings() const
{
    return width() - textRoom().width();
}

QRect FittedLabel::textRoom() const
{
    return contentsRect().adjusted(margin(), margin(), -margin(), -margin());
}

/** Makes the text fit; left to the time when the label is seen, since until then it grows. */
void FittedLabel::fit()
{
    if (!isVisible())
        return;
    const QSize room = textRoom().size();
    m_fitted.reset();
    if (textWidth() > room.width())
        m_fitted = fittedText(font(), text(), room);
    setToolTip(m_fitted && m_fitted->isCut ? text() : QString());
    update();
}
