#include "history/StepBytes.h"

#include <algorithm>
#include <map>

#include "history/Bookkeeping.h"
#include "history/StepStore.h"

namespace clb {
namespace {

/// More columns than a table of the storage can have.
constexpr std::uint64_t kTooManyColumns = 32768;

enum RowKind : std::uint8_t { kEnd = 0, kNew = 1, kWritten = 2, kGone = 3 };

void AppendKind(std::string& bytes, RowKind kind)
{
    packed::AppendNumber(bytes, kind);
}

}  // namespace

void StepWriter::Table(const std::string& name, int columns)
{
    EndTable();
    const TableShape& shape = shapes_->Of(name);
    packed::AppendText(bytes_, name);
    packed::AppendNumber(bytes_, static_cast<std::uint64_t>(columns));
    packed::AppendFixed(bytes_, shape.fingerprint);
    inTable_ = true;
    ofBook_ = !IsBookkeeping(name);
    last_ = 0;
}

void StepWriter::EndTable()
{
    EndRun();
    if (inTable_)
        AppendKind(bytes_, kEnd);
    inTable_ = false;
}

void StepWriter::AppendIdentity(std::int64_t row)
{
    // The distance of any two identities fits in 64 bits without their sign.
    packed::AppendSigned(bytes_, static_cast<std::int64_t>(static_cast<std::uint64_t>(row) -
                                                           static_cast<std::uint64_t>(last_)));
    last_ = row;
}

void StepWriter::EndRun()
{
    if (runLength_ == 0)
        return;
    AppendKind(bytes_, kNew);
    AppendIdentity(runStart_);
    packed::AppendNumber(bytes_, runLength_);
    bytes_ += run_;
    last_ = runStart_ + static_cast<std::int64_t>(runLength_ - 1);
    run_.clear();
    runLength_ = 0;
}

void StepWriter::Row(const RowChanged& row)
{
    ++rows_;
    rowsOfBook_ += ofBook_ ? 1 : 0;
    if (!row.was) {
        if (runLength_ > 0 && row.row != runStart_ + static_cast<std::int64_t>(runLength_))
            EndRun();
        if (runLength_++ == 0)
            runStart_ = row.row;
        packed::AppendFixed(run_, row.hash);
        return;
    }
    EndRun();
    AppendKind(bytes_, row.is ? kWritten : kGone);
    AppendIdentity(row.row);
    if (row.is)
        packed::AppendFixed(bytes_, row.hash);
    packed::AppendNumber(bytes_, row.before.size());
    for (const auto& [column, cell] : row.before) {
        packed::AppendNumber(bytes_, static_cast<std::uint64_t>(column));
        bytes_ += cell;
    }
}

std::string StepWriter::Finish()
{
    EndTable();
    return std::move(bytes_);
}

bool StepReader::NextTable()
{
    if (reader_.AtEnd())
        return false;
    table_ = reader_.Text();
    const std::uint64_t columns = reader_.Number();
    // No step changes these; a crafted file could say so.
    if (columns >= kTooManyColumns || StepStore::Owns(table_) || table_.starts_with("sqlite_"))
        throw packed::BrokenBytes();
    columns_ = static_cast<int>(columns);
    fingerprint_ = reader_.Fixed();
    last_ = 0;
    return true;
}

bool StepReader::NextRow(RowChanged& row)
{
    row.before.clear();
    if (runLeft_ > 0) {
        --runLeft_;
        row = {++last_, false, true, reader_.Fixed()};
        return true;
    }
    const std::uint64_t kind = reader_.Number();
    if (kind == kEnd)
        return false;
    if (kind > kGone)
        throw packed::BrokenBytes();
    last_ = static_cast<std::int64_t>(static_cast<std::uint64_t>(last_) +
                                      static_cast<std::uint64_t>(reader_.Signed()));
    row.row = last_;
    row.was = kind != kNew;
    row.is = kind != kGone;
    if (kind == kNew) {
        runLeft_ = reader_.Number();
        if (runLeft_-- == 0)
            throw packed::BrokenBytes();
    }
    row.hash = row.is ? reader_.Fixed() : 0;
    if (row.was)
        ReadCells(row);
    return true;
}

void StepReader::ReadCells(RowChanged& row)
{
    const auto columns = static_cast<std::uint64_t>(columns_);
    const std::uint64_t cells = reader_.Number();
    // Some cells of a row that was written, all of a row that is gone.
    if (cells == 0 || cells > columns || (!row.is && cells < columns))
        throw packed::BrokenBytes();
    for (std::uint64_t i = 0; i < cells; ++i) {
        const std::uint64_t column = reader_.Number();
        if (column >= columns ||
            (i > 0 && column <= static_cast<std::uint64_t>(row.before.back().first)))
            throw packed::BrokenBytes();
        row.before.emplace_back(static_cast<int>(column), reader_.CellBytes());
    }
}

std::int64_t KnownRows(const std::vector<std::string>& earlier, std::string_view part)
{
    std::map<std::string, std::vector<std::int64_t>> known;
    RowChanged row;
    for (const std::string& bytes : earlier)
        for (StepReader reader(bytes); reader.NextTable();)
            while (reader.NextRow(row))
                known[reader.Table()].push_back(row.row);
    for (auto& [table, rows] : known)
        std::sort(rows.begin(), rows.end());
    std::int64_t found = 0;
    for (StepReader reader(part); reader.NextTable();)
        for (const std::vector<std::int64_t>& rows = known[reader.Table()]; reader.NextRow(row);)
            found += std::binary_search(rows.begin(), rows.end(), row.row) ? 1 : 0;
    return found;
}

}  // namespace clb
