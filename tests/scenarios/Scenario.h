#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "data/EmptyDatabase.h"
#include "tests/support/AutomationClient.h"
#include "tests/support/TempFolder.h"

namespace clb {

/// The whole program on a fresh folder, driven from outside. It starts with the first request, on
/// 5 March 2006 unless told otherwise.
class Scenario : public testing::Test {
protected:
    Scenario() { folder.Write("db/clb.mdb", EmptyDatabase()); }

    AutomationClient& Program()
    {
        if (!client_) {
            std::vector<std::string> arguments{"--home", folder.Path(), "--now", now};
            arguments.insert(arguments.end(), options.begin(), options.end());
            client_ = std::make_unique<AutomationClient>(arguments);
        }
        return *client_;
    }

    /// A request that must go well.
    Json Do(const Json& request)
    {
        Json reply = Program().Ask(request);
        EXPECT_EQ(reply["ok"], true) << ToLine(request) << " -> " << ToLine(reply);
        return reply;
    }
    /// Number of the error that the request must give.
    std::int64_t ErrorOf(const Json& request)
    {
        const Json reply = Program().Ask(request);
        EXPECT_EQ(reply["ok"], false) << ToLine(request) << " -> " << ToLine(reply);
        return reply["ok"] == false ? reply["error"]["number"].get<std::int64_t>() : -1;
    }

    /// Result of a call.
    Json Call(const std::string& operation, const Json& arguments = Json::array())
    {
        return CallReply(operation, arguments)["result"];
    }
    Json CallReply(const std::string& operation, const Json& arguments)
    {
        return Do({{"do", "call"}, {"op", operation}, {"args", arguments}});
    }
    void Sql(const std::string& statement) { Do({{"do", "sql"}, {"text", statement}}); }
    /// Rows of a SELECT as one text: values in JSON, rows divided by blanks.
    std::string Rows(const std::string& select)
    {
        const Json reply = Do({{"do", "sql"}, {"text", select}});
        std::string text;
        for (const Json& row : reply["rows"])
            text += (text.empty() ? "" : " ") + ToLine(row);
        return text;
    }
    Json Window() { return Do({{"do", "window"}}); }
    Json Grid() { return Do({{"do", "grid"}}); }
    Json Columns() { return Grid()["columns"]; }
    Json Tree() { return Do({{"do", "tree"}})["nodes"]; }
    Json Events() { return Do({{"do", "log"}})["events"]; }
    /// Logs the statements that follow; what was logged before is forgotten.
    void Trace()
    {
        Do({{"do", "trace"}, {"statements", true}});
        Events();
    }
    /// Texts of the statements sent since the last look, one a line.
    std::string Statements()
    {
        std::string text;
        for (const Json& event : EventsOf("execute"))
            text += event["text"].get<std::string>() + "\n";
        return text;
    }
    /// Those of one kind; the others are forgotten too.
    std::vector<Json> EventsOf(const std::string& kind)
    {
        std::vector<Json> found;
        for (const Json& event : Events())
            if (event["event"] == kind)
                found.push_back(event);
        return found;
    }
    /// What happened since the last look, in order and in short: "BeforeEdit(1,2,0,false)",
    /// "box(the text)", "redraw(false)", "tree".
    std::vector<std::string> Story()
    {
        std::vector<std::string> story;
        for (const Json& event : Events())
            story.push_back(InShort(event));
        return story;
    }
    void Click(const std::string& node) { Do({{"do", "click"}, {"text", node}}); }
    /// Moves the focus; the name of the control that has it then.
    std::string Focus(const std::string& control)
    {
        return Do({{"do", "focus"}, {"control", control}})["focus"];
    }
    void Menu(const std::string& item) { Do({{"do", "menu"}, {"item", item}}); }
    void Press(const std::string& button) { Do({{"do", "toolbar"}, {"button", button}}); }
    void AnswerBox(const std::string& button) { Do({{"do", "answer"}, {"box", button}}); }
    void AnswerFile(const std::string& path) { Do({{"do", "answer"}, {"file", path}}); }
    /// steps: a JSON array.
    void AnswerForm(const std::string& form, const std::string& steps)
    {
        Do({{"do", "answer"}, {"form", form}, {"steps", Json::parse(steps)}});
    }

