#pragma once
#include <string>

namespace clb {

/// The desktop around the program: its web browser and its help viewer.
class IShell {
public:
    virtual ~IShell() = default;
    /// Opens a web address in the default browser; nothing else is opened. Failures are not
    /// reported.
    virtual void Open(const std::string& address) = 0;
    /// Opens a help file at its first page. Failures are not reported.
    virtual void Help(const std::string& file) = 0;
};

}  // namespace clb
