// Which code page the letters of a text in Latin script are in.
#pragma once
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace clb {

/// How the bytes beyond ASCII of a text stand in it.
class HighBytes {
public:
    explicit HighBytes(std::string_view bytes);
    [[nodiscard]] std::size_t All() const { return all_; }
    /// Those next to another one, as in words of another script.
    [[nodiscard]] std::size_t Beside() const { return beside_; }
    /// How many of them, next to letters, would be no letters that texts of the code page's
    /// languages have there.
    [[nodiscard]] std::size_t Implausible(const std::string& codePage) const;

private:
    std::size_t all_ = 0;
    std::size_t beside_ = 0;
    std::array<std::size_t, 128> inside_{};  ///< between two letters, by byte
    std::array<std::size_t, 128> edge_{};    ///< next to one letter
};

/// The code page that suits the letters of a text best. `detected` decides between equals.
[[nodiscard]] std::string LatinCodePage(const HighBytes& bytes, const std::string& detected);

}  // namespace clb
