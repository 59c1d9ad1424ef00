#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "app/BalanceWatch.h"
#include "app/Notices.h"
#include "app/Ports.h"
#include "app/UnlockedPorts.h"
#include "app/modGlobals.h"
#include "base/Product.h"
#include "controls/Menus.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Tree.h"
#include "controls/WorkProgress.h"
#include "export/IExportHost.h"
#include "export/modExport.h"
#include "grid/CVGrid.h"
#include "import/IImportHost.h"
#include "import/modImport.h"
#include "quotes/UpdateQuotes.h"

namespace clb {

class OtherPrograms;
struct SummedAmounts;

/// Heights and widths in pixels that the window's layout starts from. A window with real controls
/// sets them from their fonts before it is loaded; resizing keeps them.
struct WindowMetrics {
    std::int32_t toolbarHeight = 36;
    std::int32_t statusBarHeight = 24;
    std::int32_t treeWidth = 200;
    std::int32_t totalsHeight = 26;
};

/// The main window: the program runs for as long as it is loaded. Holds every control and wires the
/// parts of the program once. Errors of handlers are not caught here; the front end reports them.
class frmController : public IImportHost, public IExportHost, public IQuoteHost {
public:
    /// What the program calls itself in captions and message boxes.
    static constexpr const char* Title = product::Title;

    frmController(const Ports& ports, const WindowMetrics& metrics);
    ~frmController() override;

    /// Opens the data, shows the net worth of the present month. Throws EngineError.
    void Load();
    /// Releases the view and the data store; the program ends. The window cannot be loaded again.
    void Unload();
    [[nodiscard]] bool Loaded() const { return loaded_; }
    /// Makes durable what was written, if it is loaded; front ends call it after each command.
    /// Where writing failed the window shows what the file holds again. Throws EngineError.
    void Settle();
    /// Takes back what a command wrote that was broken off by an error that no command reports,
    /// such as too little memory. The window then takes input and shows what the file holds. Never
    /// throws: what cannot be shown for lack of memory is shown after the next command.
    void Abandon() noexcept;

    /// Lays the controls out for the inner size in pixels.
    void Resize(std::int32_t width, std::int32_t height);
    /// Width of the tree in pixels; resizing keeps it. Writing gives the grid the rest.
    [[nodiscard]] std::int32_t TreeWidth() const { return metrics_.treeWidth; }
    void TreeWidth(std::int32_t pixels);
    /// Shows the next month (+1) or the one before (-1).
    void StepMonth(std::int32_t direction);
    /// Month list: chooses a month, 0 = January to 11.
    void ChooseMonth(std::int32_t index) { cmbPeriod.Index(index); }
    /// Hands the year box's text on. Throws TypeMismatch() when it is no whole number.
    void EnterYear(const std::string& text) { txtYear.Text(text); }
    /// A press of the mouse on a node, as the tree control reports it: the first shows the node's
    /// view, one on the selected node shows it again. The tree gets the focus; false when the
    /// control that had it kept it, and when saving the grid's row took the node away.
    bool PressNode(std::int32_t node);
    /// Runs the node-click steps for the tree's selected node: its view is shown.
    void ShowSelected();
    /// What other programs write to the same book, shown and agreed on.
    OtherPrograms& Others() { return *others_; }
    /// Runs the grid's check and, when it agrees, unloads.
    bool Close();

    clsView& View() { return *globals_.view; }
    clsDatabase& Data() { return *globals_.database; }
    modImport& Import() { return *import_; }
    modExport& Export() { return *export_; }
    /// What the window says of balances that did not fit their rows until a person has taken note
    /// of them. Empty when there are none, and under automation.
    std::string BalanceNotice();
    /// Shows that in the notices.
    void ShowBalanceNotice() { notices.Set("balances", BalanceNotice()); }
    /// Path of the settings file.
    [[nodiscard]] std::string SettingsFile() const { return ports_.folder + "/cvlb.ini"; }
    /// Scheme, host and port of the quote service: the one given with the ports, else the settings
    /// file's "QuoteService", else the local one of "clb quote-server".
    [[nodiscard]] std::string QuoteService() const;
    [[nodiscard]] const Ports& Outside() const { return ports_; }

    // IImportHost; some of them serve the quotes as well
    std::string AskForFile(std::int32_t flags, const std::string& filter) override;
    [[nodiscard]] std::string StatusText() const override;
    void StatusText(const std::string& text) override;
    void Repaint() override;
    void WindowEnabled(bool enabled) override;
    void Pointer(std::int32_t code) override;
    bool CheckImportAccount(std::string& accountID) override;
    std::string KeepFormerFile() override;
    void ImportProgress(std::size_t part, std::size_t whole) override;
    void QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol) override;

    /// Raised while loading, once view and data store exist and before anything is shown.
    sigc::signal<void()>& Opened() { return opened_; }
    // IExportHost
    std::string AskForSaveFile(std::int32_t flags, const std::string& filter,
                               const std::string& title) override;

    /// Raised when the window is being unloaded.
    sigc::signal<void()>& Unloading() { return unloading_; }

private:
    UnlockedPorts unlocked_;

public:
    // The controls, under their own names.
    Form window;
    MenuBar menus;
    Toolbar toolbar;
    ListBox cmbPeriod;
    TextBox txtYear;
    Spinner UpDown;
    Tree TreeView;
    CVGrid Grid;
    Label lblTotal;
    TextBox txtTotal;
    TextBox txtTotal2;
    StatusBar statusBar;
    /// What a long command has done so far.
    WorkProgress progress;
    /// What the status bar's second panel shows while no long command runs.
    Notices notices;

private:
    void BuildMenus();
    void BuildToolbar();
    void Wire();
    void WireMenus();
    void WireGrid();
    void NodeClicked(std::int32_t node);
    void ShowStored() noexcept;
    void ReloadWindow();
    void ReleaseLock();
    bool KeepsAccount(const std::string& accountID);
    void ShowImportedAccount();
    void OpenGlobals();
    void ShowPresentMonth();
    void CheckRow(bool& cancel);
    void OfferCategory(const Value& category);
    void RowSaved();
    std::string StoredAccountNumber();
    void RenameNoticedBalances();
    void CheckDeletion(bool& cancel);
    /// Tag of the account in the grid's current row as it is stored, whatever was typed over it.
    std::string StoredAccountTag();
    void RowDeleted();
    void UpdateShownBalance();
    void WatchShownBalance();
    [[nodiscard]] bool ListsAccounts() const;
    void ToolbarPressed(const std::string& key);
    void ImportCommand();
    void QuotesCommand();
    void PrintCommand();
    void NewRecord();
    void CopyBudgetCommand();
    void MoveTransaction(std::int32_t direction);
    void SplitCommand();
    void OptionsCommand();
    void AboutCommand();
    void OpenBankLink();
    GridPage PrintedPage();

    Ports ports_;  ///< those of unlocked_
    WindowMetrics metrics_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    bool loaded_ = false;
    bool stale_ = false;  ///< the window shows what an error in writing took back
    modGlobals globals_;
    std::unique_ptr<OtherPrograms> others_;
    BalanceWatch balances_;
    std::unique_ptr<modImport> import_;
    std::unique_ptr<modExport> export_;
    sigc::signal<void()> opened_;
    sigc::signal<void()> unloading_;
    std::string formerNumber_;                   // of the account being saved; empty for a new one
    std::int32_t pendingTreeNode_ = 0;           // node of the account being deleted
    std::int32_t refusedColumn_ = kFirstColumn;  // cell to correct in a refused row
};

}  // namespace clb
