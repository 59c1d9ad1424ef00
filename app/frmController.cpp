#include "app/frmController.h"

#include <unistd.h>

#include "app/OtherPrograms.h"
#include "app/PrintedPage.h"
#include "app/TreePlaces.h"
#include "app/clsIni.h"
#include "base/Numeric.h"
#include "base/Quietly.h"
#include "data/NoticedBalances.h"

namespace clb {
namespace {

/// Parses a year. Returns 0 if the text is not a number. 64 bits, so that the year after the last
/// one is rejected like any other bad year instead of overflowing.
std::int64_t YearNumber(const std::string& text)
{
    return IsNumeric(text) ? ParseLong(text) : 0;
}

}  // namespace

frmController::frmController(const Ports& ports, const WindowMetrics& metrics)
    : unlocked_(ports, [this] { ReleaseLock(); }),
      window("frmController", std::string("Net Worth - ") + product::kTitle),
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
      result("ResultBar"),
      ports_(unlocked_.Around(ports)),
      layout_(*this, metrics),
      bars_(*this),
      results_(*this),
      quotes_(*this),
      rows_(*this),
      unseen_(*this),
      marked_(*this),
      balances_(*this),
      importHost_(*this),
      exportHost_(ports_.files),
      others_(std::make_unique<OtherPrograms>(*this, ports_.messages))
{
    for (Control* control :
         std::initializer_list<Control*>{&TreeView, &Grid, &cmbPeriod, &txtYear, &UpDown, &txtTotal,
                                         &txtTotal2, &lblTotal, &toolbar, &statusBar})
        window.Add(*control);
    for (std::int32_t month = 0; month < 12; ++month)
        cmbPeriod.Add(std::string(kMonthNames[static_cast<std::size_t>(month)]), month + 1);
    UpDown.Attach(txtYear);
    txtTotal.Locked(true);
    txtTotal2.Locked(true);
    result.Changed().connect([this] { layout_.PlaceAgain(); });
    Resize(900, 600);
}

frmController::~frmController() = default;

void frmController::OpenGlobals()
{
    globals_.view = std::make_unique<clsView>(
        ViewTargets{window, Grid, TreeView, lblTotal, txtTotal, txtTotal2, cmbPeriod, txtYear,
                    [this](const EnabledNow& now) { bars_.Enable(now); }, statusBar,
                    ports_.messages, product::kTitle, ports_.showsResults});
    globals_.database = std::make_unique<clsDatabase>(ports_.folder, *globals_.view, Grid);
    globals_.view->Use(*globals_.database);
    history_ = std::make_unique<History>(
        Data().Database(), [this] { return ports_.clock.Now(); }, std::to_string(getpid()));
    import_ =
        std::make_unique<modImport>(Data(), View(), importHost_, ports_.messages, ports_.clock);
    export_ = std::make_unique<modExport>(Data(), View(), exportHost_, ports_.clock);
}

void frmController::ShowPresentMonth()
{
    const Date now = ports_.clock.Now();
    cmbPeriod.Index(now.Month() - 1);
    txtYear.Text(std::to_string(now.Year()));
    // The box does not report a change if it shows this year already.
    View().Year(now.Year());
}

void frmController::Load()
{
    OpenGlobals();
    Connect();
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
    MakeDurable();
    history_->End();
    ShowStored();
    ShowHistory();
}

void frmController::SettleDialog()
{
    if (!loaded_)
        return;
    MakeDurable();
    ShowStored();
    ShowHistory();
}

void frmController::MakeDurable()
{
    View().DropClosedRows();
    stale_ = stale_ || Data().Database().LostGroup();
    try {
        Data().Database().Settle();
    } catch (...) {
        stale_ = true;
        ShowStored();
        throw;
    }
}

// Also called after what was written is durable, when no error may be reported any more.
void frmController::ShowHistory() noexcept
{
    Quietly([this] {
        const std::uint64_t written = Data().WritesElsewhere();
        if (history_->Changed() || written != historyShownAt_) {
            bars_.FollowHistory();
            history_->ChangesShown();
            historyShownAt_ = written;
        }
        results_.Follow();
        quotes_.Follow();
        unseen_.Follow();
    });
    Quietly([this] { balances_.Follow(); });
}

void frmController::Abandon() noexcept
{
    if (!globals_.database)
        return;
    Data().Database().Abandon();
    if (history_)
        history_->End();
    if (!loaded_)
        return;
    stale_ = true;
    rows_.BreakOff();
    // The command cannot enable the window itself any more.
    Quietly([this] { window.Enabled(true); });
    Quietly([this] { ports_.pointer.Pointer(pointer::Default); });
    if (View().HoldRefresh())
        Quietly([this] { View().HoldRefresh(false); });
    ShowStored();
}

/// Called before waiting for a person or a server, so that other programs do not have to wait too.
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

/// Shows the contents of the file again after an error took back what was written.
void frmController::ShowStored() noexcept
{
    if (!stale_)
        return;
    rows_.ForgetBalances();
    try {
        ReloadWindow();
        stale_ = false;
    } catch (...) {
        // The file cannot be read, or there is too little memory. The next command tries again.
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
    // The shown account may have another number now.
    const bool same =
        !View().Definition().ofAccount || TreeView.Node(TreeView.Selected()).tag == shown.tag;
    if (node != 0 && same)
        View().Refresh();
    else
        ShowSelected();
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
    history_.reset();
    globals_.Release();
}

bool frmController::Close()
{
    if (!Grid.MayLoseFocus())
        return false;
    Unload();
    return true;
}

void frmController::Connect()
{
    cmbPeriod.Click().connect([this] { View().Period(cmbPeriod.ItemData()); });
    txtYear.TextChanged().connect([this] {
        View().Year(ParseLong(txtYear.Text()));
        View().EnableDisable();
    });
    TreeView.NodeClick().connect([this](std::int32_t node) { NodeClicked(node); });
    Grid.OnRefetch([this] { View().EnableDisable(); });
    Grid.OnPrint([this] { return PrintedPage(*this); });
    for (Event<void()> moved : {TreeView.GotFocus(), TreeView.LostFocus()})
        moved.connect([this] { layout_.PlaceAgain(); });
    rows_.Connect();
    unseen_.Connect();
    marked_.Connect();
    bars_.Connect();
}

void frmController::ShowSelected()
{
    NodeClicked(TreeView.Selected());
}

void frmController::NodeClicked(std::int32_t node)
{
    const std::string text = TreeView.Node(node).text;
    window.Caption(text + " - " + product::kTitle);
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
    // Leaving the grid may have saved an account. Then the tree is rebuilt and its nodes have
    // moved.
    const std::int32_t now = NodeLike(TreeView, pressed, node);
    if (now != 0)
        TreeView.ClickNode(now);
    return now != 0;
}

void frmController::StepMonth(std::int32_t direction)
{
    constexpr std::int32_t kDecember = 11;
    View().HoldRefresh(true);
    const std::int32_t index = cmbPeriod.Index();
    if (direction > 0 && index == kDecember) {
        cmbPeriod.Index(0);
        txtYear.Text(std::to_string(YearNumber(txtYear.Text()) + 1));
    } else if (direction <= 0 && index == 0) {
        cmbPeriod.Index(kDecember);
        txtYear.Text(std::to_string(YearNumber(txtYear.Text()) - 1));
    } else {
        cmbPeriod.Index(index + (direction > 0 ? 1 : -1));
    }
    View().HoldRefresh(false);
}

void frmController::ShowMonth(const Month& month)
{
    View().HoldRefresh(true);
    ChooseMonth(month.period - 1);
    EnterYear(std::to_string(month.year));
    View().HoldRefresh(false);
}

void frmController::TreeWidth(std::int32_t pixels)
{
    layout_.TreeWidth(pixels);
    if (globals_.view)
        View().SetColWidths();
}

void frmController::Resize(std::int32_t width, std::int32_t height)
{
    layout_.Resize(width, height);
    if (globals_.view)
        View().SetColWidths();
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

std::string frmController::QuoteService() const
{
    std::string service = ports_.quoteService;
    if (service.empty()) {
        clsIni ini;
        ini.INIFile(SettingsFile());
        service = ini.GetString("Settings", "QuoteService");
    }
    // The path that follows begins with a slash.
    service.erase(service.find_last_not_of('/') + 1);
    return service.empty() ? product::kQuoteService : service;
}

}  // namespace clb
