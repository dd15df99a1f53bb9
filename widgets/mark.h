#pragma once

class QWidget;

/** The mark of a field whose text cannot be applied, or had better not be. */
namespace mark {

/** Frames @p widget; to be called at the end of its paint event. */
void paint(QWidget &widget);

} // namespace mark
