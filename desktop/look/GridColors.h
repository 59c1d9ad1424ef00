// The colours of the grid.
#pragma once
#include "desktop/look/Colors.h"

namespace clb {

/// The grid's colours, derived from the desktop's palette so that they are legible in light and
/// dark.
struct GridColors {
    explicit GridColors(const QPalette& palette);

    QColor base;
    QColor alternate;
    QColor text;
    QColor dimText;
    QColor negative;
    QColor link;
    QColor line;   ///< between cells
    QColor frame;  ///< between header, selector and cells
    QColor header;
    QColor group;       ///< behind group headings
    QColor buttonFace;  ///< the desktop's button colour
    QColor accent;
    QColor currentRow;
    QColor currentCell;
};

}  // namespace clb
