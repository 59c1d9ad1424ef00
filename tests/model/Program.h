// Runs the actions of a random user in the program without its window.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "app/frmController.h"
#include "controls/RowList.h"
#include "tests/model/Actions.h"
#include "tests/model/ModelBooks.h"
#include "tests/model/Statements.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TempFolder.h"

namespace clb::model {

/// Answers each symbol with the line of the day. The request with the given number fails; 0 means
/// none.
class QuoteScript : public IHttpClient {
public:
    std::optional<std::string> Get(const std::string& url) override;

    int day = 0;
    int fails = 0;
    int requests = 0;
};

/// The whole program without its window, in a new folder with the small books that every run begins
/// with, and a user who does what the actions say.
class Program {
public:
    Program();
    /// A second program on a copy of what another one has stored. It shows the same month.
    explicit Program(Program& original);

    /// Performs any deed except Look, as a user would, with the work of a front end after each
    /// command.
    void Do(const Action& action);
    [[nodiscard]] Standing Stands();
    /// Everything that is shown, line by line, including the message boxes since the last call.
    std::vector<std::string> Shown();
    /// Every row of every table as a line.
    std::vector<std::string> Stored();
    /// Every cell of every table as it is stored, and the identities of the rows; without the
    /// history itself.
    std::vector<std::string> Dump();
    /// Undoes or redoes without the window. Returns how many steps.
    std::size_t Take(bool undo, std::size_t most);
    [[nodiscard]] std::size_t Nodes() const
    {
        return static_cast<std::size_t>(window_->TreeView.Count());
    }

private:
    void Open(int day);
    void Perform(const Action& action);
    void Recover();
    GridComponent& Grid() { return window_->Grid; }
    std::size_t RowOf(int number);
    bool GoTo(const Action& action);
    void Type(const Action& action, bool end);
    void Fold(int number);
    std::string Position();
    void Menu(const char* item) { window_->menus.Find(item)->Press(); }
    void Split(const Action& action);
    void Options(const Action& action);
    void Import(const Statement& statement, const Action& action);
    static void AnswerAccountQuestion(Form& form, const Action& action);
    void Quotes(const Action& action);
    void Export();
    void ImportOther();
    void Reopen(const Action& action);
    void Kill(const Action& action);
    void TakeSteps(const char* item, const Action& action);
    std::vector<std::string> StepTexts(const RowList& list);
    void GoBackTo(const Action& action);
    std::string RowText(std::size_t row);
    std::string Commands();
    std::string HistoryCaptions();
    void AddRows(std::vector<std::string>& all, const std::string& name, const std::string& select);

    TempFolder folder_{TempFolder::Memory()};
    FakeClock clock_;
    FakeMessageBox messages_;
    FakeFileDialog files_;
    FakeShell shell_;
    FakePrintJob printing_;
    FakePointer pointer_;
    IsoDateForm dates_;
    FakeModalHost modal_;
    QuoteScript http_;
    std::unique_ptr<frmController> window_;
    int statements_ = 0;
};

}  // namespace clb::model
