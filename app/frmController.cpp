#include "app/frmController.h"

#include <algorithm>
#include <cmath>

#include "app/OtherPrograms.h"
#include "app/TreePlaces.h"
#include "app/clsOpenSave.h"
#include "base/Numeric.h"
#include "base/Quietly.h"
#include "engine/storage/EngineError.h"
#include "import/frmSelectAccount.h"

namespace clb {
namespace {

constexpr const char* kMonths[] = {"January",   "February", "March",    "April",
                                   "May",       "June",     "July",     "August",
                                   "September", "October",  "November", "December"};

/// The number that a year's text stands for; 0 when it is none. Wide, so that the year box refuses
/// the one behind the last as any text that is no year.
std::int64_t YearNumber(const std::string& text)
{
    return IsNumeric(text) ? ParseLong(text) : 0;
}

}  // namespace

frmController::frmController(const Ports& ports, const WindowMetrics& metrics)
    : unlocked_(ports, [this] { ReleaseLock(); }),
      window("frmController", std::string("Net Worth - ") + Title),
      menus("menus"),
      toolbar("Toolbar"),
      cmbPeriod("cmbPeriod"),
      txtYear("txtYear", "1900"),
      UpDown("UpDown"),
      TreeView("TreeView"),
      Grid(ports.dates, unlocked_.Around(ports).printing, ports.folder),
      lblTotal("lblTotal", "Totals:"),
      txtTotal("txtTotal", "0.00"),
      txtTotal2("txtTotal2", "0.00"),
      statusBar("StatusBar", 2),
      ports_(unlocked_.Around(ports)),
      metrics_(metrics),
      others_(std::make_unique<OtherPrograms>(*this, ports_.messages))
{
    for (Control* control :
         std::initializer_list<Control*>{&TreeView, &Grid, &cmbPeriod, &txtYear, &UpDown, &txtTotal,
                                         &txtTotal2, &lblTotal, &toolbar, &statusBar})
        window.Add(*control);
    for (std::int32_t month = 0; month < 12; ++month)
        cmbPeriod.Add(kMonths[month], month + 1);
    UpDown.Attach(txtYear);
    txtTotal.Locked(true);
    txtTotal2.Locked(true);
    BuildMenus();
    BuildToolbar();
    Resize(900, 600);
}

frmController::~frmController() = default;

void frmController::OpenGlobals()
{
    globals_.view = std::make_unique<clsView>(
        ViewTargets{window, Grid, TreeView, lblTotal, txtTotal, txtTotal2, cmbPeriod, txtYear,
                    menus, toolbar, statusBar, ports_.messages, Title});
    globals_.database = std::make_unique<clsDatabase>(ports_.folder, *globals_.view, Grid);
    globals_.view->Use(*globals_.database);
    import_ = std::make_unique<modImport>(Data(), View(), *this, ports_.messages, ports_.clock);
    export_ = std::make_unique<modExport>(Data(), View(), *this, ports_.clock);
}

void frmController::ShowPresentMonth()
{
    const Date now = ports_.clock.Now();
    cmbPeriod.Index(now.Month() - 1);
    txtYear.Text(std::to_string(now.Year()));
    // The box tells of no change when it shows this year already.
    View().Year(now.Year());
}

void frmController::Load()
{
    OpenGlobals();
    Wire();
    opened_.emit();
    View().HoldRefresh(true);
    ShowPresentMonth();
    View().BuildTree();
    window.Focus(TreeView);
    View().View(vwNetWorth);
    loaded_ = true;
    View().HoldRefresh(false);
    ShowBalanceNotice();
    Settle();
}

void frmController::Settle()
{
    if (!loaded_)
        return;
    View().DropClosedRows();
    stale_ = stale_ || Data().Database().LostGroup();
    try {
        Data().Database().Settle();
    } catch (...) {
        stale_ = true;
        ShowStored();
        throw;
    }
    ShowStored();
}

void frmController::Abandon() noexcept
{
    if (!globals_.database)
        return;
    Data().Database().Abandon();
    if (!loaded_)
        return;
    stale_ = true;
    pendingTreeNode_ = 0;
    // What the command had locked, it cannot unlock any more.
    Quietly([this] { window.Enabled(true); });
    Quietly([this] { Pointer(pointer::Default); });
    if (View().HoldRefresh())
        Quietly([this] { View().HoldRefresh(false); });
    ShowStored();
}

/// A person or a server may take their time: nobody else waits for that.
void frmController::ReleaseLock()
{
    if (!globals_.database || !Data().Database().Locked())
        return;
    try {
        Data().Database().Settle();
    } catch (...) {
        stale_ = true;
        throw;
    }
}

/// What could not be saved is neither in the file nor any longer in the window.
void frmController::ShowStored() noexcept
{
    if (!stale_)
        return;
    balances_.Forget();
    try {
        ReloadWindow();
        stale_ = false;
    } catch (...) {
        // The file cannot be read either, or there is no memory: the next command tries again.
    }
}

void frmController::ReloadWindow()
{
    Grid.CancelEdit();
    const std::int32_t selected = TreeView.Selected();
    const TreeNode shown = View().TreeIsWhole() ? TreeView.Node(selected) : View().ShownNode();
    View().BuildTree();
    const std::int32_t node = NodeLike(TreeView, shown, selected);
    TreeView.Select(node != 0 ? node : TreeView.Selected());
    if (node != 0)
        View().Refresh();
    else
        NodeClicked(TreeView.Selected());
}

void frmController::Unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    unloading_.emit();
    Data().Database().Settle();
    export_.reset();
    import_.reset();
    globals_.Release();
}

