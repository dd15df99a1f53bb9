#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

/** The letters' width as it is, in percent. */
constexpr int FullWidth = 100;
constexpr int LeastWidth = 76; ///< narrower letters are hard to read

/**
 * The widest letters with which a text of @p needed pixels is no wider than @p room, in percent of their own width, and
 * at least LeastWidth. In few steps: Qt keeps pictures of the letters for each of them.
 */
int fittedWidth(int needed, int room);

/**
 * A text as it is drawn in a place that may be too small for it. Narrow letters are the font's own, drawn together: a
 * font of narrow letters would have to be found and loaded, and where there is none Qt makes one in this very way.
 */
struct FittedText
{
    QFont font;
    QString text;
    int letterWidth = FullWidth; ///< percent of the letters' own width
    bool isCut = false;          ///< what is left out shows as an ellipsis

    /** Draws it in the painter's pen. @param flags as for QPainter::drawText(). */
    void draw(QPainter &painter, const QRect &place, int flags) const;
};

/** Fits @p text into @p room: with narrower letters, else with smaller ones, and cut if it must be. */
FittedText fittedText(const QFont &font, const QString &text, const QSize &room);
