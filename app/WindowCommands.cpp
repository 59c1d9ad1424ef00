#include "app/WindowCommands.h"

#include <algorithm>

#include "app/HistoryCommands.h"
#include "app/ImportCommand.h"
#include "app/QuoteHost.h"
#include "app/clsIni.h"
#include "app/frmAbout.h"
#include "app/frmController.h"
#include "app/frmOptions.h"
#include "app/frmSplit.h"
#include "base/Numeric.h"
#include "base/Product.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "data/ViewColumns.h"
#include "quotes/UpdateQuotes.h"
#include "views/MenuNames.h"
#include "views/NodeTag.h"

namespace clb {
namespace {

void Export(frmController& window)
{
    window.Export().ExportOFX();
}

void Print(frmController& window)
{
    const WorkProgress::Work work(window.progress);
    window.progress.Step(0, 0, "Printing");
    window.Grid.PrintMe();
}

void Exit(frmController& window)
{
    window.Unload();
}

void NewRecord(frmController& window)
{
    CVGrid& grid = window.Grid;
    if (!grid.Bound())
        window.View().Refresh();
    grid.MoveToRowKey(Null{});
    // A refused row keeps the focus on the cell to correct.
    if (grid.Position() != 1)
        return;
    grid.Col(kFirstColumn);
    grid.Editing(true);
}

void DeleteRecord(frmController& window)
{
    window.Grid.Delete();
}

void CopyBudget(frmController& window)
{
    const Month shown{ParseLong(window.txtYear.Text()), window.cmbPeriod.ItemData()};
    const Month source = shown.Previous();
    window.Data().CopyBudget(source.year, source.period, shown.year, shown.period);
    window.View().HoldRefresh(false);
}

void MoveTransaction(frmController& window, std::int32_t direction)
{
    CVGrid& grid = window.Grid;
    window.Data().MoveMonth(ToLong(grid.ColumnValue(Register::Sequence)),
                            ToLong(grid.ColumnValue(Register::SubSequence)), direction);
    grid.Refetch();
    window.View().RefreshTotals();
}

void MoveToPreviousMonth(frmController& window)
{
    MoveTransaction(window, -1);
}

void MoveToNextMonth(frmController& window)
{
    MoveTransaction(window, 1);
}

void SplitTransaction(frmController& window)
{
    CVGrid& grid = window.Grid;
    frmSplit dialog(window.GivenPorts().modal);
    Money first;
    Money second;
    if (!dialog.Split(ToMoney(grid.ColumnValue(Register::Amount)),
                      ToText(grid.ColumnValue(Register::Description)), first, second))
        return;
    // A refused row stays in edit and is not split.
    if (!grid.Update())
        return;
    window.Data().Lock();
    if (window.Data().RowsOutdated() &&
        ToMoney(grid.ColumnValue(Register::Amount)) != first + second)
        throw RuntimeError(errors::InvalidCall,
                           "Another program has changed the amount of this transaction meanwhile. "
                           "Nothing was split. Please repeat the command.");
    window.Data().SplitTransaction(ToLong(grid.ColumnValue(Register::Sequence)),
                                   ToLong(grid.ColumnValue(Register::SubSequence)), first, second);
    grid.Refetch();
}

void UpdateAllQuotes(frmController& window)
{
    const WorkProgress::Work work(window.progress);
    QuoteHost host(window);
    const Ports& ports = window.GivenPorts();
    UpdateQuotes(window.Data(), host, ports.messages, ports.http, window.QuoteService(),
                 product::kTitle);
}

void ChangeOptions(frmController& window)
{
    frmOptions(window.Data(), window.GivenPorts().modal, window.SettingsFile()).ShowDialog();
    window.View().Refresh();
}

void Undo(frmController& window)
{
    UndoSteps(window, 1);
}

void Redo(frmController& window)
{
    RedoSteps(window, 1);
}

void ShowHelp(frmController& window)
{
    const Ports& ports = window.GivenPorts();
    ports.shell.Help(ports.folder + "/Help/clb.chm");
}

void OpenHomePage(frmController& window)
{
    window.GivenPorts().shell.Open(product::kHomePage);
}

void OpenTutorial(frmController& window)
{
    window.GivenPorts().shell.Open(product::kTutorialPage);
}

void ShowAbout(frmController& window)
{
    const Ports& ports = window.GivenPorts();
    frmAbout(ports.modal, ports.shell, window.Data().SchemaVersion()).ShowDialog();
}

void OpenBankSite(frmController& window)
{
    const Ports& ports = window.GivenPorts();
    clsIni ini;
    ini.INIFile(window.SettingsFile());
    const std::string address = ini.GetString("Settings", "BankUrl");
    if (!address.empty())
        ports.shell.Open(address);
    else
        ports.messages.Show(
            "You have not yet set your bank's URL, please do so from "
            "Tools|Options...",
            box_style::Exclamation, product::kTitle);
}

void ShowPreviousMonth(frmController& window)
{
    window.StepMonth(-1);
}

void ShowNextMonth(frmController& window)
{
    window.StepMonth(1);
}

using enum Enabled;

constexpr bool kSavesRow = true;
// New Record leaves the row, which saves it. Delete Record may delete a row that cannot be saved.
// Undo and Redo save it themselves, before they compare what comes next with their captions.
// The help does not need the rows.
constexpr bool kLeavesRow = false;

// clang-format off

constexpr WindowCommand kFile[] = {
    {command_name::kImport, "&Import...", "Ctrl+I", "import", Always, kSavesRow, ImportCommand},
    {command_name::kExport, "&Export...", "Ctrl+E", "export", OnExportable, kSavesRow, Export},
    {"mnuF_Rule"},
    {"mnuF_Print", "&Print...", "Ctrl+P", "print", Always, kSavesRow, Print},
    {"mnuF_Rule2"},
    {command_name::kExit, "E&xit", "Ctrl+Q", "exit", Always, kSavesRow, Exit},
};

constexpr WindowCommand kEdit[] = {
    {command_name::kNew, "&New Record", "Ctrl+N", "new", OffNewRow, kLeavesRow, NewRecord},
    {command_name::kDelete, "&Delete Record", "Del", "delete", OnStoredRow, kLeavesRow, DeleteRecord},
    {"mnuE_Separator1"},
    {command_name::kCopy, "&Copy Budget From Previous Month", "", "copy", Always, kSavesRow, CopyBudget},
    {"mnuE_Separator2"},
    {command_name::kMovePrevious, "Move To &Previous Month", "", "previous", OnTransaction, kSavesRow, MoveToPreviousMonth},
    {command_name::kMoveNext, "Move To N&ext Month", "", "next", OnTransaction, kSavesRow, MoveToNextMonth},
    {command_name::kSplit, "&Split Transaction", "", "split", OnTransaction, kSavesRow, SplitTransaction},
};

constexpr WindowCommand kTools[] = {
    {command_name::kUpdateQuotes, "&Update Quotes", "F5", "quotes", Always, kSavesRow, UpdateAllQuotes},
    {"mnuT_Rule"},
    {command_name::kOptions, "&Options...", "", "options", Always, kSavesRow, ChangeOptions},
};

constexpr WindowCommand kHistory[] = {
    {command_name::kUndo, "&Undo", "Ctrl+Z", "undo", ForUndo, kLeavesRow, Undo},
    {command_name::kRedo, "&Redo", "Ctrl+Shift+Z; Ctrl+Y", "redo", ForRedo, kLeavesRow, Redo},
    {"mnuY_Rule"},
    {"mnuY_Show", "&Show History...", "", "history", Always, kSavesRow, ShowHistory},
};

constexpr WindowCommand kHelp[] = {
    {"mnuH_HelpTopics", "&Help Topics", "F1", "help", Always, kLeavesRow, ShowHelp},
    {"mnuH_Rule"},
    {"mnuH_OnTheWeb", "{maker} on the &Web", "", "link", Always, kLeavesRow, OpenHomePage},
    {"mnuH_OnlineTutorial", "&Online Tutorial", "", "tutorial", Always, kLeavesRow, OpenTutorial},
    {"mnuH_Rule2"},
    {"mnuH_About", "&About {product}", "", "about", Always, kLeavesRow, ShowAbout},
};

constexpr bool kAdded = true;

constexpr WindowMenu kMenus[] = {
    {"mnuFile", "&File", kFile},
    {menu_name::kEdit, "&Edit", kEdit},
    {"mnuTools", "&Tools", kTools},
    {"mnuHistory", "Histor&y", kHistory, kAdded},
    {"mnuHelp", "&Help", kHelp},
};

constexpr bool kSeparated = true;

/// A button that does what a command of the menu Edit does.
constexpr WindowButton ButtonFor(std::string_view name, const char* key, const char* tip)
{
    const auto* command = std::begin(kEdit);
    while (command->name != name)
        ++command;
    return {key, tip, "", command->icon, false, command->enabled, command->run};
}

constexpr WindowButton kButtons[] = {
    ButtonFor(command_name::kNew, "New", "New record"),
    ButtonFor(command_name::kDelete, "Delete", "Delete record"),
    {"Link", "Bank web site", "", "link", kSeparated, Always, OpenBankSite},
    {"Back", "Previous month", "Alt+Left", "back", kSeparated, Always, ShowPreviousMonth},
    {"Forward", "Next month", "Alt+Right", "forward", false, Always, ShowNextMonth},
};

// clang-format on

}  // namespace

std::span<const WindowMenu> WindowMenus()
{
    return kMenus;
}

std::span<const WindowButton> WindowButtons()
{
    return kButtons;
}

const WindowCommand* FindCommand(std::string_view name)
{
    for (const WindowMenu& menu : kMenus)
        for (const WindowCommand& command : menu.commands)
            if (command.name == name)
                return &command;
    return nullptr;
}

const WindowButton* FindButton(std::string_view key)
{
    const auto* found =
        std::find_if(std::begin(kButtons), std::end(kButtons),
                     [key](const WindowButton& button) { return button.key == key; });
    return found == std::end(kButtons) ? nullptr : found;
}

std::string PlainCaptionOf(const WindowCommand& command)
{
    return Replace(Replace(CaptionOf(command), "&", ""), "...", "");
}

std::string PlainCaptionOf(const WindowButton& button)
{
    for (const WindowMenu& menu : kMenus)
        for (const WindowCommand& command : menu.commands)
            if (command.run == button.run)
                return PlainCaptionOf(command);
    return button.tip;
}

std::string CaptionOf(const WindowCommand& command)
{
    if (!command.caption)
        return "-";
    return Replace(Replace(command.caption, "{maker}", product::kMaker), "{product}",
                   product::kTitle);
}

}  // namespace clb
