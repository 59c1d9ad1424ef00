// Shows the tip of a cell.
#pragma once
#include <QPoint>
#include <QRect>
#include <QString>
#include <string>

class QWidget;

namespace clb {

/// The text that is shown when the pointer rests on a cell.
namespace cell_tip {
/// Shows the text beside the place until the pointer leaves the cell. A text that is higher than
/// the screen is cut, and its last line is then "...".
void Show(QWidget& viewport, const QPoint& place, const QRect& cell, const std::string& text);
void Hide();
/// The first lines of a text, with "..." for the rest. A tool tip shows the result as plain text.
QString Prepare(const std::string& text, int mostLines);
}  // namespace cell_tip

}  // namespace clb
