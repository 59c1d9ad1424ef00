#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace clb {

/// One thing that is wrong in a database, or several rows with the same.
struct Finding {
    /// "damage", "table", "column", "cell", "text", "number", "counter", "account", "orphan",
    /// "balance", "noticed", "category", "month", "index", "trigger" or "view"; "clb check" adds
    /// "backup".
    std::string kind{};
    std::string table{};  ///< empty for damage and backup
    std::string text{};   ///< what and where, a sentence
    std::int32_t rows = 0;
    std::optional<std::int64_t> row{};       ///< the storage's number of the (first) row
    std::optional<std::int64_t> sequence{};  ///< its field Sequence
    std::string column{};
    std::string meaning{};  ///< what that does to the user; filled in when it is empty
    /// A statement of the program's SQL that puts another value in; empty: none. CheckDatabase adds
    /// it to the meaning, as a command.
    std::string statement{};
    bool repairable = false;  ///< whether a repair mends it
};

/// Findings in order. Of the same kind in the same column at most a hundred are kept; one more
/// says how many there were.
class FindingList {
public:
    void Add(Finding finding);
    /// Adds the other list's at the end; it is empty afterwards.
    void Append(FindingList& other);
    [[nodiscard]] bool Has(const std::string& kind, const std::string& table) const;
    std::vector<Finding> Take();

private:
    using Key = std::tuple<std::string, std::string, std::string>;

    std::vector<Finding> findings_;
    std::map<Key, std::int32_t> counts_;
};

/// "1 row", "2 rows".
std::string CountedRows(std::int64_t rows);

}  // namespace clb