    // As by hand in the grid; a row is its number or "new".
    bool Move(const Json& row, int column)
    {
        return Do({{"do", "move"}, {"row", row}, {"col", column}})["moved"] == true;
    }
    bool Edit(const Json& row, int column, const std::string& text)
    {
        const Json reply = Do({{"do", "edit"}, {"row", row}, {"col", column}, {"text", text}});
        return reply["edited"] == true;
    }
    void Begin(const Json& row, int column)
    {
        Do({{"do", "begin"}, {"row", row}, {"col", column}});
    }
    bool Save() { return Do({{"do", "save"}})["saved"] == true; }
    void Escape() { Do({{"do", "escape"}}); }
    Json Tip(const Json& row, int column)
    {
        return Do({{"do", "tip"}, {"row", row}, {"col", column}})["text"];
    }
    /// The rows of one kind, in order.
    std::vector<Json> RowsOf(const std::string& kind)
    {
        const Json rows = Grid()["rows"];
        std::vector<Json> found;
        for (const Json& row : rows)
            if (row["kind"] == kind)
                found.push_back(row);
        return found;
    }
    /// Values of a column in the stored rows.
    std::string Column(int column)
    {
        std::string text;
        for (const Json& row : RowsOf("data"))
            text += (text.empty() ? "" : " ") +
                    ToLine(row["values"][static_cast<std::size_t>(column - 1)]);
        return text;
    }
    /// Row and column of the current cell, and whether it is in edit.
    std::string Current()
    {
        const Json grid = Grid();
        return grid["current"]["row"].dump() + "/" + grid["current"]["col"].dump() +
               (grid["editing"] == true ? " editing" : "") +
               (grid["dirty"] == true ? " dirty" : "");
    }
    void SetView(const std::string& property, const Json& value)
    {
        Call("ViewSet", Json::array({property, value}));
    }

    void AddAccount(const std::string& id, const std::string& type, const std::string& description,
                    const std::string& opening = "0")
    {
        Sql("INSERT INTO Account (AccountID, Description, Type, OpeningBalance) VALUES (" +
            Quoted(id) + ", " + Quoted(description) + ", " + Quoted(type) + ", " + opening + ")");
    }
    void AddTransaction(const std::string& account, const std::string& month,
                        const std::string& amount, const std::string& category = "(none)")
    {
        Sql("INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, "
            "Year, "
            "Period) VALUES (" +
            std::to_string(++lastTransaction_) + ", " + Quoted(account) + ", #" + DayIn(month) +
            "#, 'Shop', " + amount + ", " + Quoted(category) + ", " + month.substr(0, 4) + ", " +
            month.substr(5) + ")");
    }
    void AddBudget(const std::string& month, const std::string& category, const std::string& amount,
                   const std::string& group = "(none)")
    {
        Sql("INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (" +
            month.substr(0, 4) + ", " + month.substr(5) + ", " + Quoted(category) + ", " +
            Quoted(group) + ", " + amount + ")");
    }
    void AddHolding(const std::string& account, const std::string& symbol, const std::string& total)
    {
        Sql("INSERT INTO Investment (StockSymbol, StockName, PurchaseDate, Total, AccountID) "
            "VALUES (" +
            Quoted(symbol) + ", 'Shares', #2006-01-31#, " + total + ", " + Quoted(account) + ")");
    }
    void AddLoan(const std::string& account, const std::string& description,
                 const std::string& original, const std::string& paid)
    {
        Sql("INSERT INTO Loan (Description, OriginalAmount, PaidAmount, AccountID) VALUES (" +
            Quoted(description) + ", " + original + ", " + paid + ", " + Quoted(account) + ")");
    }
    /// Shows what statements changed behind the window's back.
    void ShowAll()
    {
        Call("BuildTree");
        Call("Refresh");
    }

    TempFolder folder;
    std::string now = "2006-03-05T10:00:00";
    std::vector<std::string> options;  ///< further ones of the program

private:
    static std::string InShort(const Json& event)
    {
        const std::string kind = event["event"];
        if (kind == "grid") {
            const std::string arguments = event["args"].dump();
            return event["name"].get<std::string>() + "(" +
                   arguments.substr(1, arguments.size() - 2) + ")";
        }
        for (const char* detail : {"text", "value"})
            if (event.contains(detail))
                return kind + "(" +
                       (event[detail].is_string() ? event[detail].get<std::string>()
                                                  : event[detail].dump()) +
                       ")";
        return kind;
    }
    static std::string Quoted(const std::string& text)
    {
        return "'" + Replace(text, "'", "''") + "'";
    }
    /// A day in the month, as SQL writes it.
    static std::string DayIn(const std::string& month)
    {
        return month.substr(0, 5) + (month.size() < 7 ? "0" : "") + month.substr(5) + "-15";
    }

    std::unique_ptr<AutomationClient> client_;
    int lastTransaction_ = 0;
};

}  // namespace clb
