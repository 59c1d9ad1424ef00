// Copying a month's budget to another month.
#pragma once
#include "base/Date.h"

namespace clb {

class clsDatabase;

/// Makes the month `to` hold the categories, groups and amounts of the month `from`, and "(none)".
/// Transactions of categories that go become "(none)". An empty month `from` changes nothing.
/// Throws EngineError, with nothing changed, if a category that goes has a single quote in it.
void CopyBudgetLines(clsDatabase& store, Month from, Month to);

}  // namespace clb
