// Texts of which a book has few, each kept once and known by a number.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace clb {

/// Numbers texts in the order in which they come, from 0. Each has a folded name to search in.
class RepeatedTexts {
public:
    RepeatedTexts() = default;
    RepeatedTexts(const RepeatedTexts&) = delete;
    RepeatedTexts& operator=(const RepeatedTexts&) = delete;
    RepeatedTexts(RepeatedTexts&&) = default;
    RepeatedTexts& operator=(RepeatedTexts&&) = default;

    enum class Named { No, Itself };
    /// The number of the text. named: what name a new text gets, none or the folded text itself.
    std::uint32_t NumberOf(std::string_view text, Named named);
    /// Gives a text another name, folded here. A new text gets a number.
    void Name(std::string_view text, std::string_view name);
    void ClearNames();
    /// For each number, 1 if the folded word is in its name. Empty if it is in none.
    [[nodiscard]] std::vector<std::uint8_t> With(std::string_view word) const;

private:
    /// Numbers that were asked for last, so that most texts need no look-up.
    struct Recent {
        const std::string* text = nullptr;
        std::uint32_t number = 0;
    };
    Recent& RecentOf(std::string_view text);

    std::deque<std::string> texts_;  ///< a deque: they stay where they are
    std::vector<std::string> names_;
    std::unordered_map<std::string_view, std::uint32_t> numbers_;
    std::array<Recent, 1024> recent_;
};

}  // namespace clb
