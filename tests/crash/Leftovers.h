// Checks the files that an interrupted program has left.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/crash/Record.h"

namespace clb {

/// Starts the program on a folder.
using Starter = std::function<std::unique_ptr<DrivenProgram>(const std::string& folder)>;

/// What an interrupted program may have left.
struct Allowed {
    MomentPtr before;  ///< what was reported saved
    MomentPtr after;   ///< after the request that was running; equal to `before` if none was
    /// Rows of both may occur together: what ran before an error is kept.
    bool mixture = false;
};

/// Who opens the files first, and so rolls back what is left in a journal.
enum class FirstOpener { Check, Program, Reader };

/// What is wrong with the folder that an interrupted program left: damage, rows, sums, a start that
/// fails, views that do not show what the file holds. Empty if nothing is. The outcome is "before",
/// "after" or "mixture".
std::string WhatIsWrong(const std::string& folder, const Allowed& allowed, FirstOpener first,
                        const Starter& start, std::string& outcome);

}  // namespace clb
