#include "engine/storage/Waiting.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

#include "base/Interruption.h"

namespace clb {
namespace {

constexpr int kLongestMilliseconds = 10000;
constexpr int kPauses[] = {1, 2, 5, 10, 15, 20, 25, 25, 25, 50, 50, 100};
constexpr int kInstructions = 10000;  // of a query, between two checks

/// Lengths of the first pauses, in milliseconds.
int PassedAfter(int count)
{
    const int listed = static_cast<int>(std::size(kPauses));
    int passed = std::max(0, count - listed) * kPauses[listed - 1];
    for (int n = 0; n < std::min(count, listed); ++n)
        passed += kPauses[n];
    return passed;
}

/// Returns 0 to stop waiting.
int Wait(void*, int count)
{
    if (Interruption::Asked() || PassedAfter(count) >= kLongestMilliseconds)
        return 0;
    sqlite3_sleep(kPauses[std::min(count, static_cast<int>(std::size(kPauses)) - 1)]);
    return 1;
}

int BreaksOff(void*)
{
    return Interruption::BreaksQueries() ? 1 : 0;
}

}  // namespace

void WaitForOthers(sqlite3* database)
{
    sqlite3_busy_handler(database, &Wait, nullptr);
}

void WatchInterruption(sqlite3* database)
{
    sqlite3_progress_handler(database, kInstructions, &BreaksOff, nullptr);
}

}  // namespace clb
