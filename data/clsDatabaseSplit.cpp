// Splitting a transaction into pieces.

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/clsDatabase.h"
#include "engine/EngineError.h"

namespace clb {
namespace {

constexpr std::size_t kDescriptionLength = 50;

/// The number is appended before the cut, so a long description loses the end of it.
std::string PieceDescription(const std::string& description, std::int32_t piece)
{
    return Left(Left(description, kDescriptionLength) + " (split #" + std::to_string(piece) + ")",
                kDescriptionLength);
}

}  // namespace

void clsDatabase::RequireOnePiece(const Recordset& pieces, std::int32_t sequence)
{
    if (pieces.RecordCount() > 1)
        throw RuntimeError(errors::InvalidCall,
                           "Two transactions have the number " + std::to_string(sequence) +
                               ", so it is not clear which one is meant. \"clb check --repair\" "
                               "gives the later one a number of its own.");
}

std::int32_t clsDatabase::NextPiece(const std::string& sequence)
{
    try {
        Recordset next;
        Fill(next,
             "SELECT MAX( SubSequence ) + 1 AS NextSubSequence FROM Trans WHERE Trans.Sequence = " +
                 sequence,
             true);
        return ToLong(next.Get("NextSubSequence"));
    } catch (const EngineError& error) {
        if (error.Number() != engine_errors::Overflow)
            throw;
        throw NumbersUsedUp("No number is left for a new piece of transaction " + sequence +
                            ": one of its pieces has the largest already.");
    }
}

void clsDatabase::SplitTransaction(std::int32_t sequence, std::int32_t subSequence,
                                   Money firstAmount, Money secondAmount)
{
    Lock();
    RequireShownRow();
    const std::int32_t piece = NextPiece(ToText(row_.ColumnValue(11)));

    Recordset split;
    split.Open("SELECT * FROM Trans WHERE Trans.Sequence = " + std::to_string(sequence) +
                   " AND Trans.SubSequence = " + std::to_string(subSequence),
               connection_, CursorKind::Keyset, LockKind::Pessimistic);
    RequireOnePiece(split, sequence);
    split.Set("Amount", firstAmount);
    split.Update();

    Recordset added;
    added.Open("SELECT * FROM Trans WHERE false", connection_, CursorKind::Keyset,
               LockKind::Pessimistic);
    added.AddNew();
    for (std::size_t field = 0; field < split.Fields().size(); ++field)
        added.Set(field, split.Get(field));
    added.Set("Amount", secondAmount);
    added.Set("SubSequence", piece);
    added.Set("Description", PieceDescription(ToText(split.Get("Description")), piece));
    added.Update();
    RequeryRows();
}

}  // namespace clb
