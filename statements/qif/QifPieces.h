// The parts of a split QIF record.
#pragma once
#include <vector>

#include "statements/form/Statement.h"
#include "statements/form/StatementReader.h"
#include "statements/qif/QifSurvey.h"

namespace clb {

/// Sets the pieces of a row that has its amount. A piece has its own amount or a percentage of the
/// row's. They sum to it: what they lack goes into the piece without an amount, else into one
/// without a category. If they sum to the amount with the other sign, their signs are turned. A
/// single piece only gives the row its category and text. Returns false and sets none if several
/// have no amount that can be read or held exactly.
bool SetPieces(const std::vector<QifPiece>& written, const FileAmounts& amounts,
               std::optional<char> decimal, StatementRow& row);

}  // namespace clb
