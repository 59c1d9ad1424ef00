#include "statements/csv/CsvTable.h"

#include <algorithm>
#include <map>

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvCells.h"
#include "statements/csv/CsvDialects.h"

namespace clb {
namespace {

/// The header row is among these records.
constexpr std::size_t kHeaderRecords = 300;
constexpr std::size_t kKeptPreamble = 60;
constexpr std::size_t kMeasured = 2000;

/// Whether the fields are the whole part and the decimals of an amount.
bool IsTorn(std::string_view whole, std::string_view decimals)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (whole.starts_with('-') || whole.starts_with('+'))
        whole.remove_prefix(1);
    return !whole.empty() && whole.size() <= 9 && decimals.size() == 2 &&
           std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(decimals.begin(), decimals.end(), isDigit);
}

}  // namespace

CsvTable::CsvTable(std::string_view text, const StatementAnswers& answers) : text_(text)
{
    dialect_ = FindDialect(text_, answers);
    FindHeader(answers);
    if (!HasHeader())
        FindFirstRow(answers.skip.value_or(0));
    MeasureWidth();
    FindTornAmounts();
    KeepPreamble();
}

void CsvTable::FindHeader(const StatementAnswers& answers)
{
    CsvRecords records(text_, dialect_);
    CsvRecord record;
    std::size_t best = 0;
    const std::size_t skip = answers.skip.value_or(0);
    for (std::size_t i = 0; i < kHeaderRecords + skip && records.Next(record); ++i) {
        if (record.line <= skip || record.fields.size() < 2)
            continue;
        const std::size_t score = HeaderScore(record);
        if (score > best) {
            best = score;
            first_ = i + 1;
            TakeHeader(record);
        }
        if (answers.skip && !record.IsBlank())
            return;
    }
}

/// Without a header row that names what is in the columns: the first record with a date and an
/// amount, and the names in the record before it, if it has any.
void CsvTable::FindFirstRow(std::size_t skip)
{
    CsvRecords records(text_, dialect_);
    CsvRecord record;
    std::vector<std::string> before;
    for (std::size_t i = 0; records.Next(record); ++i) {
        if (record.line <= skip)
            continue;
        if (IsDataRow(record)) {
            first_ = i;
            const std::size_t filled = static_cast<std::size_t>(std::count_if(
                before.begin(), before.end(), [](const std::string& n) { return !n.empty(); }));
            if (filled > 2 && before.size() + 1 >= record.fields.size() &&
                before.size() <= record.fields.size() + 1)
                names_ = before;
            return;
        }
        before.clear();
        for (const std::string_view field : record.fields)
            before.emplace_back(IsAmountCell(field) || IsDateCell(field) ? std::string_view()
                                                                         : field);
        if (i > kHeaderRecords)
            break;
    }
    throw UnknownFormat("The file holds no table with dates and amounts.");
}

void CsvTable::TakeHeader(const CsvRecord& record)
{
    names_.assign(record.fields.begin(), record.fields.end());
}

void CsvTable::MeasureWidth()
{
    std::map<std::size_t, std::size_t> widths;
    std::size_t measured = 0;
    std::size_t rows = 0;
    CsvRecords records(text_, dialect_);
    CsvRecord record;
    for (std::size_t i = 0; measured < kMeasured && records.Next(record); ++i) {
        if (i < first_ || record.IsBlank())
            continue;
        ++measured;
        if (IsDataRow(record)) {
            ++rows;
            ++widths[record.fields.size()];
        }
    }
    if (!HasHeader() && rows * 3 < measured)
        throw UnknownFormat("The file holds no table with dates and amounts.");
    width_ = names_.size();
    std::size_t most = 0;
    for (const auto& [width, count] : widths)
        if (count > most) {
            most = count;
            width_ = HasHeader() ? names_.size() : width;
        }
}

/// Some banks divide fields by commas and write decimal commas without quotes. Then most rows have
/// more fields than names, and two digits follow each whole amount.
void CsvTable::FindTornAmounts()
{
    if (dialect_.delimiter != ',' || !HasHeader())
        return;
    std::size_t rows = 0;
    std::size_t tooLong = 0;
    std::map<std::size_t, std::size_t> torn;
    std::size_t extra = 0;
    ForEachRecord([&](const CsvRecord& record) {
        if (rows >= kMeasured || !IsDataRow(record))
            return;
        ++rows;
        if (record.Filled() <= names_.size())
            return;
        ++tooLong;
        extra = std::max(extra, record.Filled() - names_.size());
        for (std::size_t i = 0; i + 1 < record.fields.size(); ++i)
            if (IsTorn(record.fields[i], record.fields[i + 1]))
                ++torn[i];
    });
    if (tooLong == 0 || tooLong * 2 < rows)
        return;
    for (const auto& [field, count] : torn)
        if (count == tooLong)
            torn_.insert(torn_.begin(), field);
    const bool fits = torn_.size() == extra && tooLong == rows;
    const bool some = std::any_of(torn.begin(), torn.end(), [tooLong](const auto& field) {
        return field.second * 3 >= tooLong;
    });
    if (!fits && some)
        throw NotAStatement(
            "Commas divide the fields and are also in the amounts, so it is not clear "
            "where an amount ends.");
    if (!fits)
        torn_.clear();
}

void CsvTable::KeepPreamble()
{
    CsvRecords records(text_, dialect_);
    CsvRecord record;
    for (std::size_t i = 0; i + 1 < first_ && i < kKeptPreamble && records.Next(record); ++i)
        preamble_.emplace_back(record.fields.begin(), record.fields.end());
}

std::string CsvTable::NameOf(std::size_t column) const
{
    if (column < names_.size() && !names_[column].empty())
        return names_[column];
    return std::to_string(column + 1);
}

bool CsvTable::IsHeaderAgain(const CsvRecord& record) const
{
    return HasHeader() && record.fields.size() == names_.size() &&
           std::equal(names_.begin(), names_.end(), record.fields.begin());
}

void CsvTable::ForEachRecord(const std::function<void(const CsvRecord&)>& take) const
{
    CsvRecords records(text_, dialect_);
    CsvRecord record;
    for (std::size_t i = 0; records.Next(record); ++i) {
        if (i < first_ || record.IsBlank() || IsHeaderAgain(record))
            continue;
        if (record.Filled() == names_.size() + torn_.size())
            for (const std::size_t field : torn_)
                record.Join(field, 1);
        take(record);
    }
}

}  // namespace clb
