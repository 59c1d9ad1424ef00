#pragma once
#include <QColor>
#include <QPalette>

namespace clb {

/// `part` of the first colour, the rest of the second.
QColor Mix(const QColor& first, const QColor& second, double part);
/// How well a colour stands out from another: 1 not at all, to 21 black from white. Texts want 4.5,
/// pictures and frames 3.
double Contrast(const QColor& one, const QColor& other);
/// The colour, made darker or lighter as far as it must be to stand out from what is behind it.
QColor Readable(const QColor& color, const QColor& behind, double least = 4.5);
/// Whether the palette is of light texts on dark.
bool IsDark(const QPalette& palette);

}  // namespace clb
