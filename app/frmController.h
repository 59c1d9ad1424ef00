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
#include "app/UnlockedPorts.h"
#include "app/WindowLayout.h"
#include "app/modGlobals.h"
#include "base/Product.h"
#include "controls/Form.h"
#include "controls/Inputs.h"
#include "controls/Menus.h"
#include "controls/Tree.h"
#include "controls/WorkProgress.h"
#include "export/modExport.h"
#include "grid/CVGrid.h"
#include "import/modImport.h"

namespace clb {

class OtherPrograms;

/// The main window. The program runs as long as it is loaded. Owns every control and connects the
/// parts of the program. Does not catch errors of handlers; the front end reports them.
class frmController {
public:
    /// What the program calls itself in captions and message boxes.
    static constexpr const char* Title = product::kTitle;

    frmController(const Ports& ports, const WindowMetrics& metrics);
    ~frmController();
    frmController(const frmController&) = delete;
    frmController& operator=(const frmController&) = delete;

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

    /// Places the controls for the inner size in pixels.
    void Resize(std::int32_t width, std::int32_t height);
    /// Width of the tree in pixels; resizing keeps it. Writing gives the grid the rest.
    [[nodiscard]] std::int32_t TreeWidth() const { return layout_.TreeWidth(); }
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
    void OpenGlobals();
    void Connect();
    void ShowPresentMonth();
    void NodeClicked(std::int32_t node);
    void ShowStored() noexcept;
    void ReloadWindow();
    void ReleaseLock();

    Ports ports_;  // those of unlocked_
    WindowLayout layout_;
    CommandBars bars_;
    RowEvents rows_;
    ImportHost importHost_;
    ExportHost exportHost_;
    bool loaded_ = false;
    bool stale_ = false;  // the window shows what an error in writing took back
    modGlobals globals_;
    std::unique_ptr<OtherPrograms> others_;
    std::unique_ptr<modImport> import_;
    std::unique_ptr<modExport> export_;
    sigc::signal<void()> opened_;
    sigc::signal<void()> unloading_;
};

}  // namespace clb
