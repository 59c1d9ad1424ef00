#pragma once
#include <exception>
#include <string>

namespace clb {

/// An error for the user's eyes: its own text and, when the database file or another file of the
/// program's is the matter, what to do next.
std::string TroubleText(const std::exception& error);

}  // namespace clb
