// Shows the tip of a cell.
#pragma once
#include <QColor>
#include <QPalette>
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
/// The text is drawn in this colour; an invalid one is the ordinary colour of tips.
void Show(QWidget& viewport, const QPoint& place, const QRect& cell, const std::string& text,
          const QColor& color = {});
void Hide();
/// The first lines of a text, with "..." for the rest. A tool tip shows the result as plain text.
QString Prepare(const std::string& text, int mostLines);
/// The grey of what is not the cell's own, such as a running balance, on the ground of tips.
QColor Grey(const QPalette& tips);
}  // namespace cell_tip

}  // namespace clb
