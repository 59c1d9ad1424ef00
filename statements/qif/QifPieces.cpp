#include "statements/qif/QifPieces.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace clb {
namespace {

Money SumOf(const std::vector<StatementPiece>& pieces)
{
    Money sum;
    for (const StatementPiece& piece : pieces)
        sum += piece.amount;
    return sum;
}

/// So many percent of an amount, such as "60" or "12.5%". Nothing if it is not exact to the cent.
std::optional<Money> PercentOf(Money amount, std::string percent)
{
    if (percent.ends_with('%'))
        percent.pop_back();
    std::replace(percent.begin(), percent.end(), ',', '.');
    const bool plain = percent.find_first_not_of("0123456789.") == std::string::npos;
    // More decimals would be rounded.
    const bool held =
        percent.size() <= 8 && percent.size() - std::min(percent.find('.'), percent.size()) <= 5;
    const auto rate = plain && held ? Money::TryParse(percent) : std::nullopt;
    constexpr std::int64_t kHundred = 1'000'000;  // percent, scaled
    constexpr std::int64_t kCent = 100;           // scaled
    constexpr std::int64_t kLargest = 1'000'000'000'000;
    if (!rate || rate->Scaled() > kHundred || amount.Scaled() > kLargest ||
        amount.Scaled() < -kLargest)
        return {};
    const std::int64_t product = amount.Scaled() * rate->Scaled();
    if (product % (kHundred * kCent) != 0)
        return {};
    return Money::FromScaled(product / kHundred);
}

/// Makes the pieces sum to the row's amount. Throws if that is out of range.
void Balance(StatementRow& row, StatementPiece* open)
{
    const Money sum = SumOf(row.pieces);
    if (sum == row.amount)
        return;
    if (open == nullptr && sum == -row.amount) {
        for (StatementPiece& piece : row.pieces)
            piece.amount = -piece.amount;
        return;
    }
    const Money rest = row.amount - sum;
    if (open == nullptr)
        row.pieces.push_back({rest, {}, {}});
    else
        open->amount = rest;
}

}  // namespace

bool SetPieces(const std::vector<QifPiece>& written, const FileAmounts& amounts,
               std::optional<char> decimal, StatementRow& row)
{
    if (written.empty())
        return true;
    if (written.size() == 1) {
        if (row.category.empty())
            row.category = written.front().category;
        if (row.text.empty())
            row.text = written.front().memo;
        return true;
    }
    std::size_t open = written.size();
    for (const QifPiece& piece : written) {
        const auto amount = piece.amount.empty() && !piece.percent.empty()
                                ? PercentOf(row.amount, piece.percent)
                                : amounts.Read(piece.amount, decimal);
        if (!amount && open < written.size()) {
            row.pieces.clear();
            return false;
        }
        if (!amount)
            open = row.pieces.size();
        row.pieces.push_back({amount.value_or(Money()), piece.category, piece.memo});
    }
    try {
        Balance(row, open < row.pieces.size() ? &row.pieces[open] : nullptr);
        (void)SumOf(row.pieces);
    } catch (const RuntimeError&) {
        // A sum of the pieces is out of range, so they say nothing.
        row.pieces.clear();
        return false;
    }
    return true;
}

}  // namespace clb
