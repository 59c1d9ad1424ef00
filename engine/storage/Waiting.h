// Waiting for locks, and stopping when the program has been told to end.
#pragma once

struct sqlite3;

namespace clb {

/// Makes the storage wait for another program's lock, as long as an import of some hundred thousand
/// rows may take. The wait ends early if the program has been told to end.
void WaitForOthers(sqlite3* database);
/// Makes long queries stop if the program has been told to end.
void WatchInterruption(sqlite3* database);

}  // namespace clb
