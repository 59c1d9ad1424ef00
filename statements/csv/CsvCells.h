// What a cell can be read as, before anything is known about its column.
#pragma once
#include <string_view>

#include "statements/csv/CsvRecords.h"

namespace clb {

/// Whether the cell is a date in some order.
[[nodiscard]] bool IsDateCell(std::string_view cell);
/// Whether the cell is an amount with a point or with a comma.
[[nodiscard]] bool IsAmountCell(std::string_view cell);
/// Whether it is an amount that is more than a whole number: with decimals, a sign or a currency.
[[nodiscard]] bool IsPlainlyAmount(std::string_view cell);
/// Whether the record has a date, and an amount in another field.
[[nodiscard]] bool IsDataRow(const CsvRecord& record);
/// Whether the cell has the form of an IBAN, with spaces or without.
[[nodiscard]] bool IsIbanCell(std::string_view cell);

}  // namespace clb
