#pragma once
#include <string>

namespace clb {

/// The system's printing of documents.
class IPrintJob {
public:
    virtual ~IPrintJob() = default;
    /// Shows the system's print dialog for an HTML file and returns when printing has ended. A job
    /// that cannot be waited for is not. Throws PortError when it could not be started.
    virtual void Print(const std::string& file) = 0;
};

}  // namespace clb
