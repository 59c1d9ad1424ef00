// Opens pages and files with the desktop's programs.
#pragma once
#include "ports/IShell.h"

namespace clb {

/// Opens addresses and files with the desktop's default browser and viewers.
class ShellPort : public IShell {
public:
    void Open(const std::string& address) override;
    /// Opens the file. If it does not exist, opens index.html in the same folder.
    void Help(const std::string& file) override;
};

}  // namespace clb
