// What another program has done to a row that is no longer shown.
#pragma once
#include <string>

#include "controls/GridSpot.h"

namespace clb {

class clsDatabase;
class clsView;

/// Describes what another program has done to a row that the view showed and no longer shows, as
/// the middle of a sentence after "Another program has": "deleted row 3", "moved row 3 to another
/// month". A stored row with another number may or may not be the same one, and is described so.
/// `row` names the row: "row 3", "the current row". Traces no statement. Throws EngineError.
[[nodiscard]] std::string FateOf(const GridSpot& spot, const std::string& row,
                                 clsDatabase& database, const clsView& view);

}  // namespace clb
