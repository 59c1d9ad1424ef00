// A list with check boxes, as dialogs use it.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "base/Value.h"
#include "controls/Control.h"

namespace clb {

/// A small grid inside a dialog: rows of values with a check box in the first column.
class CheckList : public Control {
public:
    CheckList(std::string name, std::vector<std::string> columns);
    void Accept(ControlVisitor& visitor) override;
    /// Captions of the columns.
    [[nodiscard]] const std::vector<std::string>& Columns() const { return columns_; }
    [[nodiscard]] const std::vector<std::vector<Value>>& Rows() const { return rows_; }
    /// Adds a row; the first value is the check.
    void Add(std::vector<Value> row);
    /// Ticks or unticks a row, numbered from 1. Throws RuntimeError (SubscriptOutOfRange) if there
    /// is no such row.
    void Check(std::size_t row, bool ticked);

private:
    std::vector<std::string> columns_;
    std::vector<std::vector<Value>> rows_;
};

}  // namespace clb
