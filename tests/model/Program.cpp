#include "tests/model/Program.h"

#include <algorithm>

#include "base/Text.h"
#include "controls/CheckList.h"
#include "controls/RowList.h"
#include "data/EmptyDatabase.h"
#include "engine/rows/Connection.h"
#include "engine/rows/RawSql.h"
#include "tests/model/ModelBooks.h"
#include "tests/model/ModelWindow.h"

namespace clb::model {
namespace {

constexpr int kRegister = 4;
constexpr int kFitid = 10;  // column of the register
constexpr std::size_t kAllRows = 1'000'000;

template <class T>
T& Part(Form& form, const char* name)
{
    return dynamic_cast<T&>(*form.Find(name));
}

void PressOk(Form& form)
{
    Part<Button>(form, "btnOK").Press();
}

/// The delivered database with the small books in it.
const std::string& StartDatabase()
{
    static const std::string bytes = [] {
        const TempFolder folder(TempFolder::Memory());
        folder.Write("db/clb.mdb", EmptyDatabase());
        {
            Connection connection;
            connection.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.Path() +
                            "\\db\\clb.mdb;Persist Security Info=False");
            for (const std::string& statement : Books::StartStatements())
                connection.Execute(statement);
            connection.Settle();
        }
        return folder.Read("db/clb.mdb");
    }();
    return bytes;
}

/// Rows of the books, without the notes that the program makes for itself.
std::size_t CountOwn(const std::vector<RowStory>& rows)
{
    return static_cast<std::size_t>(
        std::count_if(rows.begin(), rows.end(),
                      [](const RowStory& row) { return !row.table.starts_with("Cv"); }));
}

}  // namespace

std::optional<std::string> QuoteScript::Get(const std::string& url)
{
    if (++requests == fails)
        throw PortError(errors::NetworkFailure, "no network");
    const std::size_t from = url.find("?s=") + 3;
    return QuoteLine(url.substr(from, url.find("&f=") - from), day);
}

Program::Program()
{
    folder_.Write("db/clb.mdb", StartDatabase());
    Open(0);
}

Program::Program(Program& original)
{
    folder_.Write("db/clb.mdb", original.folder_.Read("db/clb.mdb"));
    Open(0);
    window_->ChooseMonth(original.window_->cmbPeriod.Index());
    window_->EnterYear(original.window_->txtYear.Text());
}

void Program::Open(int day)
{
    clock_.now = *Date::FromIso(PresentDays()[Around(day, PresentDays().size())]);
    const Ports ports{folder_.Path(), clock_, messages_, files_, shell_, pointer_,
                      dates_,         modal_, printing_, http_,  ""};
    window_ = std::make_unique<frmController>(ports, WindowMetrics());
    window_->Load();
}

void Program::Do(const Action& action)
{
    try {
        Perform(action);
    } catch (const RuntimeError&) {
        Recover();
    }
    modal_.steps.clear();
    messages_.answers.clear();
    files_.answers.clear();
    window_->Settle();
}

/// After the report of a runtime error: discards the row and shows the view again.
void Program::Recover()
{
    messages_.Show("failed", 0, "");
    Grid().Escape();
    Grid().Escape();
    window_->PressNode(window_->TreeView.Selected());
}

