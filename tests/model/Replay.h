// Runs actions in the program and in the model, and compares both.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tests/model/Actions.h"
#include "tests/model/ModelBooks.h"

namespace clb::model {

/// Where program and model differ: the number of the action, from 0, and the lines that differ.
struct Difference {
    std::size_t action = 0;
    std::string lines;
};

/// What was done so far, over all runs.
struct Tally {
    struct Deeds {
        std::size_t done = 0;
        std::size_t telling = 0;  ///< actions that changed something shown or stored
    };
    std::array<Deeds, static_cast<std::size_t>(Deed::Count)> deeds = {};
    std::size_t comparisons = 0;
    std::size_t walks = 0;  ///< passes through all views
};

/// Performs the actions in the program and in the model, both from the start. Compares the shown
/// view and every row of every table after each action. Showing all views would end the unsaved
/// row, the place in the grid and the rows as they were read, and differences hide in those. So a
/// second program does that with a copy of the file, every few actions and at the end. A Look does
/// it in the program itself. At the end a copy of the file goes back to the start, and forth again;
/// every cell and every row's identity must be what it was.
std::optional<Difference> Replay(const std::vector<Action>& actions, Flaw flaw = Flaw::None,
                                 Tally* tally = nullptr);

/// Performs random actions. Returns nothing if there is no difference, else the shortest failing
/// sequence found, in words, with the difference.
std::optional<std::string> RunSeed(std::uint64_t seed, std::size_t count, Flaw flaw = Flaw::None,
                                   Tally* tally = nullptr);

}  // namespace clb::model
