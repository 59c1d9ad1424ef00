// The table of a text: its delimiter, its header row and the rows after it.
#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "statements/csv/CsvRecords.h"
#include "statements/form/StatementReader.h"

namespace clb {

/// A table with whatever stands before and after it. The text is borrowed.
class CsvTable {
public:
    /// Finds the table. A delimiter and lines to skip that are given are taken. Throws
    /// NotAStatement if there is none.
    CsvTable(std::string_view text, const StatementAnswers& answers);

    [[nodiscard]] std::string_view Text() const { return text_; }
    [[nodiscard]] const CsvDialect& Dialect() const { return dialect_; }
    [[nodiscard]] bool HasHeader() const { return !names_.empty(); }
    /// Names of the columns as the header row has them; empty without one.
    [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }
    /// Number of columns.
    [[nodiscard]] std::size_t Width() const { return width_; }
    /// The name of a column, or its number from 1.
    [[nodiscard]] std::string NameOf(std::size_t column) const;
    /// The cells before the table, record by record.
    [[nodiscard]] const std::vector<std::vector<std::string>>& Preamble() const
    {
        return preamble_;
    }
    /// Calls for every record after the header row that is not blank and no repeated header.
    void ForEachRecord(const std::function<void(const CsvRecord&)>& take) const;

private:
    void FindHeader(const StatementAnswers& answers);
    void FindFirstRow(std::size_t skip);
    void TakeHeader(const CsvRecord& record);
    void MeasureWidth();
    void FindTornAmounts();
    void KeepPreamble();
    [[nodiscard]] bool IsHeaderAgain(const CsvRecord& record) const;

    std::string_view text_;
    CsvDialect dialect_;
    std::vector<std::string> names_;
    std::size_t first_ = 0;  ///< index of the first record after the header row
    std::size_t width_ = 0;
    std::vector<std::vector<std::string>> preamble_;
    /// Fields that the comma of their decimals has torn apart, from the last on.
    std::vector<std::size_t> torn_;
};

}  // namespace clb
