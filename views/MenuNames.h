// Names of menus and of commands that more than the table of commands uses.
#pragma once

namespace clb {

namespace menu_name {
inline constexpr const char* kEdit = "mnuEdit";
}  // namespace menu_name

/// Commands by the names of their menu items. A command that is only chosen from its menu has no
/// constant here.
namespace command_name {
inline constexpr const char* kImport = "mnuF_Import";
inline constexpr const char* kExport = "mnuF_Export";
inline constexpr const char* kExit = "mnuF_Exit";
inline constexpr const char* kNew = "mnuE_New";
inline constexpr const char* kDelete = "mnuE_Delete";
inline constexpr const char* kCopy = "mnuE_Copy";
inline constexpr const char* kMovePrevious = "mnuE_MovePrev";
inline constexpr const char* kMoveNext = "mnuE_MoveNext";
inline constexpr const char* kSplit = "mnuE_Split";
inline constexpr const char* kUpdateQuotes = "mnuT_UpdateQuotes";
inline constexpr const char* kOptions = "mnuT_Options";
inline constexpr const char* kUndo = "mnuY_Undo";
inline constexpr const char* kRedo = "mnuY_Redo";
}  // namespace command_name

}  // namespace clb
