#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace clb {

/// The main window, as the import sees it.
class IImportHost {
public:
    virtual ~IImportHost() = default;
    /// Asks for a statement file; empty when the user cancels. flags and filter as the file dialog
    /// takes them.
    virtual std::string AskForFile(std::int32_t flags, const std::string& filter) = 0;
    /// First panel of the status bar.
    [[nodiscard]] virtual std::string StatusText() const = 0;
    virtual void StatusText(const std::string& text) = 0;
    /// Draws at once what has changed.
    virtual void Repaint() = 0;
    virtual void WindowEnabled(bool enabled) = 0;
    virtual void Pointer(std::int32_t code) = 0;
    /// Whether the rows may go into the account. An unknown or empty identifier is asked for; an
    /// empty one comes back as the chosen account's. False when the user cancels. The book is
    /// locked when it returns true, so that the account stays what it was found to be.
    virtual bool CheckImportAccount(std::string& accountID) = 0;
    /// Balances do not fit their rows and will be stored anew: the last moment to keep the file as
    /// it is. Returns the path of the copy, or empty when none is to be made. Throws EngineError.
    virtual std::string KeepFormerFile() { return {}; }
    /// So much of the whole file is read; told for every row.
    virtual void ImportProgress(std::size_t part, std::size_t whole) = 0;
};

}  // namespace clb
