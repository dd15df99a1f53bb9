#include "widgets/ground.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

void ground::declareOwn(QWidget &widget, const QEvent &event)
{
    if (event.type() == QEvent::Polish || event.type() == QEvent::StyleChange)
        widget.setAttribute(Qt::WA_OpaquePaintEvent);
}

void ground::paint(QWidget &widget, const QPaintEvent &event)
{
    if (const QWidget *parent = widget.parentWidget())
        QPainter(&widget).fillRect(event.rect(), parent->palette().brush(parent->backgroundRole()));
}
