#pragma once

class QEvent;
class QPaintEvent;
class QWidget;

/**
 * What shows through a control that does not fill its whole rectangle.
 *
 * With each new value Qt would paint everything again that the control stands in, down to the window. A control that
 * paints its ground itself covers all that, and only it is painted.
 */
namespace ground {

/** Declares that @p widget paints its ground; to be called after it handled @p event, since style sheets revoke it. */
void declareOwn(QWidget &widget, const QEvent &event);
/** Paints the ground of @p widget, as the first thing for @p event: its parent, which is of one plain colour. */
void paint(QWidget &widget, const QPaintEvent &event);

} // namespace ground
