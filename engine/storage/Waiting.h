#pragma once

struct sqlite3;

namespace clb {

/// Lets the storage wait for another program's lock, for as long as an import of some hundred
/// thousand rows may take, and lets it break off when the program is told to end.
void WaitForOthers(sqlite3* database);
/// Lets long statements be broken off when the program is told to end.
void WatchInterruption(sqlite3* database);

}  // namespace clb
