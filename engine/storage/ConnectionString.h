// Reads connection strings.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// Returns the path after "Data Source=", with every slash turned into "/". The path ends before
/// the next ";key=", so a folder's name may contain a semicolon. Throws EngineError if there is no
/// path.
std::string DataSourceOf(std::string_view connectionString);

}  // namespace clb
