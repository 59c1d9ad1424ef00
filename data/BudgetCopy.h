// Copying a month's budget to another month.
#pragma once
#include "base/Date.h"

namespace clb {

class clsDatabase;

/// Makes the month `to` hold the categories, groups and amounts of the month `from`, and "(none)".
/// Transactions of removed categories become "(none)". An empty month `from` changes nothing.
/// Throws EngineError, with nothing changed, if a removed category has a single quote in its name.
void CopyBudgetLines(clsDatabase& store, Month from, Month to);

}  // namespace clb
