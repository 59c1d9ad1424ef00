#pragma once
#include "base/Date.h"
#include "cli/CommandLine.h"

#include <cstdint>
#include <optional>

namespace clb {

class Program;

/// A transaction by its number, and one of its pieces; nothing means the first there is.
struct PieceOptions {
    std::int32_t number = 0;
    std::optional<std::int32_t> piece;
};

/// NUMBER and --piece.
void AddPiece(Command& command, PieceOptions& options);

/// A piece that was found.
struct Piece {
    std::int32_t number = 0;
    std::int32_t piece = 0;
    Month month;
};

/// Shows the piece in its account's register of its month, makes it the current row and gives the
/// grid the focus. Throws RuntimeError (ElementNotFound) when there is no such piece or its account
/// has no register.
Piece ShowPiece(Program& program, const PieceOptions& options);

}  // namespace clb
