#pragma once
#include <string>
#include <utility>
#include <vector>

#include "controls/Event.h"

namespace clb {

/// What the window tells the user in its status bar's second panel until it is settled: at most one
/// notice of each kind.
class Notices {
public:
    /// Sets the notice of a kind ("backup"), a sentence or two; an empty text removes it. One that
    /// is there keeps its place.
    void Set(const std::string& kind, const std::string& text);
    /// All notices, one a line, in the order in which they came; empty when there is none.
    [[nodiscard]] std::string Text() const;
    /// Raised when Text() has become another one.
    Event<void()> Changed() { return changed_; }

private:
    std::vector<std::pair<std::string, std::string>> notices_;
    sigc::signal<void()> changed_;
};

}  // namespace clb
