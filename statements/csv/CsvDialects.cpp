#include "statements/csv/CsvDialects.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "statements/csv/ColumnNames.h"
#include "statements/csv/CsvCells.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// Records and bytes that are looked at for each delimiter.
constexpr std::size_t kSampleRecords = 600;
constexpr std::size_t kSampleBytes = 1U << 18U;

/// How well a delimiter fits; compared from the first figure on.
using Fit = std::tuple<std::size_t, std::size_t, std::size_t, std::size_t, std::size_t>;

Fit FitOf(std::string_view text, CsvDialect dialect)
{
    CsvRecords records(text.substr(0, kSampleBytes), dialect);
    CsvRecord record;
    std::size_t rows = 0;
    std::size_t header = 0;
    std::map<std::size_t, std::size_t> widths;
    for (std::size_t i = 0; i < kSampleRecords && records.Next(record); ++i) {
        if (record.fields.size() < 2)
            continue;
        rows += IsDataRow(record) ? 1U : 0U;
        header = std::max(header, HeaderScore(record));
        ++widths[record.fields.size()];
    }
    const auto widest = std::max_element(
        widths.begin(), widths.end(),
        [](const auto& one, const auto& other) { return one.second < other.second; });
    const std::size_t alike = widest == widths.end() ? 0 : widest->second;
    const std::size_t width = widest == widths.end() ? 0 : widest->first;
    return {rows, header, alike, dialect.wrapped ? 0U : 1U, width};
}

/// Takes a first line "sep=;", with quotes around it or without.
std::optional<char> TakeStatedDelimiter(std::string_view& text)
{
    const std::size_t quote = text.starts_with('"') ? 1 : 0;
    if (FoldText(text.substr(quote, 4)) != "sep=" || text.size() < quote + 5)
        return std::nullopt;
    const char delimiter = text[quote + 4];
    const std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos || end > quote + 6)
        return std::nullopt;
    // The line stays, empty, so that lines are counted as in the file.
    text.remove_prefix(end);
    return delimiter;
}

}  // namespace

std::size_t HeaderScore(const CsvRecord& record)
{
    // Under a wrong delimiter most records are one long field, which would be folded for nothing.
    if (record.fields.size() < 2)
        return 0;
    std::set<ColumnRole> roles;
    std::size_t unknown = 0;
    for (const std::string_view field : record.fields) {
        if (field.empty())
            continue;
        const ColumnRole role =
            IsPlainlyAmount(field) || IsDateCell(field) ? ColumnRole::Unknown : RoleOf(field).role;
        if (role == ColumnRole::Unknown)
            ++unknown;
        else
            roles.insert(role);
    }
    const bool date = roles.contains(ColumnRole::Date) || roles.contains(ColumnRole::ValueDate);
    const bool amount =
        roles.contains(ColumnRole::Amount) || roles.contains(ColumnRole::In) ||
        roles.contains(ColumnRole::Out) ||
        (roles.contains(ColumnRole::OriginalAmount) && roles.contains(ColumnRole::Currency));
    return date && amount && unknown <= 4 * roles.size() ? roles.size() : 0;
}

CsvDialect FindDialect(std::string_view& text, const StatementAnswers& answers)
{
    const auto stated = TakeStatedDelimiter(text);
    const auto given = answers.delimiter ? answers.delimiter : stated;
    std::string_view delimiters = ",;\t|^~";
    if (given)
        delimiters = std::string_view(&*given, 1);
    CsvDialect best{delimiters.front(), false};
    Fit fit{};
    for (const bool wrapped : {false, true})
        for (const char delimiter : delimiters) {
            if (wrapped && (std::get<0>(fit) > 0 || std::get<1>(fit) > 0))
                continue;
            const Fit found = FitOf(text, {delimiter, wrapped});
            if (found > fit) {
                fit = found;
                best = {delimiter, wrapped};
            }
        }
    return best;
}

}  // namespace clb
