// The household that "clb demo" makes.
#pragma once
#include <string>

#include "base/Date.h"

namespace clb {

/// Fills a fresh program folder with the books of a small household: accounts of all five types,
/// two years of transactions up to today, and a budget for every month. The same day always gives
/// the same household.
void MakeDemoHousehold(const std::string& folder, const Date& today);

}  // namespace clb
