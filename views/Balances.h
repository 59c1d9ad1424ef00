#pragma once

namespace clb {

class clsDatabase;

/// Stores the balance of every account anew, each from its own rows. Throws EngineError.
void UpdateBalances(clsDatabase& database);

}  // namespace clb
