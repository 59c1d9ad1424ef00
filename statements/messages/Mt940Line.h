// The statement line, balance and account of MT940 and MT942, by SWIFT's definition.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "statements/form/Statement.h"

namespace clb {

/// Field 61. What cannot be read is empty.
struct Mt940Line {
    std::optional<Date> booked{};  ///< the entry date if there is one, else the value date
    std::optional<Date> value{};
    std::optional<Money> amount{};  ///< negative for a debit, and for the reversal of a credit
    bool expected = false;          ///< an expected booking of MT942
    std::string type{};             ///< such as "NTRF"; empty if the line breaks off before it
    std::string reference{};        ///< the account owner's
    std::string bankReference{};
    std::string details{};  ///< the lines after the first
};
[[nodiscard]] Mt940Line ReadMt940Line(std::string_view content);

/// Fields 60, 62 and 64. Nothing if the balance cannot be read.
struct Mt940Balance {
    Money amount;
    std::string currency{};  ///< may be missing
    std::optional<Date> date{};
};
[[nodiscard]] std::optional<Mt940Balance> ReadMt940Balance(std::string_view content);

/// The currency that begins the content of field 34F, or follows the number in 90C and 90D.
[[nodiscard]] std::string Mt940Currency(std::string_view content);

/// Field 25. A currency after the number is taken off it. A bank code before the number stays part
/// of it, as in "12345678/9876543", unless the number is an IBAN.
[[nodiscard]] StatementAccount ReadMt940Account(std::string_view content);

/// The day of six digits, YYMMDD; years 80 to 99 are 19xx. Nothing if there is no such day.
[[nodiscard]] std::optional<Date> ReadMt940Date(std::string_view digits);

}  // namespace clb
