#pragma once
#include <string>

namespace clb {

/// Shows an HTML file as it will look on paper, with the system's print dialog behind its print
/// button. With a name for `pdf` it is written there instead, without asking. Returns the exit
/// code; what went wrong is told in a message box, or on standard error where nothing is asked.
int PrintDocument(const std::string& file, const std::string& pdf);

}  // namespace clb