void Program::Perform(const Action& action)
{
    frmController& window = *window_;
    switch (action.deed) {
        case Deed::Press:
            window.PressNode(static_cast<std::int32_t>(Around(action.first, Nodes())) + 1);
            return;
        case Deed::Month:
            if (window.window.Focus(window.cmbPeriod))
                window.ChooseMonth(static_cast<std::int32_t>(Around(action.first, 12)));
            return;
        case Deed::Year:
            if (window.window.Focus(window.txtYear))
                window.EnterYear(Years()[Around(action.first, Years().size())]);
            return;
        case Deed::Spin:
            if (window.window.Focus(window.txtYear))
                window.UpDown.Step(action.first % 2 == 1 ? 1 : -1);
            return;
        case Deed::Back: return window.toolbar.Press("Back");
        case Deed::Forward: return window.toolbar.Press("Forward");
        case Deed::Click: GoTo(action); return;
        case Deed::Type: return Type(action, true);
        case Deed::Begin: return Type(action, false);
        case Deed::Fold: return Fold(action.first);
        case Deed::Save: window.Grid.Update(); return;
        case Deed::Escape: return Grid().Escape();
        case Deed::NewByMenu: return Menu("mnuE_New");
        case Deed::NewByButton: return window.toolbar.Press("New");
        case Deed::DeleteByMenu:
        case Deed::DeleteByButton:
            messages_.answers = {action.first != 0 ? BoxAnswer::Yes : BoxAnswer::No};
            return action.deed == Deed::DeleteByMenu ? Menu("mnuE_Delete")
                                                     : window.toolbar.Press("Delete");
        case Deed::MoveBack: return Menu("mnuE_MovePrev");
        case Deed::MoveForward: return Menu("mnuE_MoveNext");
        case Deed::Split: return Split(action);
        case Deed::CopyBudget: return Menu("mnuE_Copy");
        case Deed::Options: return Options(action);
        case Deed::ImportMarkup: return Import(Statement::Markup(action.first), action);
        case Deed::ImportRecords: return Import(Statement::Records(action.first), action);
        case Deed::Quotes: return Quotes(action);
        case Deed::Export: return Export();
        case Deed::ImportOther: return ImportOther();
        case Deed::Reopen: return Reopen(action);
        case Deed::Kill: return Kill(action);
        case Deed::Undo: return TakeSteps("mnuY_Undo", action);
        case Deed::Redo: return TakeSteps("mnuY_Redo", action);
        case Deed::GoBackTo: return GoBackTo(action);
        default: return;
    }
}

std::size_t Program::RowOf(int number)
{
    const std::size_t count = Grid().Rows().Count();
    if (number == kLastRow)
        return count;
    return number == kCurrentRow ? Grid().Row() : Around(number, count) + 1;
}

bool Program::GoTo(const Action& action)
{
    const std::size_t row = RowOf(action.first);
    const auto columns = static_cast<std::size_t>(Grid().Columns().Count());
    return window_->window.Focus(Grid()) &&
           Grid().MoveTo(row, static_cast<std::int32_t>(Around(action.second, columns)) + 1);
}

void Program::Type(const Action& action, bool end)
{
    if (!GoTo(action) || !Grid().BeginEdit(0))
        return;
    const auto column = static_cast<std::size_t>(Grid().Col() - 1);
    const std::vector<Typed>* texts = ColumnsOf(window_->View().View()).at(column).texts;
    // Types something even where nothing should be accepted.
    Grid().EditText(texts ? (*texts)[Around(action.third, texts->size())].text : "7");
    if (end && !Grid().EndEdit())
        Grid().CancelEdit();
}

/// Does what a click on the arrow of a heading does.
void Program::Fold(int number)
{
    const std::size_t row = RowOf(number);
    if (!window_->window.Focus(Grid()) || !Grid().MoveTo(row, Grid().Col()))
        return;
    if (Grid().Rows().Kind(Grid().Row()) == GridRowKind::GroupHeading)
        Grid().Fold(Grid().Row(), !Grid().Rows().Folded(Grid().Row()));
}

void Program::Split(const Action& action)
{
    modal_.steps.push_back([&action](Form& form) {
        const std::size_t which = Around(action.first, SplitAmounts().size());
        if (which != 0)
            Part<TextBox>(form, "txtNew").Text(SplitAmounts()[which].text);
        if (action.second != 0)
            PressOk(form);
    });
    Menu("mnuE_Split");
}

void Program::Options(const Action& action)
{
    modal_.steps.push_back([&action](Form& form) {
        CheckList& accounts = Part<CheckList>(form, "grdAccounts");
        if (!accounts.Rows().empty())
            accounts.Check(Around(action.first, accounts.Rows().size()) + 1,
                           action.second % 2 == 1);
        if (action.third != 0)
            PressOk(form);
    });
    Menu("mnuT_Options");
}

void Program::Import(const Statement& statement, const Action& action)
{
    clock_.ticks += 10;
    const std::string name =
        "statement" + std::to_string(++statements_) + (statement.records ? ".qif" : ".ofx");
    files_.answers = {folder_.Write(name, statement.Text())};
    modal_.steps.push_back([&action](Form& form) { AnswerAccountQuestion(form, action); });
    Menu("mnuF_Import");
}

