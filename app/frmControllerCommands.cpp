// The menus and the toolbar: what stands in them and what each command does.

#include "app/clsIni.h"
#include "app/frmAbout.h"
#include "app/frmController.h"
#include "app/frmOptions.h"
#include "app/frmSplit.h"
#include "base/Interruption.h"
#include "base/Numeric.h"
#include "base/RuntimeError.h"
#include "data/Backups.h"
#include "data/NoticedBalances.h"
#include "data/ViewColumns.h"
#include "views/NodeTag.h"

namespace clb {

void frmController::BuildMenus()
{
    constexpr const char* line = "-";
    Menu& file = menus.Add("mnuFile", "&File");
    file.Add("mnuF_Import", "&Import...");
    file.Add("mnuF_Export", "&Export...");
    file.Add("mnuF_Rule", line);
    file.Add("mnuF_Print", "&Print...");
    file.Add("mnuF_Rule2", line);
    file.Add("mnuF_Exit", "E&xit");

    Menu& edit = menus.Add("mnuEdit", "&Edit");
    edit.Add("mnuE_New", "&New Record");
    edit.Add("mnuE_Delete", "&Delete Record");
    edit.Add("mnuE_Separator1", line);
    edit.Add("mnuE_Copy", "&Copy Budget From Previous Month");
    edit.Add("mnuE_Separator2", line);
    edit.Add("mnuE_MovePrev", "Move To &Previous Month");
    edit.Add("mnuE_MoveNext", "Move To N&ext Month");
    edit.Add("mnuE_Split", "&Split Transaction");

    Menu& tools = menus.Add("mnuTools", "&Tools");
    tools.Add("mnuT_UpdateQuotes", "&Update Quotes");
    tools.Add("mnuT_Rule", line);
    tools.Add("mnuT_Options", "&Options...");

    Menu& help = menus.Add("mnuHelp", "&Help");
    help.Add("mnuH_HelpTopics", "&Help Topics");
    help.Add("mnuH_Rule", line);
    help.Add("mnuH_OnTheWeb", "Corvane on the &Web");
    help.Add("mnuH_OnlineTutorial", "&Online Tutorial");
    help.Add("mnuH_Rule2", line);
    help.Add("mnuH_About", "&About Corvane Ledgerbook");
}

void frmController::BuildToolbar()
{
    toolbar.Add("New", "New record");
    toolbar.Add("Delete", "Delete record");
    toolbar.Add("Link", "Bank web site");
    toolbar.Add("Back", "Previous month");
    toolbar.Add("Forward", "Next month");
}

void frmController::WireMenus()
{
    const auto command = [this](const char* item, auto handler) {
        menus.Find(item)->Click().connect(handler);
    };
    command("mnuF_Import", [this] { ImportCommand(); });
    command("mnuF_Export", [this] { export_->ExportOFX(); });
    command("mnuF_Print", [this] { PrintCommand(); });
    command("mnuF_Exit", [this] { Unload(); });
    command("mnuE_New", [this] { NewRecord(); });
    command("mnuE_Delete", [this] { Grid.Delete(); });
    command("mnuE_Copy", [this] { CopyBudgetCommand(); });
    command("mnuE_MovePrev", [this] { MoveTransaction(-1); });
    command("mnuE_MoveNext", [this] { MoveTransaction(1); });
    command("mnuE_Split", [this] { SplitCommand(); });
    command("mnuT_UpdateQuotes", [this] { QuotesCommand(); });
    command("mnuT_Options", [this] { OptionsCommand(); });
    command("mnuH_HelpTopics", [this] { ports_.shell.Help(ports_.folder + "/Help/clb.chm"); });
    command("mnuH_OnTheWeb", [this] { ports_.shell.Open(product::kHomePage); });
    command("mnuH_OnlineTutorial", [this] { ports_.shell.Open(product::kTutorialPage); });
    command("mnuH_About", [this] { AboutCommand(); });
}

void frmController::ToolbarPressed(const std::string& key)
{
    if (!Grid.MayLoseFocus())
        return;
    if (key == "New")
        NewRecord();
    else if (key == "Delete")
        Grid.Delete();
    else if (key == "Link")
        OpenBankLink();
    else if (key == "Back")
        StepMonth(-1);
    else if (key == "Forward")
        StepMonth(1);
}

void frmController::ImportCommand()
{
    const WorkProgress::Work work(progress);
    import_->ImportFile();
    ShowImportedAccount();
    ShowBalanceNotice();
}

std::string frmController::BalanceNotice()
{
    const std::int32_t odd =
        ports_.keepsCopies ? noticed_balances::CountOpen(Data().Database()) : 0;
    if (odd == 0)
        return {};
    return (odd == 1 ? "A balance did not fit its rows"
                     : std::to_string(odd) + " balances did not fit their rows") +
           std::string(": see clb check");
}

std::string frmController::KeepFormerFile()
{
    return ports_.keepsCopies ? Backups(ports_.folder).Before("import", ports_.clock.Now())
                              : std::string();
}

void frmController::ImportProgress(std::size_t part, std::size_t whole)
{
    static const std::string reading = "Reading transactions";
    progress.Step(part, whole, reading);
    Interruption::Check();
}

void frmController::QuotesCommand()
{
    const WorkProgress::Work work(progress);
    UpdateQuotes(Data(), *this, ports_.messages, ports_.http, QuoteService(), Title);
}

void frmController::QuoteProgress(std::size_t part, std::size_t whole, const std::string& symbol)
{
    progress.Step(part, whole, symbol);
    Interruption::Check();
}

void frmController::PrintCommand()
{
    const WorkProgress::Work work(progress);
    progress.Step(0, 0, "Printing");
    Grid.PrintMe();
}

void frmController::ShowImportedAccount()
{
    // A new or mapped account's node is selected by the import while a register still shows another
    // account: show the selected one, so that no new row goes into the wrong account.
    if (!View().Definition().ofAccount)
        return;
    const std::string& tag = TreeView.Node(TreeView.Selected()).tag;
    if (node_tag::IsAccount(tag) && tag != node_tag::OfAccount(View().View(), View().AccountID()))
        NodeClicked(TreeView.Selected());
}

void frmController::NewRecord()
{
    if (!Grid.Bound())
        View().Refresh();
    Grid.MoveToRowKey(Null{});
    // A row that was refused keeps its cell to correct.
    if (Grid.Position() != 1)
        return;
    Grid.Col(kFirstColumn);
    Grid.Editing(true);
}

void frmController::CopyBudgetCommand()
{
    const Month shown{ParseLong(txtYear.Text()), cmbPeriod.ItemData()};
    const Month source = shown.Previous();
    Data().CopyBudget(source.year, source.period, shown.year, shown.period);
    View().HoldRefresh(false);
}

void frmController::SplitCommand()
{
    frmSplit dialog(ports_.modal);
    Money first;
    Money second;
    if (!dialog.Split(ToMoney(Grid.ColumnValue(Register::Amount)),
                      ToText(Grid.ColumnValue(Register::Description)), first, second))
        return;
    // A row that is refused stays in edit and is not split.
    if (!Grid.Update())
        return;
    Data().Lock();
    if (Data().RowsOutdated() && ToMoney(Grid.ColumnValue(Register::Amount)) != first + second)
        throw RuntimeError(errors::InvalidCall,
                           "Another program has changed the amount of this transaction meanwhile. "
                           "Nothing was split. Please repeat the command.");
    Data().SplitTransaction(ToLong(Grid.ColumnValue(Register::Sequence)),
                            ToLong(Grid.ColumnValue(Register::SubSequence)), first, second);
    Grid.Refetch();
}

void frmController::OptionsCommand()
{
    frmOptions(Data(), ports_.modal, SettingsFile()).ShowDialog();
    View().Refresh();
}

void frmController::AboutCommand()
{
    frmAbout(ports_.modal, ports_.shell, Data().SchemaVersion()).ShowDialog();
}

std::string frmController::QuoteService() const
{
    std::string service = ports_.quoteService;
    if (service.empty()) {
        clsIni ini;
        ini.INIFile(SettingsFile());
        service = ini.GetString("Settings", "QuoteService");
    }
    // The path that is put behind it begins with a slash.
    service.erase(service.find_last_not_of('/') + 1);
    return service.empty() ? product::kQuoteService : service;
}

void frmController::OpenBankLink()
{
    clsIni ini;
    ini.INIFile(SettingsFile());
    const std::string address = ini.GetString("Settings", "BankUrl");
    if (!address.empty())
        ports_.shell.Open(address);
    else
        ports_.messages.Show(
            "You have not yet set your bank's URL, please do so from "
            "Tools|Options...",
            box_style::Exclamation, Title);
}

GridPage frmController::PrintedPage()
{
    GridPage page;
    // The caption begins with the name of what is shown.
    page.title = window.Caption().substr(0, window.Caption().rfind(std::string(" - ") + Title));
    const ViewDefinition& view = View().Definition();
    if (view.ofMonth)
        page.subtitle = cmbPeriod.Text() + " " + txtYear.Text();
    page.totalLabel = lblTotal.Caption();
    if (view.firstTotal != 0)
        page.totals.push_back({view.firstTotal, txtTotal.Text()});
    if (view.secondTotal != 0)
        page.totals.push_back({view.secondTotal, txtTotal2.Text()});
    return page;
}

void frmController::MoveTransaction(std::int32_t direction)
{
    Data().MoveMonth(ToLong(Grid.ColumnValue(Register::Sequence)),
                     ToLong(Grid.ColumnValue(Register::SubSequence)), direction);
    Grid.Refetch();
    View().RefreshTotals();
}

}  // namespace clb
