// The records of a table as rows with a date.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/Date.h"
#include "statements/csv/CsvColumns.h"

namespace clb {

/// Goes through the records of a table as its columns see them.
class CsvRows {
public:
    CsvRows(const CsvTable& table, const CsvColumns& columns);

    /// Calls for every record. One with more fields than columns, because a delimiter stands in a
    /// text without quotes, is put right if that can be done in one way only; else it comes without
    /// its fields.
    void ForEach(const std::function<void(const CsvRecord&)>& take) const;

    /// The text of the row's date: that of the first date column that has one.
    [[nodiscard]] static std::string_view DateOf(const CsvColumns& columns,
                                                 const CsvRecord& record);

private:
    [[nodiscard]] bool IsMark(std::size_t column) const;
    [[nodiscard]] bool IsAmount(std::size_t column) const;
    [[nodiscard]] bool Fits(std::size_t column, std::string_view cell, bool isDate) const;
    [[nodiscard]] bool IsTooLong(const CsvRecord& record) const;
    void Fit(CsvRecord& record) const;
    /// The cells that are not mere text, as one text, if all of them can be read; else nothing.
    [[nodiscard]] std::optional<std::string> Typed(const CsvRecord& record) const;

    const CsvTable& table_;
    const CsvColumns& columns_;
    std::vector<bool> isTyped_;
};

}  // namespace clb
