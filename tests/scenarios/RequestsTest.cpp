// Requests that cannot be carried out, statements, and what the log keeps.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class RequestsTest : public Scenario {
protected:
    /// The error number of a line that need not be JSON.
    int ErrorOfLine(const std::string& line)
    {
        const Json reply = Program().AskLine(line);
        EXPECT_EQ(reply["ok"], false) << line;
        EXPECT_NE(reply["error"]["message"], "") << line;
        return reply["error"]["number"].get<int>();
    }
};

TEST_F(RequestsTest, AnInvalidRequestIsAnErrorAndTheSessionContinues)
{
    for (const char* line : {"", "quit", "[]", "7", "null", "{", R"({"do":})", R"({"verb":"log"})",
                             R"({"do":7})", R"({"do":"dance"})", "{\"do\":\"\xFF\"}"})
        EXPECT_EQ(ErrorOfLine(line), 0) << line;

    EXPECT_EQ(Window()["view"], 1);
}

TEST_F(RequestsTest, WrongArgumentsAreErrorsAndChangeNothing)
{
    const Json before = Window();

    for (const char* line : {R"({"do":"click"})",
                             R"({"do":"click","index":0})",
                             R"({"do":"click","index":3})",
                             R"({"do":"click","text":"Wallet"})",
                             R"({"do":"click","index":"2"})",
                             R"({"do":"set","control":"cmbPeriod","to":13})",
                             R"({"do":"set","control":"cmbPeriod","to":"3"})",
                             R"({"do":"set","control":"txtYear","to":2007})",
                             R"({"do":"set","control":"UpDown","to":2})",
                             R"({"do":"set","control":"txtTotal","to":"1"})",
                             R"({"do":"focus","control":"lblTotal"})",
                             R"({"do":"focus","control":"grid"})",
                             R"({"do":"menu","item":"mnuF_Rule"})",
                             R"({"do":"menu","item":"mnuFile"})",
                             R"({"do":"toolbar","button":"new"})",
                             R"({"do":"move","row":9,"col":1})",
                             R"({"do":"move","row":"last","col":1})",
                             R"({"do":"move","row":1,"col":0})",
                             R"({"do":"answer"})",
                             R"({"do":"answer","box":"Maybe"})",
                             R"({"do":"answer","form":"frmSplit","steps":[{"jump":1}]})",
                             R"({"do":"call","op":"Nothing"})",
                             R"({"do":"call","op":"Max","args":[1]})",
                             R"({"do":"call","op":"Max","args":{"a":1}})",
                             R"({"do":"call","op":"ViewSet","args":["Month",3]})",
                             R"({"do":"call","op":"ViewSet","args":["Period","3"]})",
                             R"({"do":"call","op":"ViewGet","args":["HoldRefresh"]})",
                             R"({"do":"sql"})",
                             R"({"do":"trace"})",
                             R"({"do":"history","limit":0})",
                             R"({"do":"history","limit":1.5})",
                             R"({"do":"history","limit":"3"})",
                             R"({"do":"history","limit":null})",
                             R"({"do":"history","step":-1})",
                             R"({"do":"history","step":true})",
                             R"({"do":"history","step":99})",
                             R"({"do":"history","limit":0,"step":1})"})
        EXPECT_EQ(ErrorOfLine(line), 0) << line;

    EXPECT_EQ(ToLine(Window()), ToLine(before));
}

TEST_F(RequestsTest, AStatementGivesFieldsAndRows)
{
    AddAccount("B-1", "Bank", "Checking", "12.5");

    const Json reply = Do({{"do", "sql"},
                           {"text",
                            "SELECT Description, OpeningBalance, BudgetInclude, Sequence "
                            "FROM Account"}});
    EXPECT_EQ(ToLine(reply),
              R"({"ok":true,"fields":[{"name":"Description","type":"text"},)"
              R"({"name":"OpeningBalance","type":"money"},)"
              R"({"name":"BudgetInclude","type":"boolean"},{"name":"Sequence","type":"long"}],)"
              R"("rows":[["Checking","12.5",true,1]]})");

    const Json update = Do({{"do", "sql"}, {"text", "UPDATE Account SET Description = 'x'"}});
    EXPECT_EQ(ToLine(update), R"({"ok":true,"fields":[],"rows":[]})");
}

