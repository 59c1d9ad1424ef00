#include "search/TransactionTexts.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/FoldedText.h"
#include "base/MoneySum.h"

namespace clb {
namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

/// The place of the field's text among the texts of a row; nothing if it is not one of them.
std::optional<std::size_t> PlaceOf(SearchField field)
{
    switch (field) {
        case SearchField::Description: return 0;
        case SearchField::Notes: return 1;
        case SearchField::CheckNumber: return 2;
        default: return std::nullopt;
    }
}

/// Whether a number is in a range that includes both ends, with one comparison.
class Within {
public:
    Within(std::int64_t least, std::int64_t most)
        : least_(static_cast<std::uint64_t>(least)),
          width_(static_cast<std::uint64_t>(most) - least_)
    {
    }
    bool operator()(std::int64_t number) const
    {
        return static_cast<std::uint64_t>(number) - least_ <= width_;
    }

private:
    std::uint64_t least_;
    std::uint64_t width_;
};

/// Adds the rows whose text, of those that repeat, has the word.
void AddRepeated(RowBits& rows, const RepeatedTexts& texts,
                 const std::vector<std::uint32_t>& textOf, std::string_view word)
{
    const std::vector<std::uint8_t> with = texts.With(word);
    if (!with.empty())
        rows.AddWhere(
            [&](std::size_t row) { return textOf[row] < with.size() && with[textOf[row]] != 0; });
}

}  // namespace

/// Looks for a word in the texts of the rows.
class TransactionTexts::Scan {
public:
    Scan(const TransactionTexts& texts, std::string_view word, std::optional<std::size_t> place)
        : texts_(texts), word_(word), place_(place)
    {
    }

    /// Looks at all rows together.
    void All(RowBits& found) const
    {
        const std::vector<std::size_t>& ends = texts_.ends_;
        const std::size_t end = texts_.texts_.size();
        std::size_t row = 0;
        for (std::size_t at = Next(0, end); at != kNone;) {
            while (ends[row] <= at)
                ++row;
            const bool here = IsPlace(row, at);
            if (here)
                found.Add(row);
            at = Next(here ? ends[row] : at + 1, end);
        }
    }

    /// Looks at some rows, one by one.
    void Among(const RowBits& rows, RowBits& found) const
    {
        rows.ForEach([&](std::size_t row) {
            const std::size_t end = texts_.ends_[row];
            for (std::size_t at = Next(Begin(row), end); at != kNone; at = Next(at + 1, end))
                if (IsPlace(row, at))
                    return found.Add(row);
        });
    }

private:
    [[nodiscard]] std::size_t Begin(std::size_t row) const
    {
        return row == 0 ? 0 : texts_.ends_[row - 1];
    }
    /// Where the word is found from a place on, or kNone.
    [[nodiscard]] std::size_t Next(std::size_t from, std::size_t end) const
    {
        const char* const text = texts_.texts_.data();
        const void* const found = word_.size() == 1
                                      ? std::memchr(text + from, word_.front(), end - from)
                                      : memmem(text + from, end - from, word_.data(), word_.size());
        return found == nullptr ? kNone
                                : static_cast<std::size_t>(static_cast<const char*>(found) - text);
    }
    /// Whether a place in the texts of a row is in the sought one of them.
    [[nodiscard]] bool IsPlace(std::size_t row, std::size_t at) const
    {
        if (!place_)
            return true;
        const char* const text = texts_.texts_.data();
        return static_cast<std::size_t>(std::count(text + Begin(row), text + at, kDivider)) ==
               *place_;
    }

    const TransactionTexts& texts_;
    std::string_view word_;
    std::optional<std::size_t> place_;
};

void TransactionTexts::Reserve(std::size_t rows)
{
    constexpr std::size_t kUsualText = 96;  // memory that is not written takes no room
    texts_.reserve(rows * kUsualText);
    ends_.reserve(rows);
    identities_.reserve(rows);
    amounts_.reserve(rows);
    days_.reserve(rows);
    sequences_.reserve(rows);
    pieces_.reserve(rows);
    accountOf_.reserve(rows);
    categoryOf_.reserve(rows);
}

