#pragma once
#include <string>
#include <string_view>

namespace clb {

/// The path that "Data Source=" gives in a connection string, with "/" between the folders
/// whichever slash is written. It ends before the next ";key=", so a folder's name may hold a
/// semicolon. Throws EngineError when there is none.
std::string DataSourceOf(std::string_view connectionString);

}  // namespace clb
