// Printing.
#pragma once
#include <string>

namespace clb {

/// The system's printing of documents.
class IPrintJob {
public:
    virtual ~IPrintJob() = default;
    /// Shows the system's print dialog for an HTML file. Returns when printing has ended, if the
    /// system lets a program wait for that. Throws PortError if printing could not be started.
    virtual void Print(const std::string& file) = 0;
};

}  // namespace clb
