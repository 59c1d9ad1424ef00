// Which currency a row is in.
#pragma once
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "statements/csv/CsvColumns.h"

namespace clb {

/// The mark of the currency that a row names: in its own column, or beside its amount. Empty if it
/// names none.
[[nodiscard]] std::string_view CurrencyMarkOf(const CsvColumns& columns, const AmountSource& source,
                                              const CsvRecord& record);

/// Collects the marks of the currencies that the rows of a file name.
class FileCurrencies {
public:
    void Add(std::string_view mark);
    /// The different currencies, up to a limit. Marks that several currencies share ("kr") are
    /// kept as they are if the file names others too.
    [[nodiscard]] std::set<std::string> Different() const;

private:
    std::string last_;
    std::set<std::string, std::less<>> marks_;
};

/// The currency that a mark means among others: its code; "$" is the dollar of the United States,
/// and other marks that several currencies share are what they are.
[[nodiscard]] std::string CurrencyAmongOthers(std::string_view mark);

/// A code of ISO 4217 in the name of a column, as in "Amount (EUR)"; empty if it has none.
[[nodiscard]] std::string CurrencyInName(std::string_view name);

}  // namespace clb
