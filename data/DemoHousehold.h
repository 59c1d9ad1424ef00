// The household of the demonstration.
#pragma once
#include <string>

#include "base/Date.h"

namespace clb {

/// Fills a fresh program folder with the books of a small household: accounts of all five types,
/// two years of transactions up to today, and a budget for every month. The same day always gives
/// the same household.
void MakeDemoHousehold(const std::string& folder, const Date& today);

/// Returns the bytes of the household's database. It is made in a temporary folder, so that the
/// folder it is for gets all of it or nothing. Throws FileError and EngineError.
[[nodiscard]] std::string DemoDatabase(const Date& today);

}  // namespace clb
