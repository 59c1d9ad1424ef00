// The texts of the grid's cells: as shown, as edited, and as typed.
#pragma once
#include <optional>
#include <string>

#include "base/Value.h"
#include "controls/GridColumn.h"
#include "ports/IDateForm.h"

namespace clb {

/// Converts between the values of a column and their texts. Dates have the form of the date port,
/// which is borrowed.
class GridText {
public:
    explicit GridText(const IDateForm& dates) : dates_(dates) {}

    /// Amounts with two decimals and grouping; a value of the column's list as its text.
    [[nodiscard]] std::string Shown(const Value& value, const GridColumn& column) const;
    /// As shown, but an amount with fractions of a cent keeps them.
    [[nodiscard]] std::string ToEdit(const Value& value, const GridColumn& column) const;

    /// A typed text as a value, or why the column does not take it.
    struct Reading {
        std::optional<Value> value;
        std::string refusal;
    };
    /// context: what a typed date refers to.
    [[nodiscard]] Reading Read(const std::string& text, const GridColumn& column,
                               const DateContext& context) const;
    /// Nothing if the text is not a date.
    [[nodiscard]] std::optional<Date> ReadDate(const std::string& text,
                                               const DateContext& context) const;
    /// What a text that is being typed would be, if that is not what it says already: the whole
    /// date, or the amount of a calculation. Empty otherwise.
    [[nodiscard]] std::string Understood(const std::string& text, const GridColumn& column,
                                         const DateContext& context) const;

private:
    [[nodiscard]] Reading ReadDay(const std::string& text, const DateContext& context) const;
    [[nodiscard]] Reading ReadAmount(const std::string& text, FieldType type) const;

    const IDateForm& dates_;
};

}  // namespace clb
