// The main window: its controls, and the parts of the program that work on them.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "app/CommandBars.h"
#include "app/ExportHost.h"
#include "app/ImportHost.h"
#include "app/Notices.h"
#include "app/Ports.h"
#include "app/RowEvents.h"
#include "app/StepResult.h"
#include "app/UnlockedPorts.h"
#include "app/WindowLayout.h"
#include "app/modGlobals.h"
#include "base/Product.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Menus.h"
#include "controls/ResultBar.h"
#include "controls/Tree.h"
#include "controls/WorkProgress.h"
#include "export/modExport.h"
#include "grid/CVGrid.h"
#include "history/History.h"
#include "import/modImport.h"

namespace clb {

class OtherPrograms;

/// The main window. The program runs as long as it is loaded. Owns every control and connects the
/// parts of the program. Does not catch errors of handlers; the front end reports them.
class frmController {
public:
    frmController(const Ports& ports, const WindowMetrics& metrics);
    ~frmController();
    frmController(const frmController&) = delete;
    frmController& operator=(const frmController&) = delete;

    /// Opens the database and shows the net worth in the present month. Throws EngineError.
    void Load();
    /// Releases the view and the data store, which ends the program. The window cannot be loaded
    /// again.
    void Unload();
    [[nodiscard]] bool Loaded() const { return loaded_; }
    /// Makes durable what was written, if the window is loaded. Front ends call it after each
    /// command. If writing fails, the window shows the contents of the file again. Throws
    /// EngineError.
    void Settle();
    /// The same after an action in a dialog that a command has opened. The command's step goes on.
    void SettleDialog();
    /// Takes back what a command has written after an error that no command reports, such as too
    /// little memory. The window then takes input and shows the contents of the file. Never throws:
    /// if there is too little memory to show something, it is shown after the next command.
    void Abandon() noexcept;

    /// Places the controls for the inner size in pixels.
    void Resize(std::int32_t width, std::int32_t height);
    /// Width of the tree in pixels; resizing keeps it. Writing gives the grid the rest.
    [[nodiscard]] std::int32_t TreeWidth() const { return layout_.TreeWidth(); }
    void TreeWidth(std::int32_t pixels);
    /// Shows the next month (+1) or the one before (-1).
    void StepMonth(std::int32_t direction);
    /// Chooses a month in the month list, 0 = January to 11.
    void ChooseMonth(std::int32_t index) { cmbPeriod.Index(index); }
    /// Enters a text into the year box. Throws TypeMismatch() if it is not a whole number.
    void EnterYear(const std::string& text) { txtYear.Text(text); }
    /// Reports a press of the mouse on a node of the tree: shows the node's view, also if it is
    /// shown already, and gives the tree the focus. Returns false if another control kept the
    /// focus, or if the node is gone because the grid's row was saved.
    bool PressNode(std::int32_t node);
    /// Shows the view of the tree's selected node.
    void ShowSelected();
    /// Follows what other programs write to the same book.
    OtherPrograms& Others() { return *others_; }
    /// Saves the grid's row in edit and unloads. Returns false if the row cannot be saved.
    bool Close();

    /// The steps that commands have made. Only while the window is loaded.
    History& Steps() { return *history_; }
    /// Shows what Undo and Redo would do now. Throws EngineError.
    void FollowHistory() { bars_.FollowHistory(); }
    /// The same if a program, this one or another, has changed the history since it was shown. If
    /// the file cannot be read, the next command shows it.
    void ShowHistory() noexcept;
    /// The menus and the toolbar.
    [[nodiscard]] const CommandBars& Bars() const { return bars_; }
    /// Says in the result bar what a command has done.
    StepResult& Results() { return results_; }
    /// Shows the contents of the file again after rows were changed in another way than through the
    /// grid.
    void ReloadWindow();

    clsView& View() { return *globals_.view; }
    clsDatabase& Data() { return *globals_.database; }
    modImport& Import() { return *import_; }
    /// See ImportHost::Propose.
    void ProposeAccount(AccountProposal proposal) { importHost_.Propose(std::move(proposal)); }
    modExport& Export() { return *export_; }
    /// The notice about balances that did not fit their rows, until a person has confirmed it.
    /// Empty if there are none, and under automation.
    std::string BalanceNotice();
    /// Updates the notices with it.
    void ShowBalanceNotice() { notices.Set("balances", BalanceNotice()); }
    /// Path of the settings file.
    [[nodiscard]] std::string SettingsFile() const { return ports_.folder + "/cvlb.ini"; }
    /// Scheme, host and port of the quote service: the one of the ports, else the key QuoteService
    /// in the settings file, else the local one of "clb quote-server".
    [[nodiscard]] std::string QuoteService() const;
    /// The ports that the window was made with. Those that wait for a person or a server give up
    /// the write lock first.
    [[nodiscard]] const Ports& GivenPorts() const { return ports_; }

    /// Raised while loading, after view and data store are made and before anything is shown.
    Event<void()> Opened() { return opened_; }
    /// Raised when the window is being unloaded.
    Event<void()> Unloading() { return unloading_; }

private:
    UnlockedPorts unlocked_;

public:
    // The controls.
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
    ResultBar result;
    /// The progress of a long command.
    WorkProgress progress;
    /// The texts of the status bar's second panel while no long command runs.
    Notices notices;

private:
    void OpenGlobals();
    void MakeDurable();
    void Connect();
    void ShowPresentMonth();
    void NodeClicked(std::int32_t node);
    void ShowStored() noexcept;
    void ReleaseLock();

    Ports ports_;  // with those of unlocked_
    WindowLayout layout_;
    CommandBars bars_;
    StepResult results_;
    RowEvents rows_;
    ImportHost importHost_;
    ExportHost exportHost_;
    bool loaded_ = false;
    bool stale_ = false;  // the window shows data that an error in writing has taken back
    std::uint64_t historyShownAt_ = 0;  // WritesElsewhere when the history was shown last
    modGlobals globals_;
    std::unique_ptr<History> history_;
    std::unique_ptr<OtherPrograms> others_;
    std::unique_ptr<modImport> import_;
    std::unique_ptr<modExport> export_;
    sigc::signal<void()> opened_;
    sigc::signal<void()> unloading_;
};

}  // namespace clb
