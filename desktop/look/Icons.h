// The program's pictures.
#pragma once
#include <QIcon>
#include <cstdint>
#include <string>

namespace clb {

/// The program's pictures: one set, drawn from vectors so that they stay crisp at any scale, in
/// colours that follow the desktop's light and dark.
namespace icons {
/// The program itself.
QIcon Application();
/// A command's drawing by its name, such as "import"; empty for an unknown name.
QIcon Command(const char* name);
/// The same for a line of a menu.
QIcon MenuLine(const char* name);
/// An image of the tree's list: 6 is a closed book, 7 an open one; empty for other numbers.
QIcon TreeImage(std::int32_t image);
/// A type of account, such as "Credit Card"; empty for other texts.
QIcon Account(const std::string& type);
/// The buttons of a cell in edit.
QIcon Calendar();
QIcon DropDown();
/// A message box's icon by its style; empty for styles without an icon.
QIcon Message(std::int32_t style);
}  // namespace icons

}  // namespace clb
