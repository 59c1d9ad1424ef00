// The interface of the program under automation for the crash tests.
#pragma once
#include <string>

#include "json/ValueJson.h"

namespace clb {

/// The whole program, driven by requests, in whatever process it runs.
class DrivenProgram {
public:
    virtual ~DrivenProgram() = default;
    /// The line that it prints after loading, or the reason why it could not load.
    virtual Json FirstLine() = 0;
    /// Sends one request and returns its reply. Throws std::runtime_error if the program has ended.
    virtual Json Ask(const Json& request) = 0;
};

/// What the program shows in all of its views in March 2006: the tree, and caption, totals and rows
/// for each of its nodes. Replies that are errors are included.
std::string PortraitOf(DrivenProgram& program);

/// Whether the main window takes requests; a failed import leaves it disabled.
bool IsEnabled(DrivenProgram& program);

}  // namespace clb
