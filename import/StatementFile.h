// Reading statement files.
#pragma once
#include <string>

namespace clb {

/// Reads the bytes of a regular file. Throws RuntimeError: FileNotFound if the file does not exist,
/// PathAccess if it is a folder, pipe or device or cannot be read.
[[nodiscard]] std::string ReadBytes(const std::string& path);

/// Reads a statement file's whole text. DecodeFile describes the encoding. Throws as ReadBytes.
[[nodiscard]] std::string ReadStatement(const std::string& path);

/// The path at which the repair of line ends keeps the original file.
[[nodiscard]] std::string BackupOfStatement(const std::string& path);

}  // namespace clb
