#include "tests/scenarios/Scenario.h"

#include <algorithm>

#include "base/Text.h"
#include "data/EmptyDatabase.h"

namespace clb {

Scenario::Scenario()
{
    folder.Write("db/clb.mdb", EmptyDatabase());
}

void Scenario::TearDown()
{
    if (!client_)
        return;
    client_.reset();
    const WayBack back = GoBackAndForth(folder.Path("db/clb.mdb"), start_);
    EXPECT_EQ(back.past, past) << back.why;
}

AutomationClient& Scenario::Program()
{
    if (!client_) {
        std::vector<std::string> arguments{"--home", folder.Path(), "--now", now};
        arguments.insert(arguments.end(), options.begin(), options.end());
        client_ = std::make_unique<AutomationClient>(arguments);
        start_ = WithoutHistory(DumpOf(folder.Path("db/clb.mdb")));
    }
    return *client_;
}

Json Scenario::Do(const Json& request)
{
    Json reply = Program().Ask(request);
    EXPECT_EQ(reply["ok"], true) << ToLine(request) << " -> " << ToLine(reply);
    return reply;
}

std::int64_t Scenario::ErrorOf(const Json& request)
{
    const Json reply = Program().Ask(request);
    EXPECT_EQ(reply["ok"], false) << ToLine(request) << " -> " << ToLine(reply);
    return reply["ok"] == false ? reply["error"]["number"].get<std::int64_t>() : -1;
}

Json Scenario::Call(const std::string& operation, const Json& arguments)
{
    return CallReply(operation, arguments)["result"];
}

Json Scenario::CallReply(const std::string& operation, const Json& arguments)
{
    return Do({{"do", "call"}, {"op", operation}, {"args", arguments}});
}

void Scenario::Sql(const std::string& statement)
{
    Do({{"do", "sql"}, {"text", statement}});
}

std::string Scenario::Rows(const std::string& select)
{
    const Json reply = Do({{"do", "sql"}, {"text", select}});
    std::string text;
    for (const Json& row : reply["rows"])
        text += (text.empty() ? "" : " ") + ToLine(row);
    return text;
}

Json Scenario::Window()
{
    return Do({{"do", "window"}});
}

Json Scenario::Grid()
{
    return Do({{"do", "grid"}});
}

Json Scenario::Columns()
{
    return Grid()["columns"];
}

Json Scenario::Tree()
{
    return Do({{"do", "tree"}})["nodes"];
}

Json Scenario::Events()
{
    return Do({{"do", "log"}})["events"];
}

void Scenario::Trace()
{
    Do({{"do", "trace"}, {"statements", true}});
    Events();
}

std::string Scenario::Statements()
{
    std::string text;
    for (const Json& event : EventsOf("execute"))
        text += event["text"].get<std::string>() + "\n";
    return text;
}

std::vector<Json> Scenario::EventsOf(const std::string& kind)
{
    std::vector<Json> found;
    for (const Json& event : Events())
        if (event["event"] == kind)
            found.push_back(event);
    return found;
}

std::vector<std::string> Scenario::Story()
{
    std::vector<std::string> story;
    for (const Json& event : Events())
        story.push_back(InShort(event));
    return story;
}

std::vector<std::string> Scenario::Deeds()
{
    std::vector<std::string> deeds;
    for (const std::string& event : Story())
        if (event.rfind("Fetch", 0) != 0)
            deeds.push_back(event);
    return deeds;
}

std::size_t Scenario::Count(const std::vector<std::string>& story, const std::string& event)
{
    return static_cast<std::size_t>(std::count(story.begin(), story.end(), event));
}

std::string Scenario::TreeTexts()
{
    std::string texts;
    for (const Json& node : Tree()) {
        const std::string text = node["text"];
        texts += (texts.empty() ? "" : ", ") + (node["selected"] == true ? "[" + text + "]" : text);
    }
    return texts;
}

std::string Scenario::Balance(const std::string& account)
{
    return Rows("SELECT CurrentBalance FROM Account WHERE AccountID = '" + account + "'");
}

void Scenario::Click(const std::string& node)
{
    Do({{"do", "click"}, {"text", node}});
}

std::string Scenario::Focus(const std::string& control)
{
    return Do({{"do", "focus"}, {"control", control}})["focus"];
}

void Scenario::Menu(const std::string& item)
{
    Do({{"do", "menu"}, {"item", item}});
}

void Scenario::Press(const std::string& button)
{
    Do({{"do", "toolbar"}, {"button", button}});
}

void Scenario::AnswerBox(const std::string& button)
{
    Do({{"do", "answer"}, {"box", button}});
}

void Scenario::AnswerFile(const std::string& path)
{
    Do({{"do", "answer"}, {"file", path}});
}

void Scenario::AnswerForm(const std::string& form, const std::string& steps)
{
    Do({{"do", "answer"}, {"form", form}, {"steps", Json::parse(steps)}});
}

bool Scenario::Move(const Json& row, int column)
{
    return Do({{"do", "move"}, {"row", row}, {"col", column}})["moved"] == true;
}

bool Scenario::Edit(const Json& row, int column, const std::string& text)
{
    const Json reply = Do({{"do", "edit"}, {"row", row}, {"col", column}, {"text", text}});
    return reply["edited"] == true;
}

void Scenario::Begin(const Json& row, int column)
{
    Do({{"do", "begin"}, {"row", row}, {"col", column}});
}

bool Scenario::Save()
{
    return Do({{"do", "save"}})["saved"] == true;
}

void Scenario::Escape()
{
    Do({{"do", "escape"}});
}

Json Scenario::Tip(const Json& row, int column)
{
    return Do({{"do", "tip"}, {"row", row}, {"col", column}})["text"];
}

std::vector<Json> Scenario::RowsOf(const std::string& kind)
{
    const Json rows = Grid()["rows"];
    std::vector<Json> found;
    for (const Json& row : rows)
        if (row["kind"] == kind)
            found.push_back(row);
    return found;
}

std::string Scenario::Column(int column)
{
    std::string text;
    for (const Json& row : RowsOf("data"))
        text +=
            (text.empty() ? "" : " ") + ToLine(row["values"][static_cast<std::size_t>(column - 1)]);
    return text;
}

std::string Scenario::Current()
{
    const Json grid = Grid();
    return grid["current"]["row"].dump() + "/" + grid["current"]["col"].dump() +
           (grid["editing"] == true ? " editing" : "") + (grid["dirty"] == true ? " dirty" : "");
}

void Scenario::SetView(const std::string& property, const Json& value)
{
    Call("ViewSet", Json::array({property, value}));
}

void Scenario::AddAccount(const std::string& id, const std::string& type,
                          const std::string& description, const std::string& opening)
{
    Sql("INSERT INTO Account (AccountID, Description, Type, OpeningBalance) VALUES (" + Quoted(id) +
        ", " + Quoted(description) + ", " + Quoted(type) + ", " + opening + ")");
}

void Scenario::AddTransaction(const std::string& account, const std::string& month,
                              const std::string& amount, const std::string& category)
{
    Sql("INSERT INTO Trans (Sequence, AccountID, PostDate, Description, Amount, Category, "
        "Year, Period) VALUES (" +
        std::to_string(++lastTransaction_) + ", " + Quoted(account) + ", #" + DayIn(month) +
        "#, 'Shop', " + amount + ", " + Quoted(category) + ", " + month.substr(0, 4) + ", " +
        month.substr(5) + ")");
}

void Scenario::AddBudget(const std::string& month, const std::string& category,
                         const std::string& amount, const std::string& group)
{
    Sql("INSERT INTO Budget (Year, Period, Category, CategoryGroup, Amount) VALUES (" +
        month.substr(0, 4) + ", " + month.substr(5) + ", " + Quoted(category) + ", " +
        Quoted(group) + ", " + amount + ")");
}

void Scenario::AddHolding(const std::string& account, const std::string& symbol,
                          const std::string& total)
{
    Sql("INSERT INTO Investment (StockSymbol, StockName, PurchaseDate, Total, AccountID) VALUES (" +
        Quoted(symbol) + ", 'Shares', #2006-01-31#, " + total + ", " + Quoted(account) + ")");
}

void Scenario::AddLoan(const std::string& account, const std::string& description,
                       const std::string& original, const std::string& paid)
{
    Sql("INSERT INTO Loan (Description, OriginalAmount, PaidAmount, AccountID) VALUES (" +
        Quoted(description) + ", " + original + ", " + paid + ", " + Quoted(account) + ")");
}

void Scenario::ShowAll()
{
    Call("BuildTree");
    Call("Refresh");
}

std::string Scenario::InShort(const Json& event)
{
    std::string kind = event["event"];
    if (kind == "grid") {
        const std::string arguments = event["args"].dump();
        return event["name"].get<std::string>() + "(" + arguments.substr(1, arguments.size() - 2) +
               ")";
    }
    for (const char* detail : {"text", "value"})
        if (event.contains(detail))
            return kind + "(" +
                   (event[detail].is_string() ? event[detail].get<std::string>()
                                              : event[detail].dump()) +
                   ")";
    return kind;
}

std::string Scenario::Quoted(const std::string& text)
{
    return "'" + Replace(text, "'", "''") + "'";
}

std::string Scenario::DayIn(const std::string& month)
{
    return month.substr(0, 5) + (month.size() < 7 ? "0" : "") + month.substr(5) + "-15";
}

}  // namespace clb
