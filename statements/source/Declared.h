// The encoding that a file states itself.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// The encoding in the XML declaration or the OFX header at the text's beginning, in capitals and
/// as the system names it; empty if there is none, or one that says nothing ("NONE").
[[nodiscard]] std::string DeclaredEncoding(std::string_view bytes);

/// Whether texts in an encoding have characters of several bytes, UTF-8 aside.
[[nodiscard]] bool HasWideCharacters(const std::string& encoding);

}  // namespace clb
