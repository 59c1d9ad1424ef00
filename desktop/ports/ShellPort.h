#pragma once
#include "ports/IShell.h"

namespace clb {

/// The desktop's default browser and viewers.
class ShellPort : public IShell {
public:
    void Open(const std::string& address) override;
    /// Opens the file; when there is none of that name, index.html beside it.
    void Help(const std::string& file) override;
};

}  // namespace clb
