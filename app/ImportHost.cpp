#include "app/ImportHost.h"

#include <filesystem>

#include "app/clsOpenSave.h"
#include "app/frmController.h"
#include "base/Interruption.h"
#include "base/Product.h"
#include "data/Backups.h"

namespace clb {

std::string ImportHost::AskForFile(std::int32_t flags, const std::string& filter)
{
    clsOpenSave dialog(window_.GivenPorts().files);
    dialog.Flags = flags;
    dialog.Filter(filter);
    if (!dialog.GetFileName())
        return {};
    window_.Steps().Begin("Import of " +
                          std::filesystem::path(dialog.FileName).filename().string());
    return dialog.FileName;
}

std::string ImportHost::StatusText() const
{
    return window_.statusBar.Panel(1);
}

void ImportHost::StatusText(const std::string& text)
{
    window_.statusBar.Panel(1, text);
}

void ImportHost::Repaint()
{
    window_.window.Refresh();
}

void ImportHost::WindowEnabled(bool enabled)
{
    window_.window.Enabled(enabled);
}

void ImportHost::Pointer(std::int32_t code)
{
    window_.GivenPorts().pointer.Pointer(code);
}

bool ImportHost::CheckImportAccount(std::string& accountID)
{
    window_.Data().Lock();
    const bool exists = HasAccount(accountID);
    if (!accountID.empty() && exists)
        return true;
    const std::string remembered = StatusText();
    StatusText("Ready");
    Repaint();
    Pointer(pointer::Default);
    const bool chosen = AskForAccount(accountID);
    Pointer(pointer::Hourglass);
    StatusText(remembered);
    Repaint();
    return chosen;
}

bool ImportHost::AskForAccount(std::string& accountID)
{
    const Ports& ports = window_.GivenPorts();
    frmSelectAccount dialog(window_.Data(), window_.View(), window_.TreeView, ports.modal,
                            ports.messages);
    dialog.Propose(std::exchange(proposal_, {}));
    return dialog.ShowDialog(accountID) && StillHasAccount(accountID);
}

bool ImportHost::HasAccount(const std::string& accountID)
{
    return window_.Data().RowExists("Account",
                                    "AccountID = '" + clsDatabase::ToSqlString(accountID) + "'");
}

/// The book was not locked while the user chose.
bool ImportHost::StillHasAccount(const std::string& accountID)
{
    window_.Data().Lock();
    const Connection::Untraced untraced(window_.Data().Database());
    if (HasAccount(accountID))
        return true;
    window_.GivenPorts().messages.Show(
        "Another program has deleted the chosen account meanwhile. Nothing was imported.",
        box_style::Exclamation, product::kTitle);
    return false;
}

std::string ImportHost::KeepFormerFile()
{
    const Ports& ports = window_.GivenPorts();
    return ports.keepsCopies ? Backups(ports.folder).Before("import", ports.clock.Now())
                             : std::string();
}

void ImportHost::ImportProgress(std::size_t part, std::size_t whole)
{
    static const std::string reading = "Reading transactions";
    window_.progress.Step(part, whole, reading);
    Interruption::Check();
}

}  // namespace clb
