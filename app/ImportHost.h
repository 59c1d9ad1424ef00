// The main window as the import uses it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "import/IImportHost.h"
#include "import/frmSelectAccount.h"

namespace clb {

class frmController;

class ImportHost : public IImportHost {
public:
    /// Borrows the window, which outlives it.
    explicit ImportHost(frmController& window) : window_(window) {}

    /// What the dialog for an unknown account shows at first, the next time that it is asked.
    void Propose(AccountProposal proposal) { proposal_ = std::move(proposal); }

    std::string AskForFile(std::int32_t flags, const std::string& filter) override;
    [[nodiscard]] std::string StatusText() const override;
    void StatusText(const std::string& text) override;
    void Repaint() override;
    void WindowEnabled(bool enabled) override;
    void Pointer(std::int32_t code) override;
    bool CheckImportAccount(std::string& accountID) override;
    std::string KeepFormerFile() override;
    /// Shows the progress. Throws Interrupted if the program was asked to end.
    void ImportProgress(std::size_t part, std::size_t whole) override;

private:
    bool AskForAccount(std::string& accountID);
    bool HasAccount(const std::string& accountID);
    bool StillHasAccount(const std::string& accountID);

    frmController& window_;
    AccountProposal proposal_;
};

}  // namespace clb
