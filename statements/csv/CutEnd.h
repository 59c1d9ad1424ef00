// Whether a table breaks off within its last row.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "statements/csv/CsvSolver.h"
#include "statements/csv/CsvTable.h"

namespace clb {

/// Compares the last record of a text that has no end of line there with the rows before it. Many
/// files lack that end though they are whole.
class CutEnd {
public:
    /// Both borrowed.
    CutEnd(const CsvTable& table, const CsvColumns& columns);

    /// Takes a record of the table. isRow: it has a date.
    void Add(const CsvRecord& record, bool isRow);
    /// The line of the last row if the text breaks off in it.
    [[nodiscard]] std::optional<std::size_t> Line(const CsvSolution& solution) const;

private:
    /// Digits after a point, and after a comma.
    using Decimals = std::array<std::size_t, 2>;
    struct Seen {
        std::size_t line = 0;
        std::size_t fields = 0;
        std::size_t filled = 0;
        bool isRow = false;
        std::string_view raw;
        std::string last{};                               ///< field
        std::vector<std::optional<Decimals>> decimals{};  ///< of each amount or balance
    };
    static Decimals DecimalsOf(std::string_view cell);
    void Count(const Seen& row);
    [[nodiscard]] bool LacksFields(const CsvColumns& columns) const;
    [[nodiscard]] bool IsShort(const CsvSolution& solution) const;
    [[nodiscard]] bool FollowsBalance(const CsvSolution& solution) const;
    [[nodiscard]] bool AtEnd(std::string_view raw) const
    {
        return raw.data() + raw.size() == text_.data() + text_.size();
    }

    const CsvTable& table_;
    const CsvColumns& columns_;
    std::string_view text_;
    bool open_ = false;                 ///< the text has no end of line at its end
    std::vector<std::size_t> amounts_;  ///< columns of amounts and balances
    Seen last_;
    std::string_view rowBefore_;
    std::size_t rows_ = 0;  ///< before the last record
    std::size_t fewest_ = 0;
    std::size_t mostFilled_ = 0;
    std::vector<std::optional<Decimals>> fewestDecimals_;
};

}  // namespace clb
