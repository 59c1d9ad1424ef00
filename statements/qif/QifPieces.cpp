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

void SetPieces(const std::vector<QifPiece>& written, const FileAmounts& amounts,
               std::optional<char> decimal, StatementRow& row)
{
    if (written.empty())
        return;
    if (written.size() == 1) {
        if (row.category.empty())
            row.category = written.front().category;
        if (row.text.empty())
            row.text = written.front().memo;
        return;
    }
    std::size_t open = written.size();
    for (const QifPiece& piece : written) {
        const auto amount = amounts.Read(piece.amount, decimal);
        if (!amount)
            open = std::min(open, row.pieces.size());
        row.pieces.push_back({amount.value_or(Money()), piece.category, piece.memo});
    }
    try {
        Balance(row, open < row.pieces.size() ? &row.pieces[open] : nullptr);
        (void)SumOf(row.pieces);
    } catch (const RuntimeError&) {
        // A sum of the pieces is out of range, so they say nothing.
        row.pieces.clear();
    }
}

}  // namespace clb
