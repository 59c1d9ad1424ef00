// Which references of a file belong to one row only, and which rows it repeats.
#pragma once
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <unordered_map>

#include "base/HashCounts.h"

namespace clb {

/// Counts the rows that have the same reference in the same account. Keeps a hash of each.
class References {
public:
    void Add(std::size_t account, std::string_view reference);
    [[nodiscard]] bool IsSingle(std::size_t account, std::string_view reference) const;

private:
    HashCounts rows_;
};

/// Recognises rows that one statement of a file repeats from an earlier one. Rows within one
/// statement are never repetitions, however equal. Keeps a hash of each row.
class RepeatedRows {
public:
    /// Takes a row of the statement with this number; the parts tell rows apart. Returns whether an
    /// earlier statement has had it.
    bool Add(std::size_t statement, std::initializer_list<std::string_view> parts);

private:
    struct Seen {
        std::size_t statement = 0;
        std::uint32_t inStatement = 0;
        std::uint32_t most = 0;  ///< equal rows in one statement so far
    };
    std::unordered_map<std::uint64_t, Seen> seen_;
};

}  // namespace clb
