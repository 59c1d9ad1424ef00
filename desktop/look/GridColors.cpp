#include "desktop/look/GridColors.h"

namespace clb {

GridColors::GridColors(const QPalette& palette)
{
    base = palette.color(QPalette::Base);
    text = palette.color(QPalette::Text);
    buttonFace = palette.color(QPalette::Button);
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    const bool dark = Contrast(base, Qt::white) > Contrast(base, Qt::black);
    accent = Readable(highlight, base, 3);
    alternate = Mix(text, base, 0.035);
    line = Mix(text, base, 0.10);
    frame = Mix(text, base, 0.22);
    header = Mix(text, base, 0.07);
    group = Mix(highlight, base, dark ? 0.22 : 0.12);
    currentRow = Mix(highlight, base, dark ? 0.30 : 0.16);
    dimText = Readable(Mix(text, base, 0.7), currentRow);
    currentCell = Mix(highlight, base, dark ? 0.42 : 0.28);
    // The current cell's ground is the one furthest from the base.
    negative = Readable(dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e), currentCell);
    link = Readable(palette.color(QPalette::Link), base);
}

}  // namespace clb