void Program::ImportOther()
{
    files_.answers = {folder_.Write("letter.ofx", "Dear Sir,\r\n")};
    Menu("mnuF_Import");
    if (window_->window.Enabled())
        messages_.Show("the window is enabled", 0, "");
    window_->Unload();
    Open(0);
}

void Program::AnswerAccountQuestion(Form& form, const Action& action)
{
    static const char* const descriptions[] = {"Visa", "Imported", "O'Neil's"};
    switch (Around(action.second, 5)) {
        case 0:
        case 1:
            Part<TextBox>(form, "txtDescription").Text(descriptions[Around(action.third, 3)]);
            Part<ListBox>(form, "cmbAccountType")
                .Index(static_cast<std::int32_t>(Around(action.third, 4)));
            return PressOk(form);
        case 2:
        case 3: {
            OptionButton& map = Part<OptionButton>(form, "optAccount(1)");
            if (!map.Enabled())
                return;
            map.Choose();
            ListBox& accounts = Part<ListBox>(form, "cmbAccountID");
            accounts.Index(
                static_cast<std::int32_t>(Around(action.third, accounts.Items().size())));
            return PressOk(form);
        }
        default:
            if (action.third % 2 == 0)
                PressOk(form);
    }
}

void Program::Quotes(const Action& action)
{
    http_.day = action.first;
    http_.fails = action.second;
    http_.requests = 0;
    Menu("mnuT_UpdateQuotes");
}

/// Records what the exported file says about the account, its transactions and the balance.
void Program::Export()
{
    const std::string name = "export" + std::to_string(++statements_) + ".ofx";
    files_.answers = {folder_.Path(name)};
    Menu("mnuF_Export");
    if (!folder_.Holds(name))
        return;
    const std::string file = folder_.Read(name);
    const auto between = [&file](const std::string& before, const std::string& after) {
        const std::size_t from = file.find(before) + before.size();
        return file.substr(from, file.find(after, from) - from);
    };
    std::string text = between("<ACCTID>", "<ACCTTYPE>") + " ";
    const std::size_t first = std::min(file.find("<STMTTRN>"), file.find("</BANKTRANLIST>"));
    for (std::size_t at = first; at < file.find("<DTASOF>");) {
        const std::string mark = "<FITID>";
        const std::size_t from = std::min(file.find(mark, at), file.find("<DTASOF>"));
        text += file.substr(at, from - at);
        at = from;
        if (file.compare(at, mark.size(), mark) != 0)
            break;
        const std::size_t value = at + mark.size();
        at = file.find('<', value);
        text += mark + RunNames().Of(file.substr(value, at - value));
    }
    messages_.Show("exported " + text, 0, "");
}

void Program::Reopen(const Action& action)
{
    if (window_->Close())
        Open(action.first);
}

/// What the program would still write at its end does not reach the file.
void Program::Kill(const Action& action)
{
    const std::string file = folder_.Read("db/clb.mdb");
    window_.reset();
    folder_.Write("db/clb.mdb", file);
    Open(action.first);
}

void Program::TakeSteps(const char* item, const Action& action)
{
    for (int count = action.first % 4; count >= 0; --count) {
        Menu(item);
        window_->Settle();
    }
}

/// "Delete Record, 2" and ", undone" for each step, the newest first. Counts the rows of the books;
/// the number in the dialog also counts notes of the program's own.
std::vector<std::string> Program::StepTexts(const RowList& list)
{
    std::vector<std::string> texts;
    std::vector<const std::vector<std::string>*> shown;
    for (const RowList::Line& line : list.Lines())
        if (!line.IsHeading())
            shown.push_back(&line.row.cells);
    window_->Steps().Visit([&](const Step& step) {
        const std::vector<RowStory> rows = window_->Steps().Rows(step, kAllRows);
        const std::vector<std::string>& cells = *shown.at(texts.size());
        texts.push_back(cells.at(1) + ", " + std::to_string(CountOwn(rows)) +
                        (cells.at(2) == std::to_string(rows.size()) ? "" : " but " + cells.at(2)) +
                        (cells.at(3).empty() ? "" : ", " + cells.at(3)));
        return true;
    });
    return texts;
}