bool frmController::Close()
{
    if (!Grid.MayLoseFocus())
        return false;
    Unload();
    return true;
}

void frmController::Wire()
{
    cmbPeriod.Click().connect([this] { View().Period(cmbPeriod.ItemData()); });
    txtYear.TextChanged().connect([this] {
        View().Year(ParseLong(txtYear.Text()));
        View().EnableDisable();
    });
    TreeView.NodeClick().connect([this](std::int32_t node) { NodeClicked(node); });
    toolbar.ButtonClick().connect([this](const std::string& key) { ToolbarPressed(key); });
    Grid.OnRefetch([this] { View().EnableDisable(); });
    Grid.OnPrint([this] { return PrintedPage(); });
    WireGrid();
    WireMenus();
}

void frmController::ShowSelected()
{
    NodeClicked(TreeView.Selected());
}

void frmController::NodeClicked(std::int32_t node)
{
    const std::string text = TreeView.Node(node).text;
    window.Caption(text + " - " + Title);
    const std::string kind = View().GetTreeNodeAccountInfo(0);
    const ViewDefinition& definition = DefinitionOf(ParseLong(kind));
    if (definition.ofType)
        View().AccountType(text);
    else if (definition.ofAccount)
        View().AccountID(View().GetTreeNodeAccountInfo(1));
    View().View(ParseLong(kind));
}

bool frmController::PressNode(std::int32_t node)
{
    const TreeNode pressed = TreeView.Node(node);
    if (!window.Focus(TreeView))
        return false;
    // Leaving the grid may have saved an account: the tree is new then and its nodes have moved.
    const std::int32_t now = NodeLike(TreeView, pressed, node);
    if (now != 0)
        TreeView.ClickNode(now);
    return now != 0;
}

void frmController::StepMonth(std::int32_t direction)
{
    constexpr std::int32_t december = 11;
    View().HoldRefresh(true);
    const std::int32_t index = cmbPeriod.Index();
    if (direction > 0 && index == december) {
        cmbPeriod.Index(0);
        txtYear.Text(std::to_string(YearNumber(txtYear.Text()) + 1));
    } else if (direction <= 0 && index == 0) {
        cmbPeriod.Index(december);
        txtYear.Text(std::to_string(YearNumber(txtYear.Text()) - 1));
    } else {
        cmbPeriod.Index(index + (direction > 0 ? 1 : -1));
    }
    View().HoldRefresh(false);
}

