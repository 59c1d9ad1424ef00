#pragma once
#include <string>

namespace clb {

/// Makes an empty file that only the user may read and write, before bank data is written to it;
/// one that is there keeps its bytes and its rights. What fails shows when the file is written.
void MakeOwnFile(const std::string& path);

}  // namespace clb
