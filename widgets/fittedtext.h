#pragma once

#include <QFont>
#include <QSize>
#include <QString>

/** A text as it is drawn in a place that may be too small for it. */
struct FittedText
{
    QFont font;
    QString text;
    bool isCut; ///< what is left out shows as an ellipsis
};

/** Percent of the letters' own width. */
constexpr int FullStretch = 100;
constexpr int LeastStretch = 76; ///< narrower letters are hard to read
/** Each stretch in use is a font of its own, which takes a hundredth of a start to load. */
constexpr int StretchStep = 12;

/** @p font with letters of @p percent of their width. */
QFont stretchedFont(QFont font, int percent);
/** Fits @p text into @p room: with narrower letters, else with smaller ones, and cut if it must be. */
FittedText fittedText(const QFont &font, const QString &text, const QSize &room);
