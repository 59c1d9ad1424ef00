// The progress of a long piece of work.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "controls/Event.h"

namespace clb {

/// How far a long piece of work is, shown as a bar with a short text.
class WorkProgress {
public:
    /// A piece of work, for its own lifetime. Work that begins within another piece belongs to that
    /// one.
    class Work {
    public:
        explicit Work(WorkProgress& progress);
        ~Work();
        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;

    private:
        WorkProgress& progress_;
    };

    /// Whether there is something to show: true from the first step of the work to its end.
    [[nodiscard]] bool Active() const { return active_; }
    /// What is being done; empty if the bar needs no text.
    [[nodiscard]] const std::string& Text() const { return text_; }
    /// How much of the work is done, 0 to 1000; nothing while that is unknown.
    [[nodiscard]] std::optional<std::int32_t> Permille() const { return permille_; }

    /// Reports that `part` of `whole` is done; a whole of 0 means that it is unknown. Cheap enough
    /// to call for every row. Does nothing outside of work.
    void Step(std::size_t part, std::size_t whole, const std::string& text = "");
    /// Raised at every step and when the work has ended.
    Event<void()> Changed() { return changed_; }

private:
    int works_ = 0;
    bool active_ = false;
    std::string text_;
    std::optional<std::int32_t> permille_;
    sigc::signal<void()> changed_;
};

}  // namespace clb