void Program::GoBackTo(const Action& action)
{
    modal_.steps.push_back([this, &action](Form& form) {
        RowList& list = Part<RowList>(form, "lstSteps");
        std::string text = "history";
        for (const std::string& step : StepTexts(list))
            text += "|" + step;
        messages_.Show(text, 0, "");
        std::vector<std::size_t> lines;
        for (std::size_t line = 1; line <= list.Lines().size(); ++line)
            if (!list.Lines()[line - 1].IsHeading())
                lines.push_back(line);
        if (lines.empty())
            return;
        list.Choose(lines[Around(action.first, lines.size())]);
        Button& back = Part<Button>(form, "btnBack");
        (back.Enabled() ? back : Part<Button>(form, "btnForward")).Press();
    });
    Menu("mnuY_Show");
}

std::size_t Program::Take(bool undo, std::size_t most)
{
    const auto steps = static_cast<std::int64_t>(most);
    History& history = window_->Steps();
    const std::size_t taken = (undo ? history.Undo(steps) : history.Redo(steps)).steps.size();
    window_->Settle();
    return taken;
}

std::vector<std::string> Program::Dump()
{
    std::vector<std::string> lines;
    RawSql book(window_->Data().Database());
    for (const char* table :
         {"Account", "Trans", "Budget", "Investment", "Loan", "_SchemaVersion"}) {
        int columns = 0;
        book.Select(
            "SELECT count(*) FROM pragma_table_info('" + std::string(table) + "')",
            [&columns](const RawSql::Row& row) { columns = static_cast<int>(row.Integer(0)); });
        book.Select("SELECT rowid, * FROM " + std::string(table) + " ORDER BY rowid",
                    [&](const RawSql::Row& row) {
                        std::string line = table;
                        for (int column = 0; column <= columns; ++column)
                            line += "|" + std::to_string(static_cast<int>(row.KindOf(column))) +
                                    ":" + std::string(row.Text(column));
                        lines.push_back(std::move(line));
                    });
    }
    return lines;
}

std::vector<std::string> Program::Shown()
{
    frmController& window = *window_;
    std::vector<std::string> all;
    for (const FakeMessageBox::Box& box : messages_.boxes) {
        // The statement's text follows the first line.
        const bool markup = box.text.rfind("Invalid data was found while importing:", 0) == 0;
        all.push_back("box|" + (markup ? box.text.substr(0, box.text.find('\n')) : box.text));
    }
    messages_.boxes.clear();
    all.push_back("caption|" + window.window.Caption());
    all.push_back("view|" + std::to_string(window.View().View()) + "|" + window.txtYear.Text() +
                  "|" + std::to_string(window.cmbPeriod.Index() + 1));
    const Tree& tree = window.TreeView;
    for (std::int32_t index = 1; index <= tree.Count(); ++index) {
        const TreeNode& node = tree.Node(index);
        all.push_back("node|" + std::to_string(node.parent) + "|" + node.text + "|" + node.key +
                      "|" + node.tag + (index == tree.Selected() ? "|selected" : ""));
    }
    for (std::size_t row = 1; row <= Grid().Rows().Count(); ++row)
        all.push_back(RowText(row));
    for (std::size_t row = 1; row <= Grid().Rows().Count(); ++row)
        if (const auto tip = Grid().CellTip(row, 1))
            all.push_back("tip|" + *tip);
    all.push_back("totals|" + window.lblTotal.Caption() + "|" + window.txtTotal.Text() + "|" +
                  window.txtTotal2.Text());
    all.push_back(Position());
    all.push_back(Commands());
    all.push_back("account|" + window.View().AccountID() + "|" + window.View().AccountType());
    std::string offered = "offered";
    if (window.View().View() == kRegister)
        for (const GridValueItem& item : Grid().Columns().Item(5).valueItems)
            offered += "|" + item.text;
    all.push_back(offered);
    return all;
}

Standing Program::Stands()
{
    Standing standing;
    standing.node = window_->TreeView.Selected();
    standing.view = window_->View().View();
    standing.month = {window_->View().Year(), window_->View().Period()};
    standing.account = window_->View().AccountID();
    standing.type = window_->View().AccountType();
    for (std::size_t row = 1; row <= Grid().Rows().Count(); ++row)
        if (Grid().Rows().Kind(row) == GridRowKind::GroupHeading)
            standing.folded.push_back(Grid().Rows().Folded(row));
    standing.row = Grid().Row();
    standing.column = Grid().Col();
    standing.inGrid = window_->window.Focus() == &Grid();
    return standing;
}

