#pragma once

class QMargins;
class QRect;
class QWidget;

/** Arithmetic for windows that may be larger than the screen. */
namespace screenfit {

/**
 * The place on the screen for a window that wants to be at @p wanted: as large as that, as far as @p
 * available has room for it and for @p frame around it, and moved inside. Without any room it is empty.
 */
QRect fitted(const QRect &wanted, const QRect &available, const QMargins &frame);
/** fitted() on the screen that the middle of @p wanted is on, with the frame that @p window is going to have. */
QRect onScreen(const QWidget &window, const QRect &wanted);

} // namespace screenfit
