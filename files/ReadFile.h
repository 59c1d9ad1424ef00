// Reads a file.
#pragma once
#include <string>

namespace clb {

/// Reads all bytes of a file, or of a pipe up to its end. Throws FileError: FileNotFound if it does
/// not exist, PathAccess if it is a folder or cannot be read.
std::string ReadFile(const std::string& path);

}  // namespace clb
