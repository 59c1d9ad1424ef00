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
    std::array<std::size_t, static_cast<std::size_t>(Deed::Count)> deeds = {};
    std::size_t comparisons = 0;
};

/// Does the actions in the program and in the model, both from the start, and compares after each
/// everything that is shown and every row of every table. A Look shows every node of the tree in
/// turn and compares each; the other actions leave the view alone, because walking through the
/// views would end the unsaved row, the place in the grid and the rows as they were read, which is
/// where differences hide. One more Look ends each run.
std::optional<Difference> Replay(const std::vector<Action>& actions, Flaw flaw = Flaw::None,
                                 Tally* tally = nullptr);

/// A run of random actions; nothing when all is alike, else the shortest sequence found, in words,
/// with the difference.
std::optional<std::string> RunSeed(std::uint64_t seed, std::size_t count, Flaw flaw = Flaw::None,
                                   Tally* tally = nullptr);

}  // namespace clb::model
