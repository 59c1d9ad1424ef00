// Runs actions in the program and in the model, and compares both.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tests/model/Actions.h"
#include "tests/model/ModelBooks.h"

namespace clb::model {

/// Where program and model part: the number of the action, from 0, and the lines that differ.
struct Difference {
    std::size_t action = 0;
    std::string lines;
};

/// What was done so far, over all runs.
struct Tally {
    struct Deeds {
        std::size_t done = 0;
        std::size_t telling = 0;  ///< changed something that is shown or stored
    };
    std::array<Deeds, static_cast<std::size_t>(Deed::Count)> deeds = {};
    std::size_t comparisons = 0;
    std::size_t walks = 0;  ///< through all views
};

/// Does the actions in the program and in the model, both from the start, and compares after each
/// the shown view and every row of every table. Walking through all views would end the unsaved
/// row, the place in the grid and the rows as they were read, which is where differences hide; so
/// that is done every few actions, and at the end, by a second program on a copy of the file. A
/// Look does it in the program itself.
std::optional<Difference> Replay(const std::vector<Action>& actions, Flaw flaw = Flaw::None,
                                 Tally* tally = nullptr);

/// A run of random actions; nothing when all is alike, else the shortest sequence found, in words,
/// with the difference.
std::optional<std::string> RunSeed(std::uint64_t seed, std::size_t count, Flaw flaw = Flaw::None,
                                   Tally* tally = nullptr);

}  // namespace clb::model