std::string Program::Position()
{
    const bool inGrid = window_->window.Focus() == &Grid();
    return "current|" + std::to_string(Grid().Row()) + "|" + std::to_string(Grid().Col()) +
           (Grid().Dirty() ? "|unsaved" : "") +
           (Grid().Editing() ? "|editing " + Grid().EditText() : "") +
           (Grid().Marked() ? "|marked" : "") + (inGrid ? "|in the grid" : "");
}

std::string Program::RowText(std::size_t row)
{
    std::string text;
    switch (Grid().Rows().Kind(row)) {
        case GridRowKind::GroupHeading: return "heading|" + Grid().Rows().HeadingText(row);
        case GridRowKind::GroupFooter: return "footer|" + Grid().FooterText(row);
        case GridRowKind::Data: text = "data"; break;
        case GridRowKind::NewRow: text = "new"; break;
    }
    const bool isRegister = window_->View().View() == kRegister;
    for (std::int32_t column = 1; column <= Grid().Columns().Count(); ++column) {
        const std::string cell = Grid().CellText(row, column);
        text += "|" + (isRegister && column == kFitid ? RunNames().Of(cell) : cell);
    }
    return text;
}

std::string Program::Commands()
{
    std::string text = "commands";
    const auto enabled = [this](const char* item) { return window_->menus.Find(item)->Enabled(); };
    for (const auto& [item, button, name] :
         {std::tuple{"mnuE_New", "New", "|New"}, std::tuple{"mnuE_Delete", "Delete", "|Delete"}}) {
        text += enabled(item) ? name : "";
        if (window_->toolbar.Find(button)->enabled != enabled(item))
            text += std::string("|but the button ") + button;
    }
    const bool transaction = enabled("mnuE_MovePrev");
    if (enabled("mnuE_MoveNext") != transaction || enabled("mnuE_Split") != transaction)
        text += "|some of";
    return text + (transaction ? "|Transaction" : "") + (enabled("mnuF_Export") ? "|Export" : "") +
           HistoryCaptions();
}

std::string Program::HistoryCaptions()
{
    std::string text;
    for (const char* item : {"mnuY_Undo", "mnuY_Redo"})
        if (const MenuItem* const line = window_->menus.Find(item); line->Enabled())
            text += "|" + Replace(line->Caption(), "&", "");
    return text;
}

void Program::AddRows(std::vector<std::string>& all, const std::string& name,
                      const std::string& select)
{
    Recordset records;
    window_->Data().Fill(records, select, true);
    RunNames names;
    const std::size_t fields = records.Fields().size();
    for (; !records.AtEnd(); records.MoveNext()) {
        std::string line = name;
        for (std::size_t field = 0; field < fields; ++field) {
            const std::string text = ToText(records.Get(field));
            line += "|" + (name == "Trans" && field + 1 == fields ? names.Of(text) : text);
        }
        all.push_back(line);
    }
}

std::vector<std::string> Program::Stored()
{
    std::vector<std::string> all;
    AddRows(all, "Account",
            "SELECT Sequence, AccountID, Description, Type, OpeningBalance, CurrentBalance, "
            "BudgetInclude FROM Account");
    AddRows(all, "Trans",
            "SELECT Sequence, SubSequence, AccountID, PostDate, Description, Amount, CheckID, "
            "Category, PayeeName, Year, Period, FITID FROM Trans");
    AddRows(all, "Budget",
            "SELECT Sequence, Year, Period, CategoryGroup, Category, Amount FROM Budget");
    AddRows(all, "Investment",
            "SELECT Sequence, StockSymbol, StockName, PurchaseDate, Quantity, PurchasePrice, "
            "LastPrice, Total, AccountID FROM Investment");
    AddRows(all, "Loan",
            "SELECT Sequence, Description, OriginalAmount, PaidAmount, InterestRate, AccountID "
            "FROM Loan");
    return all;
}

}  // namespace clb::model