void frmController::TreeWidth(std::int32_t pixels)
{
    metrics_.treeWidth = std::max(0, pixels);
    Resize(width_, height_);
}

void frmController::Resize(std::int32_t width, std::int32_t height)
{
    width_ = width;
    height_ = height;
    constexpr std::int32_t pixel = 1;
    const auto atLeastZero = [](std::int32_t size) { return std::max(0, size); };
    const std::int32_t top = metrics_.toolbarHeight;
    toolbar.Place({0, 0, atLeastZero(width), metrics_.toolbarHeight});
    statusBar.Place(
        {0, height - metrics_.statusBarHeight, atLeastZero(width), metrics_.statusBarHeight});

    const std::int32_t treeHeight =
        atLeastZero(height - metrics_.statusBarHeight - metrics_.toolbarHeight - pixel);
    TreeView.Place({0, top, metrics_.treeWidth, treeHeight});
    const std::int32_t gridHeight = atLeastZero(treeHeight - metrics_.totalsHeight);
    const std::int32_t gridWidth = atLeastZero(width - metrics_.treeWidth - 4 * pixel);
    const std::int32_t gridLeft = metrics_.treeWidth + 2 * pixel;
    Grid.Place({gridLeft, top, gridWidth, gridHeight});
    for (Control* control : std::initializer_list<Control*>{&lblTotal, &txtTotal, &txtTotal2}) {
        Bounds place = control->Place();
        place.top = top + gridHeight;
        place.height = metrics_.totalsHeight;
        control->Place(place);
    }
    if (globals_.view)
        View().SetColWidths();
}

std::string frmController::AskForFile(std::int32_t flags, const std::string& filter)
{
    clsOpenSave dialog(ports_.files);
    dialog.Flags = flags;
    dialog.Filter(filter);
    return dialog.GetFileName() ? dialog.FileName : std::string();
}

std::string frmController::AskForSaveFile(std::int32_t flags, const std::string& filter,
                                          const std::string& title)
{
    clsOpenSave dialog(ports_.files);
    dialog.Flags = flags;
    dialog.Filter(filter);
    dialog.DialogTitle = title;
    return dialog.ShowSave() ? dialog.FileName : std::string();
}

std::string frmController::StatusText() const
{
    return statusBar.Panel(1);
}
void frmController::StatusText(const std::string& text)
{
    statusBar.Panel(1, text);
}
void frmController::Repaint()
{
    window.Refresh();
}
void frmController::WindowEnabled(bool enabled)
{
    window.Enabled(enabled);
}
void frmController::Pointer(std::int32_t code)
{
    ports_.pointer.Pointer(code);
}

/// Other programs could write while the account was asked for.
bool frmController::KeepsAccount(const std::string& accountID)
{
    Data().Lock();
    const Connection::Untraced untraced(Data().Database());
    if (Data().RowExists("Account", "AccountID = '" + clsDatabase::ToSqlString(accountID) + "'"))
        return true;
    ports_.messages.Show(
        "Another program has deleted the chosen account meanwhile. Nothing was imported.",
        box_style::Exclamation, Title);
    return false;
}

bool frmController::CheckImportAccount(std::string& accountID)
{
    Data().Lock();
    const std::string criteria = "AccountID = '" + clsDatabase::ToSqlString(accountID) + "'";
    const bool exists = Data().RowExists("Account", criteria);
    if (!accountID.empty() && exists)
        return true;
    const std::string remembered = StatusText();
    StatusText("Ready");
    Repaint();
    Pointer(pointer::Default);
    frmSelectAccount dialog(Data(), View(), TreeView, ports_.modal, ports_.messages);
    const bool chosen = dialog.ShowDialog(accountID) && KeepsAccount(accountID);
    Pointer(pointer::Hourglass);
    StatusText(remembered);
    Repaint();
    return chosen;
}

}  // namespace clb
