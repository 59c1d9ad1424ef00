#include "check/CheckCounters.h"

#include <limits>

#include "engine/storage/Catalogue.h"

namespace clb {
namespace {

const std::string kLargest = std::to_string(std::numeric_limits<std::int32_t>::max());

/// Returns the storage's number of the first row with the largest number.
std::optional<std::int64_t> RowWithLargest(RawSql& raw, const std::string& table)
{
    std::optional<std::int64_t> found;
    raw.Select("SELECT rowid FROM " + QuoteName(table) +
                   " WHERE typeof(Sequence) = 'integer' AND Sequence >= " + kLargest +
                   " ORDER BY rowid LIMIT 1",
               [&](const RawSql::Row& row) { found = row.Integer(0); });
    return found;
}

/// Whether the table's counter has used the largest number.
bool HasGivenLargest(RawSql& raw, const std::string& table)
{
    bool given = false;
    raw.Select("SELECT 1 FROM sqlite_master WHERE name = 'sqlite_sequence'",
               [&](const RawSql::Row&) { given = true; });
    if (!given)
        return false;
    given = false;
    raw.Select("SELECT 1 FROM sqlite_sequence WHERE seq >= " + kLargest +
                   " AND name = " + QuoteText(table) + " COLLATE NOCASE",
               [&](const RawSql::Row&) { given = true; });
    return given;
}

}  // namespace

void FindUsedUpNumbers(RawSql& raw, const std::string& table, FindingList& findings)
{
    const TableInfo* const info = raw.Find(table);
    const ColumnInfo* const column = info ? info->Find("Sequence") : nullptr;
    if (!column)
        return;
    const auto row = RowWithLargest(raw, table);
    if (!row && !(column->type.counter && HasGivenLargest(raw, table)))
        return;
    const std::string which = !row ? ", whose row is gone,"
                              : std::to_string(*row) == kLargest
                                  ? ""
                                  : " (row " + std::to_string(*row) + ")";
    findings.Add({.kind = "counter",
                  .table = table,
                  .text = table + ": number " + kLargest + which +
                          " is the largest that there can be. No number is left for a new row.",
                  .rows = row ? 1 : 0,
                  .row = row,
                  .sequence = std::numeric_limits<std::int32_t>::max(),
                  .column = "Sequence"});
}

}  // namespace clb
