// Shows and prints an HTML document.
#pragma once
#include <string>

namespace clb {

/// Shows an HTML file as it will look on paper; the print button opens the system's print dialog.
/// If `pdf` names a file, writes that file instead, without asking. Returns the exit code. Reports
/// errors in a message box, or on standard error if `pdf` is given.
int PrintDocument(const std::string& file, const std::string& pdf);

}  // namespace clb
