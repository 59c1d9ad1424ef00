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

/// Returns the file itself, or the files inside a gzip, zip or gzipped tar file, by content
/// whatever the name. Archives inside archives are not unpacked. Directories, empty files and what
/// systems add ("__MACOSX") are left out. Throws NotAStatement if the archive is damaged, needs a
/// password, holds more than 1 GB or 10,000 files, or is a document of an office program (.xlsx,
/// .ods, .docx).
[[nodiscard]] std::vector<SourceFile> Unpack(const std::string& name, std::string bytes);

/// Text of a file as UTF-8 without a mark at its start. The encoding is: the one given; else that
/// of a byte-order mark; UTF-16 without one, seen by its zeros; one of several bytes a character
/// that an XML declaration or an OFX header says, if the text is valid in it; UTF-8 if it is valid,
/// but for single characters that are cut; the one declared, if the text is valid in it; else the
/// likeliest for the whole file. ISO 8859-1 and ASCII are read as Windows-1252, which banks mean by
/// them. Bytes that the encoding does not have become U+FFFD. Throws NotAStatement for an encoding
/// given that is not known, and for a binary file.
[[nodiscard]] std::string DecodeStatement(std::string bytes,
                                          const std::optional<std::string>& encoding = {});

}  // namespace clb
