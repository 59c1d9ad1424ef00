// Generates statement files for random sessions.
#pragma once
#include <random>
#include <string>

namespace clb {

/// An OFX statement of an account with this many transactions, not in the order of their dates.
std::string OfxText(const std::string& account, std::mt19937& random, int transactions);

/// A QIF file with this many transactions and a list of categories.
std::string QifText(std::mt19937& random, int transactions);

}  // namespace clb
