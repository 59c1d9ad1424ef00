// What the names of columns say in the languages of banks.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace clb {

/// What a column holds.
enum class ColumnRole : std::uint8_t {
    Unknown,
    Date,
    ValueDate,
    Amount,
    In,   ///< amounts that come in
    Out,  ///< amounts that go out
    Fee,
    OriginalAmount,  ///< in the currency of the purchase
    Mark,            ///< whether a row comes in or goes out
    Balance,
    Currency,
    OriginalCurrency,  ///< of the original amount or the balance
    Name,
    Text,
    Category,
    Check,
    Id,
    Account,
    OtherAccount,  ///< of the other party
    Status,
    Ignored  ///< times, running numbers, the user's own marks
};

/// A role, and how surely the name means it: 0 is surest.
struct NamedRole {
    ColumnRole role = ColumnRole::Unknown;
    int rank = 9;
};

/// What the name of a column says.
[[nodiscard]] NamedRole RoleOf(std::string_view name);
/// The name in small letters without accents, signs and doubled spaces; cut off if it is longer
/// than names are.
[[nodiscard]] std::string PlainName(std::string_view name);
/// The same for a text of any length.
[[nodiscard]] std::string PlainText(std::string_view text);

}  // namespace clb
