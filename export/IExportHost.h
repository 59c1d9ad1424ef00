#pragma once
#include <cstdint>
#include <string>

namespace clb {

/// The main window, as the export sees it.
class IExportHost {
public:
    virtual ~IExportHost() = default;
    /// Asks where to write; empty when the user cancels. flags, filter and title as the file dialog
    /// takes them.
    virtual std::string AskForSaveFile(std::int32_t flags, const std::string& filter,
                                       const std::string& title) = 0;
};

}  // namespace clb
