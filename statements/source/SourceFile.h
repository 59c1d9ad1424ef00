// The files of a delivery as texts: unpacked and decoded.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace clb {

struct SourceFile {
    std::string name;  ///< of the file, or "archive.zip/name" of one inside
    std::string bytes;
};

/// Returns the file itself, or the files inside a gzip or zip file, by content whatever the name
/// (an .xlsx, .ods or .docx file is a zip and holds no statement). Directories, empty files and
/// what systems add ("__MACOSX") are left out. Throws NotAStatement if the archive is damaged,
/// needs a password, or holds more than 1 GB.
[[nodiscard]] std::vector<SourceFile> Unpack(const std::string& name, std::string bytes);

/// Text of a file as UTF-8 without a mark at its start. The encoding is: the one given; else that
/// of a byte-order mark; UTF-16 without one, seen by its zeros; what an XML declaration or an OFX
/// header says, if the text is valid in it; UTF-8 if it is valid; else the likeliest for the whole
/// file. Bytes that the encoding does not have become U+FFFD. Throws NotAStatement for an encoding
/// that is not known, and for a binary file.
[[nodiscard]] std::string DecodeStatement(std::string bytes,
                                          const std::optional<std::string>& encoding = {});

}  // namespace clb
