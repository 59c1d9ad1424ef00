// Says in the result bar what a command has done.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/ResultBar.h"
#include "history/History.h"

namespace clb {

class frmController;

/// Says in the result bar what a command has done, and offers the reverse or more there. The bar
/// goes with the next change of the book, by whatever program, and when another place is shown.
class StepResult {
public:
    /// Borrows the window, which outlives it.
    explicit StepResult(frmController& window) : window_(window) {}

    /// Says what was undone or redone, if the window shows results. The steps are at least one.
    /// Throws EngineError.
    void Show(const HistoryOutcome& outcome, bool undone);
    /// Says why nothing was undone or redone, and offers to do now what comes next, if there is
    /// something. Returns false if the window shows no results. Throws EngineError.
    bool ShowRefusal(const std::string& why, bool undo);
    /// Says what another command has done, if the window shows results. The command has settled.
    /// Throws EngineError.
    void Say(const std::string& text, std::vector<ResultBar::Action> actions);
    /// Says it in the status bar too, where it stays until the book changes. Throws EngineError.
    void Note(const std::string& text);
    /// Closes the bar if what it offers no longer fits the book or the place, and takes the note
    /// away if it no longer fits the book. Called after each command. Throws EngineError.
    void Follow();

private:
    /// The numbers of the next steps to undo and to redo.
    using Steps = std::pair<std::int64_t, std::int64_t>;
    /// What the bar fits.
    struct Situation {
        Steps steps;
        std::string node;  ///< tag and text of what is shown
        std::int32_t year = 0;
        std::int32_t period = 0;
        bool operator==(const Situation&) const = default;
    };
    [[nodiscard]] Steps PresentSteps() const;
    [[nodiscard]] Situation Present() const;
    void Offer(const std::string& text, bool undo, std::int64_t steps);
    [[nodiscard]] std::string Sentence(const HistoryOutcome& outcome, bool undone) const;

    frmController& window_;
    Situation shownAt_;
    std::optional<Steps> notedAt_;
};

}  // namespace clb
