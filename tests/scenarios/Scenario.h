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
        if (!client_)
            client_ = std::make_unique<AutomationClient>(
                std::vector<std::string>{"--home", folder.Path(), "--now", now});
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
    Json Tree() { return Do({{"do", "tree"}})["nodes"]; }
    Json Events() { return Do({{"do", "log"}})["events"]; }
    /// Those of one kind; the others are forgotten too.
    std::vector<Json> EventsOf(const std::string& kind)
    {
        std::vector<Json> found;
        for (const Json& event : Events())
            if (event["event"] == kind)
                found.push_back(event);
        return found;
    }
    void Click(const std::string& node) { Do({{"do", "click"}, {"text", node}}); }
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
    /// Shows what statements changed behind the window's back.
    void ShowAll()
    {
        Call("BuildTree");
        Call("Refresh");
    }

    TempFolder folder;
    std::string now = "2006-03-05T10:00:00";

private:
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
