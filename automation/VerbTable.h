#pragma once
#include "automation/Verbs.h"

#include <map>
#include <string_view>

namespace clb {

/// A verb of the interface. A user's verb is what a person does with mouse and keys: the disabled
/// main window refuses it.
struct Verb {
    Json (*perform)(Session&, const Request&);
    bool users = false;
    bool onCurrentRow = false;  ///< a user's verb that works on the grid's current row
};
using VerbTable = std::map<std::string_view, Verb>;

/// Work in the main window: tree, focus, month, menus, toolbar, size.
const VerbTable& WindowVerbs();
/// Work in the grid.
const VerbTable& GridVerbs();
/// The interface's own: state, answers, log, statements, calls.
const VerbTable& SessionVerbs();

}  // namespace clb
