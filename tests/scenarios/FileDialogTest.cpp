// The dialogs for opening and saving a file, the zone's offset and the smaller routines.

#include "tests/scenarios/Scenario.h"

namespace clb {
namespace {

class FileDialogTest : public Scenario {
protected:
    Json Ask(const char* kind, const Json& properties = Json::object())
    {
        return Call("OpenSave", Json::array({kind, properties}));
    }
    /// Writes the object with its names sorted.
    static std::string Sorted(const Json& json)
    {
        return nlohmann::json::parse(json.dump()).dump();
    }
    static std::string Sorted(const char* text) { return nlohmann::json::parse(text).dump(); }
    /// Title and extension of a chosen path.
    std::string Parts(const std::string& path)
    {
        AnswerFile(path);
        const Json result = Ask("open");
        EXPECT_EQ(result["FileName"], path);
        return result["FileTitle"].get<std::string>() + "|" + result["FileExt"].get<std::string>();
    }
};

TEST_F(FileDialogTest, ANewDialogHasItsInitialValues)
{
    EXPECT_EQ(Sorted(Ask("open")),
              Sorted(R"({"chosen":false,"FileExt":"","hWnd":0,"MaxFileSize":260,
        "InitDir":"","Flags":0,"Filter":"All Files (*.*)|*.*","FilterIndex":1,"FileTitle":"",
        "FileName":"","DialogTitle":"","DefaultExt":""})"));
}

TEST_F(FileDialogTest, TheQuestionShowsWhatWasSet)
{
    Events();

    Ask("save", {{"Filter", "Statements|*.ofx;*.qfx|All|*.*"},
                 {"Flags", 2054},
                 {"DialogTitle", "Export caf\u00e9"},
                 {"FileName", "/home/me/march.ofx"}});
    Ask("open");

    const std::vector<Json> asked = EventsOf("file");
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(asked[0], Json::parse(R"({"event":"file","kind":"save",
        "filter":"Statements|*.ofx;*.qfx|All|*.*|","flags":2054,"title":"Export café",
        "name":"/home/me/march.ofx","answer":"","unanswered":true})"));
    EXPECT_EQ(asked[1]["kind"], "open");
    EXPECT_EQ(asked[1]["filter"], "All Files (*.*)|*.*");
    EXPECT_EQ(asked[1]["flags"], 0);
    EXPECT_EQ(asked[1]["title"], "");
    EXPECT_EQ(asked[1]["name"], "");
}

TEST_F(FileDialogTest, CancellingKeepsAllProperties)
{
    const Json given{{"FileExt", "old"},
                     {"hWnd", 7},
                     {"MaxFileSize", 100},
                     {"InitDir", "/srv"},
                     {"Flags", 4100},
                     {"Filter", "A|*.a|"},
                     {"FilterIndex", 2},
                     {"FileTitle", "title"},
                     {"FileName", "before.ofx"},
                     {"DialogTitle", "Pick"},
                     {"DefaultExt", "ofx"}};
    for (const char* kind : {"open", "save"}) {
        AnswerFile("");
        Json result = Ask(kind, given);
        EXPECT_EQ(result["chosen"], false);
        result.erase("chosen");
        EXPECT_EQ(Sorted(result), Sorted(given)) << kind;
    }
}

TEST_F(FileDialogTest, AChoiceSetsNameTitleExtensionAndFolderOnly)
{
    for (const char* kind : {"open", "save"}) {
        AnswerFile("/home/me/My statement.OFX");
        const std::string expected =
            Sorted(R"({"chosen":true,"FileExt":"OFX","hWnd":7,"MaxFileSize":260,
            "InitDir":"/home/me","Flags":4100,"Filter":"A|*.a|B|*.b|","FilterIndex":2,
            "FileTitle":"My statement.OFX","FileName":"/home/me/My statement.OFX",
            "DialogTitle":"Pick","DefaultExt":"qif"})");
        EXPECT_EQ(Sorted(Ask(kind, {{"hWnd", 7},
                                    {"Flags", 4100},
                                    {"Filter", "A|*.a|B|*.b"},
                                    {"FilterIndex", 2},
                                    {"FileTitle", "old"},
                                    {"FileExt", "old"},
                                    {"InitDir", "/srv"},
                                    {"DialogTitle", "Pick"},
                                    {"DefaultExt", "qif"}})),
                  expected);
    }
}

TEST_F(FileDialogTest, FlagsPassThroughUnchanged)
{
    for (const std::int32_t flags : {0, 2, 2054, 4100, 524288, -1}) {
        AnswerFile("/x/y.z");
        EXPECT_EQ(Ask("save", {{"Flags", flags}})["Flags"], flags);
    }
}

TEST_F(FileDialogTest, AFilterIsTheSameWithAndWithoutItsLastDivider)
{
    EXPECT_EQ(Call("Filter", {"A|*.a"}), "A|*.a|");
    EXPECT_EQ(Call("Filter", {"A|*.a|"}), "A|*.a|");
    EXPECT_EQ(Call("Filter", {"A|*.a;*.b|All (*.*)|*.*"}), "A|*.a;*.b|All (*.*)|*.*|");
    EXPECT_EQ(Call("Filter", {"caf\u00e9|*.\U0001F600"}), "caf\u00e9|*.\U0001F600|");
}

TEST_F(FileDialogTest, AnotherKindOrAWrongValueIsAnErrorAndAsksNothing)
{
    const auto wrong = [this](const Json& arguments) {
        return ErrorOf({{"do", "call"}, {"op", "OpenSave"}, {"args", arguments}});
    };
    Events();

    EXPECT_EQ(wrong(Json::array({"print", Json::object()})), 0);
    EXPECT_EQ(wrong(Json::array({"open", {{"Flags", "2"}}})), 0);
    EXPECT_EQ(wrong(Json::array({"open", {{"Title", "x"}}})), 0);
    EXPECT_EQ(wrong(Json::array({"open", "x"})), 0);
    EXPECT_TRUE(Events().empty());
}

}  // namespace
}  // namespace clb
