#pragma once
// Reading the rows of a SELECT once, from the first to the last, without holding them.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "engine/rows/Connection.h"
#include "engine/rows/Recordset.h"

namespace clb {

struct Plan;
class Query;

/// The row that a walk has come to. Fields are addressed by 0-based position.
class WalkedRow {
public:
    WalkedRow(const Plan& plan, const Query& query) : plan_(plan), query_(query) {}

    [[nodiscard]] const std::vector<Field>& Fields() const;
    /// 0-based position of the field, without regard to case. Throws EngineError when there is none
    /// of that name.
    [[nodiscard]] std::size_t FieldIndex(std::string_view name) const;
    /// What Recordset::Get gives, errors included.
    [[nodiscard]] Value Get(std::size_t field) const;
    /// A text field without a copy, good until the next row; empty for null and other types.
    [[nodiscard]] std::string_view Text(std::size_t field) const;
    [[nodiscard]] bool IsNull(std::size_t field) const;
    /// Whether the cell holds a text. In a text field another program may have stored bytes, which
    /// are read as a text but are equal to none.
    [[nodiscard]] bool HoldsText(std::size_t field) const;

private:
    const Plan& plan_;
    const Query& query_;
};

/// Runs the SELECT and hands each of its rows to take, in order. All rows are of one state of the
/// file. Holds the rows' identities at most, where a Recordset holds blocks of values. take must
/// not use the connection; what it throws ends the walk. Throws EngineError as Recordset::Open and
/// Get do.
void WalkRows(Connection& connection, std::string_view sql,
              const std::function<void(const WalkedRow&)>& take);

}  // namespace clb
