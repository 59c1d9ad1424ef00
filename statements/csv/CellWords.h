// Words in cells that say which way money went and whether a row is booked.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace clb {

/// Which way the money of a row went.
enum class CellSide : std::uint8_t { None, In, Out };

/// What the cell of a mark column says: "D", "Credit", "Af", "贷", "+". None for other texts.
[[nodiscard]] CellSide SideOfMark(std::string_view cell);
/// What the words of a description say.
struct TextWords {
    /// "Card purchase" goes out, "Salary" comes in. None if they say nothing, or both.
    CellSide side = CellSide::None;
    /// It is a payment to a card: it comes in, whatever else the file holds.
    bool cardPayment = false;
    /// It is a payment, to a card or out of an account.
    bool payment = false;
};
[[nodiscard]] TextWords WordsOfText(std::string_view text);

/// What a status says about its row.
enum class CellStatus : std::uint8_t {
    None,  ///< no known status
    Booked,
    Pending,  ///< not booked yet
    Void      ///< declined, failed or reversed before it was booked
};
[[nodiscard]] CellStatus StatusOf(std::string_view cell);
/// Whether the cell is a status whatever the name of its column is: not so "true" or "open".
[[nodiscard]] bool IsPlainlyStatus(std::string_view cell);

}  // namespace clb