void TransactionTexts::Add(const SearchedRow& row)
{
    const std::size_t number = identities_.size();
    if (inOrder_ == number && (number == 0 || identities_.back() < row.identity))
        ++inOrder_;
    else
        others_[row.identity] = number;
    for (const std::string_view text : {row.description, row.notes, row.checkNumber}) {
        AppendFolded(texts_, text);
        texts_ += kDivider;
    }
    ends_.push_back(texts_.size());
    identities_.push_back(row.identity);
    amounts_.push_back(row.amount.value_or(0));
    days_.push_back(row.day.value_or(kNoDay));
    sequences_.push_back(row.sequence);
    pieces_.push_back(row.piece);
    accountOf_.push_back(row.account ? accounts_.NumberOf(*row.account, RepeatedTexts::Named::No)
                                     : kNoAccount);
    categoryOf_.push_back(categories_.NumberOf(row.category, RepeatedTexts::Named::Itself));
    for (RowBits* const bits : {&present_, &withAmount_, &wrongAmount_})
        bits->Grow(number + 1);
    present_.Add(number);
    if (row.amount)
        withAmount_.Add(number);
    if (row.wrongAmount)
        wrongAmount_.Add(number);
}

std::size_t TransactionTexts::RowOf(std::int64_t identity) const
{
    if (const auto other = others_.find(identity); other != others_.end())
        return other->second;
    const auto end = identities_.begin() + static_cast<std::ptrdiff_t>(inOrder_);
    const auto found = std::lower_bound(identities_.begin(), end, identity);
    return found == end || *found != identity
               ? kNone
               : static_cast<std::size_t>(found - identities_.begin());
}

void TransactionTexts::Remove(std::int64_t identity)
{
    const std::size_t row = RowOf(identity);
    if (row == kNone || !present_.Has(row))
        return;
    present_.Remove(row);
    ++removed_;
}

void TransactionTexts::NameAccounts(
    const std::vector<std::pair<std::string, std::string>>& accounts)
{
    accounts_.ClearNames();
    for (const auto& [number, name] : accounts)
        accounts_.Name(number, name);
}

RowBits TransactionTexts::WithWord(std::string_view word, SearchField field,
                                   const RowBits* among) const
{
    constexpr std::size_t kFew = 4;  // looking at a row by itself costs as much as at some together
    RowBits found(Rows());
    const std::optional<std::size_t> place = PlaceOf(field);
    if (place || field == SearchField::Any) {
        const Scan scan(*this, word, place);
        if (among != nullptr && among->Count() < Rows() / kFew)
            scan.Among(*among, found);
        else
            scan.All(found);
    }
    if (field == SearchField::Any || field == SearchField::Category)
        AddRepeated(found, categories_, categoryOf_, word);
    if (field == SearchField::Any || field == SearchField::Account)
        AddRepeated(found, accounts_, accountOf_, word);
    return found;
}

RowBits TransactionTexts::WithAmount(const std::vector<AmountRange>& ranges) const
{
    RowBits found(Rows());
    for (const auto& [least, most] : ranges)
        found.AddWhere([this, within = Within(least, most)](std::size_t row) {
            return within(amounts_[row]);
        });
    found &= withAmount_;
    return found;
}

RowBits TransactionTexts::WithDay(const DayRange& days) const
{
    RowBits found(Rows());
    const Within within(std::max(days.first, kNoDay + 1), days.last);
    found.AddWhere([this, within](std::size_t row) { return within(days_[row]); });
    return found;
}

std::optional<Money> TransactionTexts::SumOf(const RowBits& rows) const
{
    RowBits wrong = rows;
    wrong &= wrongAmount_;
    if (wrong.Count() != 0)
        return std::nullopt;
    MoneySum sum;
    rows.ForEach([&](std::size_t row) { sum += Money::FromScaled(amounts_[row]); });
    return sum.TotalIfItFits();
}

}  // namespace clb
