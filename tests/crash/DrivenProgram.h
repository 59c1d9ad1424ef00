// The interface of the program under automation for the crash tests.
#pragma once
#include <string>

#include "json/ValueJson.h"

namespace clb {

/// The whole program, driven by requests, wherever it runs.
class DrivenProgram {
public:
    virtual ~DrivenProgram() = default;
    /// The line that it says once it has loaded, or why it has not.
    virtual Json FirstLine() = 0;
    /// One request, one reply. Throws std::runtime_error when the program has ended.
    virtual Json Ask(const Json& request) = 0;
};

/// What the program shows in all of its views in March 2006: the tree, and caption, totals and rows
/// for each of its nodes. Replies that are errors stand in it too.
std::string PortraitOf(DrivenProgram& program);

/// Whether the main window takes requests; a failed import leaves it locked.
bool IsEnabled(DrivenProgram& program);

}  // namespace clb
