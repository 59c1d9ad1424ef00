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
    [[nodiscard]] Reading Read(const std::string& text, const GridColumn& column) const;
    /// Nothing if the text is not a date.
    [[nodiscard]] std::optional<Date> ReadDate(const std::string& text) const
    {
        return dates_.Read(text);
    }

private:
    [[nodiscard]] Reading ReadOther(const std::string& text, FieldType type) const;

    const IDateForm& dates_;
};

}  // namespace clb
