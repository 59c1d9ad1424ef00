// Codes and signs of currencies beside an amount.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// Whether it is a code of ISO 4217 in capitals, such as "EUR".
[[nodiscard]] bool IsCurrencyCode(std::string_view text);
/// Whether it is the sign of a currency: "$", "€", "¥" and the like.
[[nodiscard]] bool IsCurrencySign(char32_t code);
/// Whether banks write the word beside an amount for a currency: a code, a sign, or an abbreviation
/// ("kr.", "Rs", "US$", "zł", "руб.").
[[nodiscard]] bool IsCurrencyMark(std::string_view word);
/// The code of ISO 4217 that a mark means, or empty if it means none for sure ("$", "kr").
[[nodiscard]] std::string CurrencyOf(std::string_view mark);

}  // namespace clb
