// The findings of a check.
#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace clb {

/// One problem of a database, or several rows with the same problem.
struct Finding {
    /// "damage", "table", "column", "cell", "text", "number", "counter", "account", "orphan",
    /// "balance", "noticed", "category", "month", "index", "trigger", "view" or "history"; "clb
    /// check" adds "backup".
    std::string kind{};
    std::string table{};  ///< empty for damage and backup
    std::string text{};   ///< the problem and its place, a sentence
    std::int32_t rows = 0;
    std::optional<std::int64_t> row{};       ///< the storage's number of the (first) row
    std::optional<std::int64_t> sequence{};  ///< its field Sequence
    std::string column{};
    std::string meaning{};  ///< what it means for the user; filled in if it is empty
    /// A query of the program's dialect that stores another value; empty: none. CheckDatabase adds
    /// it to the meaning, as a command.
    std::string query{};
    bool repairable = false;  ///< whether a repair can fix it
};

/// Findings in order. Keeps at most a hundred of the same kind in the same column. One more finding
/// gives their number.
class FindingList {
public:
    void Add(Finding finding);
    /// Moves the other list's findings to the end of this one.
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
