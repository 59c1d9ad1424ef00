// Colours that stand out from each other.
#pragma once
#include <QColor>
#include <QPalette>

namespace clb {

/// Mixes two colours: `part` (0 to 1) of the first, the rest of the second.
QColor Mix(const QColor& first, const QColor& second, double part);
/// The contrast of two colours, from 1 (the same colour) to 21 (black and white). Texts need 4.5,
/// pictures and frames 3.
double Contrast(const QColor& one, const QColor& other);
/// Makes a colour darker or lighter until its contrast with the background is at least `least`.
QColor Readable(const QColor& color, const QColor& behind, double least = 4.5);
/// Whether the palette has light text on a dark background.
bool IsDark(const QPalette& palette);

}  // namespace clb
