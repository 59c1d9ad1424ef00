// A fixture that drives the whole program by requests.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/AutomationClient.h"
#include "tests/support/BackAndForth.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// Drives the whole program from outside, on a fresh folder. It starts with the first request, on 5
/// March 2006 unless the test sets another date. At the end, undoing the whole history must lead to
/// the tables that the program found at its start, and redoing to those that the test has left.
class Scenario : public testing::Test {
protected:
    Scenario();
    void TearDown() override;

    AutomationClient& Program();

    /// Sends a request that must succeed.
    Json Do(const Json& request);
    /// Sends a request that must fail; returns the error's number.
    std::int64_t ErrorOf(const Json& request);

    /// Result of a call.
    Json Call(const std::string& operation, const Json& arguments = Json::array());
    Json CallReply(const std::string& operation, const Json& arguments);
    void Sql(const std::string& statement);
    /// Rows of a SELECT as one text: values in JSON, rows separated by blanks.
    std::string Rows(const std::string& select);
    Json Window();
    Json Grid();
    Json Columns();
    Json Tree();
    Json Events();
    /// Starts logging statements and forgets what was logged before.
    void Trace();
    /// Texts of the statements sent since the last call, one on each line.
    std::string Statements();
    /// Events of one kind since the last call; the others are forgotten too.
    std::vector<Json> EventsOf(const std::string& kind);
    /// Short texts for what happened since the last call, in order: "BeforeEdit(1,2,0,false)",
    /// "box(the text)", "redraw(false)", "tree".
    std::vector<std::string> Story();
    /// The story without the reading of figures and footers, which follows every look at the rows.
    std::vector<std::string> Deeds();
    /// How often the event is in the story.
    static std::size_t Count(const std::vector<std::string>& story, const std::string& event);
    /// Texts of the tree in order, the selected one in brackets.
    std::string TreeTexts();
    /// The account's stored balance.
    std::string Balance(const std::string& account);
    void Click(const std::string& node);
    /// Moves the focus; returns the name of the control that has it afterwards.
    std::string Focus(const std::string& control);
    void Menu(const std::string& item);
    void Press(const std::string& button);
    void AnswerBox(const std::string& button);
    void AnswerFile(const std::string& path);
    /// steps: a JSON array.
    void AnswerForm(const std::string& form, const std::string& steps);

    // These do what a user does in the grid; a row is its number or "new".
    bool Move(const Json& row, int column);
    bool Edit(const Json& row, int column, const std::string& text);
    void Begin(const Json& row, int column);
    bool Save();
    void Escape();
    Json Tip(const Json& row, int column);
    /// The rows of one kind, in order.
    std::vector<Json> RowsOf(const std::string& kind);
    /// Values of a column in the stored rows.
    std::string Column(int column);
    /// Row and column of the current cell, and whether it is in edit.
    std::string Current();
    void SetView(const std::string& property, const Json& value);

    void AddAccount(const std::string& id, const std::string& type, const std::string& description,
                    const std::string& opening = "0");
    void AddTransaction(const std::string& account, const std::string& month,
                        const std::string& amount, const std::string& category = "(none)");
    void AddBudget(const std::string& month, const std::string& category, const std::string& amount,
                   const std::string& group = "(none)");
    void AddHolding(const std::string& account, const std::string& symbol,
                    const std::string& total);
    void AddLoan(const std::string& account, const std::string& description,
                 const std::string& original, const std::string& paid);
    /// Shows changes that statements made without the window.
    void ShowAll();

    TempFolder folder;
    std::string now = "2006-03-05T10:00:00";
    std::vector<std::string> options;  ///< further options of the program
    /// What must come of undoing everything at the end.
    Past past = Past::Whole;

private:
    static std::string InShort(const Json& event);
    static std::string Quoted(const std::string& text);
    /// A day in the month, as SQL writes it.
    static std::string DayIn(const std::string& month);

    std::unique_ptr<AutomationClient> client_;
    TableDump start_;
    int lastTransaction_ = 0;
};

}  // namespace clb
