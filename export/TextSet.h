// Which texts have been seen, for as many texts as an account has transactions.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace clb {

/// A set of texts that only grows. The texts are kept in one piece and found through a flat table:
/// a set of strings needs twice the memory, and its cells lie all over it, which is slow.
class TextSet {
public:
    /// Adds a copy of the text. False if the set has it already.
    bool Insert(std::string_view text);

private:
    /// A place in the table. Texts are numbered from 1 in the order they came; 0: the place is
    /// free.
    struct Entry {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;
    };

    [[nodiscard]] std::string_view Text(std::uint32_t number) const;
    void Grow();

    std::vector<Entry> table_;  // a power of two long, at most half full
    std::vector<std::size_t> ends_;
    std::string texts_;
};

}  // namespace clb
