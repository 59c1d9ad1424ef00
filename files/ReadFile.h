#pragma once
#include <string>

namespace clb {

/// Reads all bytes of a file, or of a pipe up to its end. Throws FileError: FileNotFound when there
/// is none, PathAccess when it is a folder or cannot be read.
std::string ReadFile(const std::string& path);

}  // namespace clb
