#include "statements/csv/CutEnd.h"

#include "statements/form/AmountText.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// Whether the text is a part of a date in figures.
bool BeginsDate(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789./-") == std::string_view::npos;
}

}  // namespace

CutEnd::CutEnd(const CsvTable& table, const CsvColumns& columns)
    : table_(table),
      columns_(columns),
      text_(table.Text()),
      open_(!text_.empty() && text_.back() != '\n' && text_.back() != '\r')
{
    for (const AmountSource& source : columns.sources)
        for (const auto& column : {source.amount, source.in, source.out})
            if (column)
                amounts_.push_back(*column);
    amounts_.insert(amounts_.end(), columns.balances.begin(), columns.balances.end());
    std::sort(amounts_.begin(), amounts_.end());
    amounts_.erase(std::unique(amounts_.begin(), amounts_.end()), amounts_.end());
    fewestDecimals_.resize(amounts_.size());
}

void CutEnd::Add(const CsvRecord& record, bool isRow)
{
    if (!open_ || record.fields.empty())
        return;
    if (last_.isRow)
        Count(last_);
    last_.line = record.line;
    last_.fields = record.fields.size();
    last_.filled = record.Filled();
    last_.isRow = isRow;
    last_.raw = record.raw;
    last_.last = record.fields.back();
    last_.decimals.assign(amounts_.size(), std::nullopt);
    for (std::size_t i = 0; i < amounts_.size(); ++i)
        if (!record.Field(amounts_[i]).empty())
            last_.decimals[i] = DecimalsOf(record.Field(amounts_[i]));
}

void CutEnd::Count(const Seen& row)
{
    fewest_ = rows_ == 0 ? row.fields : std::min(fewest_, row.fields);
    mostFilled_ = std::max(mostFilled_, row.filled);
    for (std::size_t i = 0; i < row.decimals.size(); ++i)
        for (std::size_t mark = 0; row.decimals[i] && mark < 2; ++mark) {
            if (!fewestDecimals_[i])
                fewestDecimals_[i] = row.decimals[i];
            std::size_t& fewest = (*fewestDecimals_[i])[mark];
            fewest = std::min(fewest, (*row.decimals[i])[mark]);
        }
    rowBefore_ = row.raw;
    ++rows_;
}

CutEnd::Decimals CutEnd::DecimalsOf(std::string_view cell)
{
    Decimals decimals{};
    for (std::size_t mark = 0; mark < 2; ++mark) {
        const std::size_t at = cell.rfind(mark == 0 ? '.' : ',');
        while (at != std::string_view::npos && at + 1 + decimals[mark] < cell.size() &&
               IsDigit(static_cast<unsigned char>(cell[at + 1 + decimals[mark]])))
            ++decimals[mark];
    }
    return decimals;
}

std::optional<std::size_t> CutEnd::Line(const CsvSolution& solution) const
{
    if (!open_ || rows_ == 0 || !AtEnd(last_.raw))
        return std::nullopt;
    const bool openQuote = last_.isRow && last_.last.starts_with('"');
    const bool cut =
        LacksFields(columns_) || openQuote || (IsShort(solution) && !FollowsBalance(solution));
    return cut ? std::optional(last_.line) : std::nullopt;
}

/// Whether fields are missing that a row before has filled. A line that begins with no date is a
/// line of text or a sum.
bool CutEnd::LacksFields(const CsvColumns& columns) const
{
    const bool inDate =
        !columns.dates.empty() && columns.dates[0] + 1 == last_.fields && BeginsDate(last_.last);
    return last_.fields < fewest_ && last_.fields < mostFilled_ && (last_.isRow || inDate);
}

/// Whether the row ends with an amount or a balance with fewer decimals than all rows before.
bool CutEnd::IsShort(const CsvSolution& solution) const
{
    if (!last_.isRow || last_.fields == 0)
        return false;
    const auto found = std::find(amounts_.begin(), amounts_.end(), last_.fields - 1);
    if (found == amounts_.end())
        return false;
    const auto i = static_cast<std::size_t>(found - amounts_.begin());
    const std::size_t mark = solution.decimal == '.' ? 0 : 1;
    return last_.decimals[i] && fewestDecimals_[i] &&
           (*last_.decimals[i])[mark] < (*fewestDecimals_[i])[mark];
}

/// Whether the last balance follows from the row before, so that the doubtful field is whole.
bool CutEnd::FollowsBalance(const CsvSolution& solution) const
{
    if (!solution.balance || !solution.step || !solution.amounts)
        return false;
    CsvRecord before;
    CsvRecord last;
    CsvRecords first(rowBefore_, table_.Dialect());
    CsvRecords second(last_.raw, table_.Dialect());
    if (!first.Next(before) || !second.Next(last) ||
        AccountKey(solution, before, true) != AccountKey(solution, last, true))
        return false;
    const auto from = ReadAmount(before.Field(*solution.balance), solution.decimal);
    const auto to = ReadAmount(last.Field(*solution.balance), solution.decimal);
    const bool own = solution.step == BalanceStep::PlusOwn;
    const auto amount = solution.amounts->Read(own ? last : before, solution.decimal);
    const bool known = own || (solution.step == BalanceStep::MinusEarlier &&
                               *solution.balance + 1 == last_.fields);
    if (!from || !to || !amount || !known)
        return false;
    return own ? to->Scaled() - amount->Scaled() == from->Scaled()
               : to->Scaled() + amount->Scaled() == from->Scaled();
}

}  // namespace clb
