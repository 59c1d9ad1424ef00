#include "desktop/GridColors.h"

namespace clb {

QColor Mix(const QColor& first, const QColor& second, double part)
{
    const auto blend = [part](int one, int other) {
        return static_cast<int>(one * part + other * (1.0 - part) + 0.5);
    };
    return {blend(first.red(), second.red()), blend(first.green(), second.green()),
            blend(first.blue(), second.blue())};
}

GridColors::GridColors(const QPalette& palette)
{
    base = palette.color(QPalette::Base);
    text = palette.color(QPalette::Text);
    accent = palette.color(QPalette::Active, QPalette::Highlight);
    buttonFace = palette.color(QPalette::Button);
    const bool dark = base.lightness() < 128;
    alternate = Mix(text, base, 0.035);
    dimText = Mix(text, base, 0.6);
    negative = dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e);
    line = Mix(text, base, 0.10);
    frame = Mix(text, base, 0.22);
    header = Mix(text, base, 0.07);
    group = Mix(accent, base, dark ? 0.22 : 0.12);
    currentRow = Mix(accent, base, dark ? 0.30 : 0.16);
    currentCell = Mix(accent, base, dark ? 0.42 : 0.28);
}

}  // namespace clb
