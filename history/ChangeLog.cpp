#include "history/ChangeLog.h"

#include <algorithm>

#include "engine/storage/PackedCells.h"

namespace clb {
namespace {

bool HasColumn(const RowChanged& row, int column)
{
    return std::any_of(row.before.begin(), row.before.end(),
                       [column](const auto& cell) { return cell.first == column; });
}

}  // namespace

std::uint32_t ChangeLog::TableOf(const ChangingRow& row)
{
    // Most changes are of the table of the change before.
    if (!entries_.empty() && tables_[entries_.back().table].name == row.Table())
        return entries_.back().table;
    for (std::uint32_t i = 0; i < tables_.size(); ++i)
        if (tables_[i].name == row.Table())
            return i;
    tables_.push_back({std::string(row.Table()), row.Columns()});
    return static_cast<std::uint32_t>(tables_.size() - 1);
}

void ChangeLog::Add(const ChangingRow& row)
{
    const std::uint32_t table = TableOf(row);
    const bool moves = row.What() == ChangingRow::Kind::Update && row.IdBefore() != row.IdAfter();
    if (row.What() == ChangingRow::Kind::Delete || moves)
        AddGone(row, table);
    if (row.What() == ChangingRow::Kind::Insert || moves)
        AddNew(row, table);
    if (row.What() == ChangingRow::Kind::Update && !moves)
        AddWritten(row, table);
}

void ChangeLog::AddGone(const ChangingRow& row, std::uint32_t table)
{
    const std::size_t start = cells_.size();
    before_.clear();
    for (int column = 0; column < row.Columns(); ++column) {
        const std::size_t from = before_.size();
        row.AppendBefore(before_, column);
        packed::AppendNumber(cells_, static_cast<std::uint64_t>(column));
        cells_.append(before_, from);
    }
    lastBefore_ = packed::HashOfCells(before_);
    entries_.push_back({row.IdBefore(), lastBefore_, 0, start, table, true, false});
}

void ChangeLog::AddNew(const ChangingRow& row, std::uint32_t table)
{
    after_.clear();
    for (int column = 0; column < row.Columns(); ++column)
        row.AppendAfter(after_, column);
    if (row.What() == ChangingRow::Kind::Insert)
        lastBefore_ = 0;
    entries_.push_back(
        {row.IdAfter(), 0, packed::HashOfCells(after_), cells_.size(), table, false, true});
}

void ChangeLog::AddWritten(const ChangingRow& row, std::uint32_t table)
{
    const std::size_t start = cells_.size();
    before_.clear();
    after_.clear();
    for (int column = 0; column < row.Columns(); ++column) {
        const std::size_t from = before_.size();
        const std::size_t to = after_.size();
        row.AppendBefore(before_, column);
        row.AppendAfter(after_, column);
        const std::string_view was = std::string_view(before_).substr(from);
        if (was == std::string_view(after_).substr(to))
            continue;
        packed::AppendNumber(cells_, static_cast<std::uint64_t>(column));
        cells_ += was;
    }
    lastBefore_ = packed::HashOfCells(before_);
    entries_.push_back(
        {row.IdBefore(), lastBefore_, packed::HashOfCells(after_), start, table, true, true});
}

void ChangeLog::CutTo(std::size_t size) noexcept
{
    if (size >= entries_.size())
        return;
    cells_.resize(entries_[size].cells);
    entries_.resize(size);
}

void ChangeLog::Clear() noexcept
{
    entries_.clear();
    tables_.clear();
    cells_.clear();
}

std::string_view ChangeLog::CellsOf(std::size_t entry) const
{
    const std::size_t end = entry + 1 < entries_.size() ? entries_[entry + 1].cells : cells_.size();
    return std::string_view(cells_).substr(entries_[entry].cells, end - entries_[entry].cells);
}

/// The table's entries in the order of their rows, those of one row in the order in which they
/// came.
std::vector<std::uint32_t> ChangeLog::EntriesOf(std::uint32_t table) const
{
    std::vector<std::uint32_t> found;
    for (std::uint32_t i = 0; i < entries_.size(); ++i)
        if (entries_[i].table == table)
            found.push_back(i);
    const auto earlier = [this](std::uint32_t one, std::uint32_t other) {
        return entries_[one].row < entries_[other].row;
    };
    if (!std::is_sorted(found.begin(), found.end(), earlier))
        std::stable_sort(found.begin(), found.end(), earlier);
    return found;
}

/// Only the first content of each cell is what the row had before.
void ChangeLog::Fold(std::size_t entry, RowChanged& into, int columns) const
{
    if (into.was && static_cast<int>(into.before.size()) < columns)
        for (packed::Reader reader(CellsOf(entry)); !reader.AtEnd();) {
            const auto column = static_cast<int>(reader.Number());
            const std::string_view cell = reader.CellBytes();
            if (!HasColumn(into, column))
                into.before.emplace_back(column, cell);
        }
    into.is = entries_[entry].is;
    into.hash = entries_[entry].hash;
}

std::vector<ChangeLog::Table> ChangeLog::Tables() const
{
    std::vector<bool> written(tables_.size());
    for (const Entry& entry : entries_)
        written[entry.table] = true;
    std::vector<Table> found;
    for (std::size_t table = 0; table < tables_.size(); ++table)
        if (written[table])
            found.push_back(tables_[table]);
    return found;
}

void ChangeLog::Visit(IChangesVisitor& visitor) const
{
    for (std::uint32_t table = 0; table < tables_.size(); ++table) {
        const std::vector<std::uint32_t> entries = EntriesOf(table);
        bool named = false;
        for (std::size_t i = 0; i < entries.size();) {
            const Entry& first = entries_[entries[i]];
            RowChanged row{first.row, first.was, first.is, first.hash};
            for (; i < entries.size() && entries_[entries[i]].row == row.row; ++i)
                Fold(entries[i], row, tables_[table].columns);
            if (row.was ? row.is && row.hash == first.hashBefore : !row.is)
                continue;
            if (!std::exchange(named, true))
                visitor.Table(tables_[table].name, tables_[table].columns);
            std::sort(row.before.begin(), row.before.end());
            visitor.Row(row);
        }
    }
}

}  // namespace clb
