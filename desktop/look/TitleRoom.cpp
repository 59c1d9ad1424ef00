#include "desktop/look/TitleRoom.h"

#include <QBoxLayout>
#include <QDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QScreen>
#include <algorithm>

namespace clb {

namespace {

/// Widths of the title bar's picture, of its buttons and of the gaps between them, in line heights.
constexpr int kBesideTitle = 9;

}  // namespace

int TitleWidth(const QDialog& dialog)
{
    QFont bold = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    return std::min(
        metrics.horizontalAdvance(dialog.windowTitle()) + kBesideTitle * metrics.height(),
        dialog.screen()->availableSize().width());
}

void MakeRoomForTitle(QDialog& dialog)
{
    // A least width of the dialog itself would replace that of its layout.
    QLayout* const parts = dialog.layout();
    const QMargins margins = parts->contentsMargins();
    const int width = TitleWidth(dialog) - margins.left() - margins.right();
    if (auto* lines = qobject_cast<QBoxLayout*>(parts))
        lines->addStrut(width);
    else if (auto* cells = qobject_cast<QGridLayout*>(parts))
        cells->addItem(new QSpacerItem(width, 0), cells->rowCount(), 0, 1, cells->columnCount());
}

}  // namespace clb
