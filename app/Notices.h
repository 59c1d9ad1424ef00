// The notices in the status bar.
#pragma once
#include <string>
#include <vector>

#include "controls/Event.h"

namespace clb {

/// The notices that the status bar's second panel shows until they are settled. There is at most
/// one of each kind.
class Notices {
public:
    /// Sets the notice of a kind, such as "backup", to a sentence or two. An empty text removes it.
    /// A notice that is there already keeps its place.
    void Set(const std::string& kind, const std::string& text) { Put({kind, text, true}); }
    /// The same for a text that is for information only, such as a sum.
    void Inform(const std::string& kind, const std::string& text) { Put({kind, text, false}); }
    /// All notices, one on each line, in the order in which they were set first.
    [[nodiscard]] std::string Text() const;
    /// Whether one of them is more than information.
    [[nodiscard]] bool Warns() const;
    /// Raised when Text() has changed.
    Event<void()> Changed() { return changed_; }

private:
    struct Notice {
        std::string kind;
        std::string text;
        bool warns;
    };
    void Put(const Notice& notice);

    std::vector<Notice> notices_;
    sigc::signal<void()> changed_;
};

}  // namespace clb
