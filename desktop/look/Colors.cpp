#include "desktop/look/Colors.h"

#include <algorithm>
#include <cmath>

namespace clb {

namespace {

double Linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
           0.0722 * Linear(color.blueF());
}

}  // namespace

QColor Mix(const QColor& first, const QColor& second, double part)
{
    const auto blend = [part](int one, int other) {
        return static_cast<int>(std::lround(one * part + other * (1.0 - part)));
    };
    return {blend(first.red(), second.red()), blend(first.green(), second.green()),
            blend(first.blue(), second.blue())};
}

double Contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Readable(const QColor& color, const QColor& behind, double least)
{
    const QColor end =
        Contrast(Qt::white, behind) > Contrast(Qt::black, behind) ? Qt::white : Qt::black;
    QColor shown = color;
    for (double part = 1.0; part > 0 && Contrast(shown, behind) < least; part -= 0.05)
        shown = Mix(color, end, part);
    return shown;
}

bool IsDark(const QPalette& palette)
{
    return Luminance(palette.color(QPalette::Active, QPalette::WindowText)) >
           Luminance(palette.color(QPalette::Active, QPalette::Window));
}

}  // namespace clb
