// If output cannot be written, every command says so and ends with exit code 1.

#include <gmock/gmock.h>

#include "tests/cli/CommandFixture.h"

namespace clb {
namespace {

using testing::HasSubstr;

class OutputTest : public CommandFixture {
protected:
    void SetUp() override { ASSERT_EQ(Run("demo " + Books()), 0) << Err(); }

    /// Runs clb with its output redirected by the shell. Returns the exit code.
    int RunInto(const std::string& words, const std::string& where, const std::string& before = "")
    {
        const std::string command =
            before + "'" CLB_PROGRAM "' " + words + " 2>'" + folder.Path("err") + "' " + where;
        const std::string script = "bash -c \"" + command + "\"";
        const int status = std::system(script.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /// Shell commands that open a pipe as number 4. Its reader is gone before clb starts.
    std::string PipeWithoutReader()
    {
        const std::string pipe = "'" + folder.Path("pipe") + "'";
        return "[ -p " + pipe + " ] || mkfifo " + pipe + "; exec 3<>" + pipe + " 4>" + pipe +
               " 3>&-; ";
    }
    void ExpectRefused(const std::string& words)
    {
        EXPECT_EQ(RunInto(words, ">/dev/full"), 1) << words;
        EXPECT_THAT(Err(), HasSubstr("clb: Standard output cannot be written: No space left on "
                                     "device."))
            << words;
        EXPECT_EQ(RunInto(words, ">&4", PipeWithoutReader()), 1) << words;
        EXPECT_THAT(Err(), HasSubstr("clb: Standard output cannot be written: Broken pipe."));
        EXPECT_EQ(RunInto(words, ">&-"), 1) << words;
        EXPECT_THAT(Err(), HasSubstr("clb: Standard output cannot be written"));
    }
};

TEST_F(OutputTest, ACommandWhoseOutputIsLostSaysSo)
{
    for (const char* words : {"accounts", "networth", "budget", "register Wallet"})
        for (const char* json : {"", " --json"})
            ExpectRefused(words + Home() + json);
    ExpectRefused("check" + Home());
    ExpectRefused("sql " + Books() + " 'SELECT * FROM Trans'");
    ExpectRefused("--help");
    ExpectRefused("--version");
}

TEST_F(OutputTest, TheCommandsEffectsStay)
{
    const std::string insert =
        "sql " + Books() +
        " \\\"INSERT INTO Account (AccountID, Description, Type) VALUES ('9', 'Nine', 'Bank')\\\"";

    EXPECT_EQ(RunInto(insert, ">/dev/full"), 1);

    EXPECT_EQ(Sql("SELECT Description FROM Account WHERE AccountID = '9'"), "[[\"Nine\"]]");
}

TEST_F(OutputTest, ADrivenSessionEndsWhenItsRepliesAreLost)
{
    const std::string requests = folder.Write("requests", "{\"do\":\"tree\"}\n{\"do\":\"tree\"}\n");

    EXPECT_EQ(RunInto("automate" + Home() + " <'" + requests + "'", ">/dev/full"), 1);

    EXPECT_THAT(Err(), HasSubstr("clb: Standard output cannot be written"));
}

TEST_F(OutputTest, NoFileTakesTheNumberOfAClosedOutput)
{
    // Symptom: the first opened file got the number of the closed output, and the command's text
    // was written into it.
    const std::string file = folder.Path("out.ofx");

    EXPECT_EQ(RunInto("export Wallet '" + file + "'" + Home(), ">&-"), 1);

    EXPECT_TRUE(folder.Read("out.ofx").ends_with("</OFX>\r\n"));
}

}  // namespace
}  // namespace clb
