#pragma once
#include <string>

#include "controls/GridSpot.h"

namespace clb {

class clsDatabase;
class IShownState;

/// What another program has done to a row that the view showed and no longer shows, as the middle
/// of a sentence after "Another program has": "deleted row 3", "moved row 3 to another month". Of a
/// row that is stored with another number it cannot be known whether it is the same one. `row`
/// names it: "row 3", "the current row". No statement is traced. Throws EngineError.
std::string FateOf(const GridSpot& spot, const std::string& row, clsDatabase& database,
                   const IShownState& shown);

}  // namespace clb
