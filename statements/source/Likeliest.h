// The likeliest encoding of a text that does not say its own.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// The likeliest encoding of the text of a bank, which is not UTF-8. Detection knows many that no
/// bank uses and takes few letters for them; what it finds is held against how letters stand in the
/// text: single ones in words of Latin script, or words of them.
[[nodiscard]] std::string LikeliestEncoding(std::string_view bytes);

}  // namespace clb
