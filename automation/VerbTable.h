// The verbs of requests.
#pragma once
#include <map>
#include <string_view>

#include "automation/Verbs.h"

namespace clb {

/// A verb of a request. A user's verb does what a person does with mouse and keys; the main window
/// refuses it while it is disabled.
struct Verb {
    Json (*perform)(Session&, const Request&);
    bool users = false;
    bool onCurrentRow = false;  ///< a user's verb that changes the grid's current row
};
using VerbTable = std::map<std::string_view, Verb>;

/// Work in the main window: tree, focus, month, menus, toolbar, size.
const VerbTable& WindowVerbs();
/// Work in the grid.
const VerbTable& GridVerbs();
/// What a driver does and a user does not: state, answers, log, SQL, calls.
const VerbTable& SessionVerbs();

}  // namespace clb
