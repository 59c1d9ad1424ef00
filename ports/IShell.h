// The web browser and the help viewer.
#pragma once
#include <string>

namespace clb {

/// The desktop's web browser and help viewer.
class IShell {
public:
    virtual ~IShell() = default;
    /// Opens a web address in the default browser, and no other address. Throws nothing: where the
    /// address cannot be opened, the window says so.
    virtual void Open(const std::string& address) = 0;
    /// Opens a help file at its first page. Throws nothing: where that cannot be read, the window
    /// says so.
    virtual void Help(const std::string& file) = 0;
};

}  // namespace clb
