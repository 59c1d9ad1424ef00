// Finds a piece of a transaction for "clb split" and "clb move".
#pragma once
#include <cstdint>
#include <optional>

#include "base/Date.h"
#include "cli/CommandLine.h"

namespace clb {

class Program;

/// A transaction by its number, and one of its pieces. The default is the first piece.
struct PieceOptions {
    std::int32_t number = 0;
    std::optional<std::int32_t> piece;
};

/// Adds NUMBER and --piece.
void AddPiece(Command& command, PieceOptions& options);

/// A piece that was found.
struct Piece {
    std::int32_t number = 0;
    std::int32_t piece = 0;
    Month month;
};

/// Shows the register of the piece's account and month, makes the piece the current row and gives
/// the grid the focus. Throws RuntimeError (ElementNotFound) if there is no such piece or its
/// account has no register.
Piece ShowPiece(Program& program, const PieceOptions& options);

}  // namespace clb
