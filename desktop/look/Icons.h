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
/// A toolbar button by its key ("New", "Delete", "Link", "Back", "Forward"); empty for others.
QIcon Toolbar(const std::string& key);
/// A menu item by its name ("mnuF_Import"); empty for names without.
QIcon MenuItem(const std::string& name);
/// An image of the tree's list: 6 a closed book, 7 an open one; empty for others.
QIcon TreeImage(std::int32_t image);
/// The buttons of a cell in edit.
QIcon Calendar();
QIcon DropDown();
/// A message box's icon by its style; empty for styles without.
QIcon Message(std::int32_t style);
}  // namespace icons

}  // namespace clb
