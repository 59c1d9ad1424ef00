// What the import needs of the main window.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace clb {

/// The main window as the import uses it.
class IImportHost {
public:
    virtual ~IImportHost() = default;
    /// Asks for a statement file. Returns an empty path if the user cancels. flags and filter are
    /// those of the file dialog.
    virtual std::string AskForFile(std::int32_t flags, const std::string& filter) = 0;
    /// First panel of the status bar.
    [[nodiscard]] virtual std::string StatusText() const = 0;
    virtual void StatusText(const std::string& text) = 0;
    /// Draws what has changed at once.
    virtual void Repaint() = 0;
    virtual void WindowEnabled(bool enabled) = 0;
    virtual void Pointer(std::int32_t code) = 0;
    /// Returns whether rows may be added to the account. If the identifier is unknown or empty,
    /// asks the user for an account; an empty identifier is set to that of the chosen account.
    /// Returns false if the user cancels. If it returns true, the book is locked, so that no other
    /// program can change the account.
    virtual bool CheckImportAccount(std::string& accountID) = 0;
    /// Called before balances that do not fit their rows are computed again. Copies the database
    /// file as it is now. Returns the path of the copy, or an empty path if no copies are to be
    /// made. Throws EngineError.
    virtual std::string KeepFormerFile() { return {}; }
    /// Called for every row: `part` of `whole` bytes have been read.
    virtual void ImportProgress(std::size_t part, std::size_t whole) = 0;
};

}  // namespace clb
