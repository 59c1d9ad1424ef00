// Which columns could hold the amounts of a table.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvColumns.h"

namespace clb {

/// The columns with a role, by what their names and cells say.
class ColumnRoles {
public:
    /// Ranks of amounts that no name says to be amounts.
    static constexpr int kUnnamed = 8;
    static constexpr int kWholeNumbers = 11;

    ColumnRoles(const CsvTable& table, const std::vector<ColumnFacts>& facts);

    /// The columns with the role that have any cells, the surest first.
    [[nodiscard]] std::vector<std::size_t> With(ColumnRole role) const;
    [[nodiscard]] NamedRole& operator[](std::size_t column) { return roles_[column]; }
    [[nodiscard]] const NamedRole& operator[](std::size_t column) const { return roles_[column]; }
    [[nodiscard]] const ColumnFacts& Facts(std::size_t column) const { return facts_[column]; }
    [[nodiscard]] std::size_t Size() const { return roles_.size(); }
    [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }
    /// Number of rows, as far as a column is filled in all of them.
    [[nodiscard]] std::size_t Rows() const;

private:
    void FitToCells(std::size_t column);
    void FitName(std::size_t column);
    void ByCells(std::size_t column);
    void DropDoubtfulDates();
    void FindOnlyDates();

    const std::vector<ColumnFacts>& facts_;
    const std::vector<std::string>& names_;
    std::vector<NamedRole> roles_;
};

/// Finds the sources of amounts, the likeliest first, and the balances.
class AmountColumns {
public:
    AmountColumns(ColumnRoles& roles, CsvColumns& columns) : roles_(roles), columns_(columns) {}
    void Find();

private:
    void TakeWholeNumbers();
    [[nodiscard]] std::vector<std::size_t> Amounts() const;
    [[nodiscard]] std::optional<std::size_t> Mark() const;
    [[nodiscard]] AmountSource NamedPair() const;
    [[nodiscard]] std::vector<AmountSource> UnnamedPairs(
        const std::vector<std::size_t>& amounts) const;
    void AddFees();
    void FindBalances();

    ColumnRoles& roles_;
    CsvColumns& columns_;
};

}  // namespace clb
