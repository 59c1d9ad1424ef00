#pragma once
#include <string>

namespace clb {

/// The bytes of a regular file. Throws RuntimeError: FileNotFound when there is none, PathAccess
/// for folders, pipes and devices, and for a file that cannot be read.
std::string ReadBytes(const std::string& path);

/// A statement file's whole text (see DecodeFile for its encoding). Throws as ReadBytes.
std::string ReadStatement(const std::string& path);

/// Where the repair of line ends keeps the file as it was.
std::string KeptStatement(const std::string& path);

}  // namespace clb
