#include "cli/Piece.h"

#include "base/RuntimeError.h"
#include "cli/Program.h"
#include "data/ViewColumns.h"

namespace clb {
namespace {

RuntimeError NotFound(const std::string& text)
{
    return {errors::ElementNotFound, text};
}

std::string NameOf(const PieceOptions& options)
{
    const std::string name = "transaction " + std::to_string(options.number);
    return options.piece ? name + ", piece " + std::to_string(*options.piece) : name;
}

/// The rows of the transaction, or of its named piece. The first is the piece to show.
Recordset Find(clsDatabase& data, const PieceOptions& options)
{
    Recordset found;
    data.Fill(found,
              "SELECT SubSequence, AccountID, Year, Period FROM Trans WHERE Sequence = " +
                  std::to_string(options.number) +
                  (options.piece ? " AND SubSequence = " + std::to_string(*options.piece) : "") +
                  " ORDER BY SubSequence",
              true);
    if (found.Empty())
        throw NotFound("There is no " + NameOf(options) + ".");
    return found;
}

/// The piece's row in the register as displayed. Returns 0 if it is not there.
std::size_t RowOf(CVGrid& grid, const Piece& piece)
{
    for (std::size_t row = 1; row <= grid.Rows().Count(); ++row)
        if (grid.Rows().Kind(row) == GridRowKind::Data &&
            ToLong(grid.Rows().Stored(row, Register::Sequence)) == piece.number &&
            ToLong(grid.Rows().Stored(row, Register::SubSequence)) == piece.piece)
            return row;
    return 0;
}

}  // namespace

void AddPiece(Command& command, PieceOptions& options)
{
    command
        .Take("NUMBER", options.number,
              "Number of the transaction, as register --numbers prints it")
        .Required();
    command.Take("--piece", options.piece,
                 "Piece of a transaction that was split (default: the first)");
}

Piece ShowPiece(Program& program, const PieceOptions& options)
{
    frmController& window = program.Window();
    window.Data().Lock();
    const Recordset found = Find(window.Data(), options);
    const Piece piece{options.number,
                      ToLong(found.Get("SubSequence")),
                      {ToLong(found.Get("Year")), ToLong(found.Get("Period"))}};
    const FoundAccount account = FindAccount(window.Data(), ToText(found.Get("AccountID")));
    program.ChooseMonth(piece.month);
    program.PressAccount(account);
    const std::size_t row = window.View().Definition().transactions ? RowOf(window.Grid, piece) : 0;
    if (row == 0)
        throw NotFound("The account " + account.description + " has no register.");
    window.window.Focus(window.Grid);
    window.Grid.MoveTo(row, kFirstColumn);
    return piece;
}

}  // namespace clb
