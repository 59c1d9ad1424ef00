// The greeting of a fresh book.
#pragma once
#include "app/EmptyHint.h"

namespace clb {

class clsDatabase;

/// Whether the book has neither accounts nor transactions. False if it cannot be read.
[[nodiscard]] bool IsFresh(clsDatabase& data);
/// The three ways to begin: import a statement, make an account, look at the demonstration.
[[nodiscard]] EmptyHint Greeting();

}  // namespace clb
