// Names of menus and of commands that more than the table of commands uses.
#pragma once

namespace clb {

namespace menu_name {
inline constexpr const char* Edit = "mnuEdit";
}  // namespace menu_name

/// Commands by the names of their menu items. A command that is only chosen from its menu has no
/// constant here.
namespace command_name {
inline constexpr const char* Import = "mnuF_Import";
inline constexpr const char* Export = "mnuF_Export";
inline constexpr const char* Exit = "mnuF_Exit";
inline constexpr const char* New = "mnuE_New";
inline constexpr const char* Delete = "mnuE_Delete";
inline constexpr const char* Copy = "mnuE_Copy";
inline constexpr const char* MovePrevious = "mnuE_MovePrev";
inline constexpr const char* MoveNext = "mnuE_MoveNext";
inline constexpr const char* Split = "mnuE_Split";
inline constexpr const char* UpdateQuotes = "mnuT_UpdateQuotes";
inline constexpr const char* Options = "mnuT_Options";
}  // namespace command_name

}  // namespace clb
