// The texts of an MT940 row: field 86 in the layouts of different countries.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "statements/messages/Mt940Wrap.h"

namespace clb {

/// Name and text of a row.
struct Mt940Description {
    std::string name;
    std::string text;
};

/// Reads the contents of the fields 86 that belong to one row: German and Polish subfields with a
/// sign before a code of two digits ("?20"), codes between slashes ("/REMI/") of Dutch and Belgian
/// banks, or plain text. Full lines go on in the next one without a space.
[[nodiscard]] Mt940Description ReadMt940Text(const std::vector<std::string_view>& contents,
                                             const Mt940Wrap& wrap = {});

/// Reads the lines of field NS, each with a code of two digits.
[[nodiscard]] Mt940Description ReadMt940Ns(std::string_view content);

}  // namespace clb
