// Says which prices the last update of quotes has changed.
#pragma once
#include <cstdint>
#include <optional>

#include "quotes/UpdateQuotes.h"

namespace clb {

class frmController;

/// Says in the status bar how many prices the last update has changed, and lists them when the user
/// asks for it. The notice goes with the next change of the book, by whatever program.
class QuoteResult {
public:
    /// Borrows the window, which outlives it.
    explicit QuoteResult(frmController& window) : window_(window) {}

    /// Says what an update has stored. The command has settled. Throws EngineError.
    void Say(QuoteOutcome outcome);
    /// Shows the new prices in the grid, and lists what the last update has changed. Says so if
    /// nothing was updated yet. The grid's row is not in edit.
    void Show();
    /// Takes the notice away if it no longer fits the book. Called after each command. Throws
    /// EngineError.
    void Follow();

private:
    [[nodiscard]] std::int64_t NewestStep() const;

    frmController& window_;
    std::optional<QuoteOutcome> outcome_;
    bool shown_ = false;
    std::int64_t shownAt_ = 0;  ///< number of the newest step then
};

}  // namespace clb
