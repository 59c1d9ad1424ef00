// Too little address space for the program: it reports that and stores nothing.

#include <gmock/gmock.h>

#include <csignal>

#include "CommandFixture.h"

namespace clb {
namespace {

using testing::HasSubstr;

#ifdef CLB_SANITIZED
constexpr bool kLimited = false;  // the sanitizers take more address space than any limit here
#else
constexpr bool kLimited = true;
#endif

constexpr int kNotLoaded = 127;  // the loader's own exit code: the program was not loaded
constexpr int kAborted = 128 + SIGABRT;

class MemoryTest : public CommandFixture {
protected:
    MemoryTest()
    {
        if (!kLimited)
            return;
        EXPECT_EQ(Run("new " + Books()), 0);
        Sql("INSERT INTO Account (AccountID, Description, Type) VALUES ('C1', 'Checking', 'Bank')");
        statement_ = Statement("C1", "-2");
    }
    /// Runs clb under limits, given as shell words; returns the exit code.
    int RunLimited(const std::string& limits, const std::string& words)
    {
        const std::string command = "ulimit -c 0; " + limits + " || exit 77; '" CLB_PROGRAM "' " +
                                    words + " >'" + folder.Path("out") + "' 2>'" +
                                    folder.Path("err") + "'; exit $?";
        return WEXITSTATUS(std::system(command.c_str()));
    }
    int RunWithin(int kilobytes, const std::string& words)
    {
        return RunLimited("ulimit -v " + std::to_string(kilobytes), words);
    }
    /// The smallest address space with which the loader starts the program, to 16 kB.
    int LeastForLoading()
    {
        int tooLittle = 1000;
        int enough = 400000;
        while (enough - tooLittle > 16) {
            const int middle = (tooLittle + enough) / 2;
            (RunWithin(middle, "--version") == kNotLoaded ? tooLittle : enough) = middle;
        }
        return enough;
    }

    std::string statement_;
};

// Symptom: "clb: Resource temporarily unavailable".
TEST_F(MemoryTest, AnImportThatCannotStartAThreadSaysSoAndStoresNothing)
{
    if (!kLimited)
        GTEST_SKIP();
    const std::string before = folder.Read("books/db/clb.mdb");

    // A thread's stack is as large as the limit for stacks, so this one does not fit.
    const int code =
        RunLimited("ulimit -s 4000000 && ulimit -v 3000000", "import " + statement_ + Home());
    if (code == 77)
        GTEST_SKIP() << "the stack may not be made so large here";

    EXPECT_EQ(code, 1);
    EXPECT_EQ(Err(),
              "clb: There is not enough memory for another thread, or too many programs are "
              "running.\n");
    EXPECT_EQ(Out(), "");
    EXPECT_TRUE(folder.Read("books/db/clb.mdb") == before);
}

// Symptom: "terminate called without an active exception", and a core file.
TEST_F(MemoryTest, WithTooLittleAddressSpaceItSaysSoAndStoresNothing)
{
    if (!kLimited)
        GTEST_SKIP();
    const std::string before = folder.Read("books/db/clb.mdb");
    const int least = LeastForLoading();
    for (int more = -32; more < 1024; more += 16) {
        // Runs a command without the main window: libsigc++ ends the program when it cannot
        // connect.
        const int code = RunWithin(least + more, "check --repair" + Home());

        ASSERT_NE(code, kAborted) << least << " + " << more << ": " << Err();
        if (code == 1) {
            EXPECT_THAT(Err(), HasSubstr("There is not enough memory"));
        }
        ASSERT_TRUE(code != 1 || folder.Read("books/db/clb.mdb") == before);
    }
}

}  // namespace
}  // namespace clb
