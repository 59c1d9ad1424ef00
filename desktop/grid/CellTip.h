#pragma once
#include <QPoint>
#include <QRect>
#include <QString>
#include <string>

class QWidget;

namespace clb {

/// The text that shows when the pointer rests on a cell.
namespace cell_tip {
/// Shows the text beside the place until the pointer leaves the cell. Lines beyond the screen's
/// height are left out, the last one shown is then "...".
void Show(QWidget& viewport, const QPoint& place, const QRect& cell, const std::string& text);
void Hide();
/// The first lines of a text, "..." for the rest; always plain text to a tool tip.
QString Prepare(const std::string& text, int mostLines);
}  // namespace cell_tip

}  // namespace clb
