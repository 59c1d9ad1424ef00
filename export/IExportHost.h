// What the export needs of the main window.
#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// The main window as the export uses it.
class IExportHost {
public:
    virtual ~IExportHost() = default;
    /// Asks for the path of the file to write. Returns an empty path if the user cancels. flags,
    /// filter and title are those of the file dialog.
    virtual std::string AskForSaveFile(std::int32_t flags, const std::string& filter,
                                       const std::string& title) = 0;
};

}  // namespace clb
