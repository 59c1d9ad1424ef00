// The tables in which the program keeps its own books beside the user's.
#pragma once
#include <string_view>

namespace clb {

/// Whether the table holds only what the program notes for itself: balances that did not fit
/// (CvBalance), files that were imported (CvImport) and shapes of files (CvFormat). Nobody sees
/// these rows as content of the book. Changes of nothing else are no step of the history.
///
/// Such changes can therefore lie between a step and its undoing. A row of these tables that is
/// no longer what the step left is then left as it is: it says something newer than the step does.
[[nodiscard]] bool IsBookkeeping(std::string_view table);

}  // namespace clb
