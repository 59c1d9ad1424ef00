// What is typed into the grid's cell in edit, and what is offered there.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "controls/GridColumn.h"
#include "controls/GridText.h"

namespace clb {

/// The text of one cell in edit: what it says, what it would be, and why it is refused.
///
///   closed --Open--> as it was --Text, OfferDate--> touched --Read--> a value, or marked
///
/// While no cell is open there is nothing typed and no mark.
class CellEntry {
public:
    /// Both are borrowed.
    CellEntry(const GridText& texts, const GridColumns& columns) : texts_(texts), columns_(columns)
    {
    }

    /// How dates are typed.
    struct Dates {
        /// Returns what a typed date refers to.
        std::function<DateContext()> context = [] { return DateContext(); };
        /// Whether a new row's empty date cell begins with the date that was typed last, else with
        /// today.
        bool offered = false;
    };
    void TypeDates(Dates dates) { dates_ = std::move(dates); }
    /// The day that dates are typed on.
    [[nodiscard]] Date Today() const;

    /// Opens a cell of this column that holds the value.
    void Open(std::int32_t column, const Value& value);
    /// Puts a date into the open cell if dates are offered and its column holds them. It counts as
    /// typed, but not as the user's own until it is typed by hand.
    void OfferDate();
    void Close();
    [[nodiscard]] bool IsOpen() const { return open_; }

    [[nodiscard]] const std::string& Text() const { return text_; }
    /// Types another text; the mark goes. Returns whether there was one.
    bool Text(const std::string& text);
    /// Whether the text was typed or offered since the cell was opened.
    [[nodiscard]] bool Touched() const { return touched_; }
    /// The text as a date; nothing if it is not one.
    [[nodiscard]] std::optional<Date> TypedDate() const;
    /// What the typed text would be, if that is not what it says already; see GridText.
    [[nodiscard]] std::string Understood() const;
    /// The text as a value of its column. Nothing if the column does not hold it: the cell is then
    /// marked, and Refusal says why.
    std::optional<Value> Read();

    /// Why the text was refused; empty if it was not.
    [[nodiscard]] const std::string& Refusal() const { return refusal_; }
    /// Marks the open cell as the one to correct, until it is typed into.
    void Mark() { marked_ = open_; }
    [[nodiscard]] bool Marked() const { return marked_; }

    /// The column of the row whose date was offered and not typed; 0 if there is none.
    [[nodiscard]] std::int32_t OfferedColumn() const { return offered_; }
    /// The row in edit is another one, or as it is stored: nothing was offered in it.
    void ForgetOffer() { offered_ = 0; }

private:
    const GridText& texts_;
    const GridColumns& columns_;
    Dates dates_;
    std::optional<Date> lastDate_;  ///< typed last
    std::int32_t offered_ = 0;

    bool open_ = false;
    std::int32_t column_ = 0;
    std::string text_;
    bool touched_ = false;
    bool marked_ = false;
    std::string refusal_;
};

}  // namespace clb
