// The main window of the model.
#pragma once
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/Actions.h"
#include "tests/model/ModelBooks.h"
#include "tests/model/ModelHistory.h"
#include "tests/model/Statements.h"

namespace clb::model {

/// The main window of the model, as its user sees it: what is shown, the row in edit, and what each
/// deed does to the books.
class ModelWindow {
public:
    explicit ModelWindow(Flaw flaw = Flaw::None);

    /// Closes the window with whatever is unsaved, starts the program again and shows the month.
    void OpenAt(BudgetMonth month);
    [[nodiscard]] BudgetMonth Month() const { return month_; }
    /// Performs any deed except Look.
    void Do(const Action& action);
    /// Goes where the program went after Undo or Redo. Which of the touched rows it shows is tested
    /// elsewhere; here, everything that is shown there is compared.
    void StandAt(const Standing& standing);
    /// Everything that is shown, line by line, including the message boxes since the last call.
    std::vector<std::string> Shown();
    [[nodiscard]] std::vector<std::string> Stored() const { return books_.Lines(); }
    [[nodiscard]] const ModelHistory& History() const { return history_; }
    [[nodiscard]] std::size_t Nodes() const { return tree_.size(); }
    [[nodiscard]] int SelectedNode() const { return selected_; }
    /// Describes the deed in words, with the texts that it means now.
    [[nodiscard]] std::string Describe(const Action& action) const;

private:
    struct Node {
        std::size_t parent = 0;  ///< from 1; 0 for none
        std::string text, key, tag;
    };
    enum class Kind { Data, Heading, Footer, New };
    struct Line {
        Kind kind = Kind::Data;
        long row = 0;  ///< number of a data row
        std::string group;
    };
    /// A row to come back to. If the row is gone, its place counts.
    struct Spot {
        std::size_t place = 0;
        Line line;
        long sequence = 0;
    };
    using Value = std::string;  ///< empty means both null and the empty text

    // What is shown
    /// Opens the program on one of the days on which it is started.
    void Open(int day);
    void Refresh();
    [[nodiscard]] std::vector<long> Query() const;
    [[nodiscard]] std::vector<Line> Lines() const;
    [[nodiscard]] Line Current() const { return Lines().at(row_ - 1); }
    [[nodiscard]] std::vector<Value> Stored(long row) const;
    [[nodiscard]] std::vector<std::string> Texts(const Line& line, bool current) const;
    void Calculate(const std::vector<Value>& values, std::vector<std::string>& texts) const;
    [[nodiscard]] std::string TextOf(const Line& line, bool current) const;
    [[nodiscard]] std::string Totals() const;
    [[nodiscard]] std::pair<Amount, Amount> AccountTotals() const;
    [[nodiscard]] Amount BalanceSoFar() const;
    [[nodiscard]] std::string Position() const;
    [[nodiscard]] std::string Tip(const Line& line, bool current) const;

    // The tree
    void BuildTree();
    void PressNode(std::size_t node);
    void ClickNode(std::size_t node);
    [[nodiscard]] std::size_t NodeLike(const Node& sought, std::size_t place) const;
    [[nodiscard]] std::size_t FindTag(const std::string& tag) const;
    void RemoveNode(std::size_t node);

    // The grid
    [[nodiscard]] bool ListsAccounts() const { return view_ == 1 || view_ == 3; }
    [[nodiscard]] bool Dirty() const { return !typed_.empty(); }
    [[nodiscard]] bool HasRow() const { return Current().kind != Kind::New; }
    [[nodiscard]] bool CanNew() const { return !inGrid_ || HasRow(); }
    [[nodiscard]] bool CanDelete() const { return inGrid_ && HasRow() && !editing_; }
    [[nodiscard]] bool CanExport() const;
    /// In views that list accounts, the account that the window counts as chosen follows the
    /// current row.
    void Choose();
    [[nodiscard]] bool OnTransaction() const { return inGrid_ && HasRow() && view_ == 4; }
    [[nodiscard]] std::size_t RowOf(int number) const;
    [[nodiscard]] Spot SpotOf(std::size_t row) const;
    [[nodiscard]] std::size_t Find(const Spot& spot) const;
    bool MoveTo(std::size_t row, int column);
    bool Begin(const Action& action);
    bool EndEdit();
    void CancelEdit();
    [[nodiscard]] std::string EditText() const;
    void Fold(int number);
    void ForgetFolded();
    bool Save();
    bool Leave();  ///< leaves the grid for another control
    std::string Refusal(int& column) const;
    [[nodiscard]] bool NumberTaken(const std::string& id) const;
    long StoreRow();
    long StoreAccount();
    long StoreLine();
    long StoreTransaction();
    long StoreHolding();
    long StoreLoan();
    void Escape();
    void Delete(bool yes);
    void RemoveRow(long row);
    /// Value of a cell of the current row, including what was typed into it.
    [[nodiscard]] Value Cell(int column) const;
    void Take(int column, std::string& text) const;
    void Take(int column, Amount& amount) const;
    void Balance() { books_.UpdateBalance(view_, account_); }

    // The history
    [[nodiscard]] std::string StepName(const Action& action) const;
    bool TakeSteps(bool undo, std::size_t count);
    void TakeOneByOne(bool undo, const Action& action);
    void GoBackTo(int step);
    void Reload();

    // Commands
    void Perform(const Action& action);
    void StepMonth(int direction);
    void ShowMonth(BudgetMonth month);
    void NewRecord();
    void Move(int direction);
    void Split(const Action& action);
    void CopyBudget();
    void Options(const Action& action);
    void Import(const Statement& statement, const Action& action);
    bool FindAccount(std::string& id, const Action& action);
    bool MapAccount(std::string& id, int which);
    void ReadMarkup(const Statement& statement, const std::string& id);
    void ReadRecords(const Statement& statement, const std::string& id);
    void ReadCategories(const Statement& statement);
    void ReadEntry(const StatementRecord& entry, const std::string& date, const std::string& id,
                   const std::string& run, std::string& skipped);
    [[nodiscard]] bool HasRecord(const StatementRecord& entry, const std::string& date,
                                 Amount amount, const std::string& check, const std::string& id,
                                 const std::string& run) const;
    void ShowInTree(const std::string& id);
    void ShowImportedAccount();
    void Quotes(const Action& action);
    [[nodiscard]] std::string Exported() const;
    void Recover();

    Books books_;
    ModelHistory history_;
    std::string command_;  ///< what a step of the running command is called
    int files_ = 0;        ///< imported and exported so far
    std::vector<Node> tree_;
    int selected_ = 1;
    std::string caption_;
    int view_ = 1;
    BudgetMonth month_;
    std::string account_, type_;
    std::vector<long> rows_;            ///< data rows in the order in which they were read or added
    std::vector<std::string> offered_;  ///< categories to choose from in a register
    std::set<std::string> folded_;      ///< groups
    std::map<long, Amount> oldPrices_;  ///< of rows that were read before the prices changed
    bool inGrid_ = false;
    std::size_t row_ = 1;
    int column_ = 1;
    bool editing_ = false;
    std::optional<Typed> text_;  ///< typed into the cell in edit and not accepted yet
    bool marked_ = false;        ///< the cell in edit is the one to correct
    std::map<int, Value> typed_;
    std::vector<std::string> boxes_;
};

/// The quote service's answer on a day, as a line; and the price that it means, empty for none.
std::string QuoteLine(const std::string& symbol, int day);
std::string QuotedPrice(const std::string& symbol, int day);

}  // namespace clb::model