TEST_F(RequestsTest, TheEnginesErrorsKeepTheirNumber)
{
    EXPECT_EQ(ErrorOf({{"do", "sql"}, {"text", "SELECT * FROM Nowhere"}}),
              static_cast<std::int32_t>(0x80040E37));

    SetView("HoldRefresh", true);
    SetView("View", 0);
    EXPECT_NE(ErrorOf({{"do", "call"}, {"op", "ViewSet"}, {"args", {"HoldRefresh", false}}}), 0);
    SetView("View", 1);
    EXPECT_EQ(Window()["view"], 1);
}

TEST_F(RequestsTest, TheLogForgetsWhatItHasReturned)
{
    Call("Refresh");

    EXPECT_FALSE(Events().empty());
    EXPECT_TRUE(Events().empty());
}

TEST_F(RequestsTest, WhileTracingIsOnEachStatementIsLogged)
{
    Do({{"do", "trace"}, {"statements", true}});
    Events();

    Call("GetNextSequence");
    const std::vector<Json> traced = EventsOf("execute");
    Do({{"do", "trace"}, {"statements", false}});
    Call("GetNextSequence");

    ASSERT_EQ(traced.size(), 1U);
    EXPECT_EQ(traced[0]["text"], "SELECT MAX( Sequence ) AS NextSequence FROM Trans");
    EXPECT_TRUE(EventsOf("execute").empty());
}

TEST_F(RequestsTest, AReloadRunsInItsOrder)
{
    Events();

    Call("Refresh");

    std::string kinds;
    for (const Json& event : Events())
        kinds += event["event"].get<std::string>() +
                 (event.contains("value") ? "=" + ToLine(event["value"]) : "") + " ";
    EXPECT_EQ(kinds, "redraw=false redraw=true refresh ");
}

TEST_F(RequestsTest, StatementFilesAreExamined)
{
    EXPECT_EQ(Call("DetectFileFormat", {folder.Write("a.ofx", "<OFC>")}), 2);
    EXPECT_EQ(ErrorOf({{"do", "call"}, {"op", "DetectFileFormat"}, {"args", {folder.Path("c")}}}),
              53);

    Call("FixLineEndings", {folder.Write("d.ofx", "one\ntwo\n")});
    EXPECT_EQ(folder.Read("d.ofx"), "one\r\ntwo\r\n\r\n");
    EXPECT_EQ(folder.Read("d.ofx.org"), "one\ntwo\n");
}

TEST_F(RequestsTest, TagsAreFoundFromAPosition)
{
    EXPECT_EQ(ToLine(CallReply("FindTag", {1, "x<A>y", "<A>"})),
              R"({"ok":true,"result":true,"args":[2,"x<A>y","<A>"]})");
    EXPECT_EQ(ToLine(CallReply("FindTag", {3, "x<A>y", "<A>"})["args"][0]), "3");
    EXPECT_EQ(Call("GetTagValue", {1, "<A> caf\xC3\xA9 <B>", "<A>"}), "caf\xC3\xA9");
    EXPECT_EQ(ToLine(CallReply("GetTagBlock", {1, "\xC3\xA9<A>in</A>out", "A"})),
              R"({"ok":true,"result":"in","args":[11,")"
              "\xC3\xA9"
              R"(<A>in</A>out","A"]})");
}

TEST_F(RequestsTest, TheZoneIsThatOfTheStoppedClock)
{
    setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
    now = "2006-07-01T00:00:00";

    EXPECT_EQ(Call("TimeZoneOffset"), -4);

    unsetenv("TZ");
}

TEST_F(RequestsTest, OnlyAWindowHasAPicture)
{
    const bool window = std::getenv("CLB_AUTOMATE") != nullptr;

    const Json reply = Program().Ask({{"do", "screenshot"}, {"file", folder.Path("x.png")}});

    EXPECT_EQ(reply.at("ok"), window);
    EXPECT_EQ(folder.Holds("x.png"), window);
}

}  // namespace
}  // namespace clb
