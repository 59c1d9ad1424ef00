// What the data store needs to know about the window.
#pragma once
#include <cstdint>
#include <string>

#include "base/Value.h"

namespace clb {

/// View identifiers; 0 means no view.
inline constexpr std::int32_t vwNetWorth = 1;
inline constexpr std::int32_t vwBudget = 2;
inline constexpr std::int32_t vwAccountType = 3;
inline constexpr std::int32_t vwAccount = 4;
inline constexpr std::int32_t vwInvestment = 5;
inline constexpr std::int32_t vwLoan = 6;

/// What the window shows, as the data store sees it.
class IShownState {
public:
    virtual ~IShownState() = default;
    [[nodiscard]] virtual std::int32_t View() const = 0;
    /// Month shown: 1 = January to 12, and the year.
    [[nodiscard]] virtual std::int32_t Period() const = 0;
    [[nodiscard]] virtual std::int32_t Year() const = 0;
    [[nodiscard]] virtual const std::string& AccountType() const = 0;
    [[nodiscard]] virtual const std::string& AccountID() const = 0;
};

/// What another program has done to a row.
enum class StoredRow { Same, Changed, Gone };

/// The grid's current row, as the data store sees it.
class ICurrentRow {
public:
    virtual ~ICurrentRow() = default;
    /// Cell of a column of the view, numbered as in ViewColumns.h. Null: never set.
    virtual Value ColumnValue(std::int32_t column) = 0;
    virtual void ColumnValue(std::int32_t column, const Value& value) = 0;
    /// Reads the row's stored values again; cells that were not typed into then hold them. Returns
    /// what happened to the row since it was last read.
    virtual StoredRow Reread() { return StoredRow::Same; }
};

}  // namespace clb
