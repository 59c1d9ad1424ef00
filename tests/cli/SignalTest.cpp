// A signal ends the program: what the command wrote is taken back, and no files remain.

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "engine/rows/Connection.h"
#include "tests/cli/CommandFixture.h"
#include "tests/support/HttpServer.h"

namespace clb {
namespace {

namespace fs = std::filesystem;

constexpr int kRows = 60000;

class SignalTest : public CommandFixture {
protected:
    void SetUp() override
    {
        ASSERT_EQ(Run("new " + Books()), 0) << Err();
        fs::create_directory(folder.Path("tmp"));
    }
    void TearDown() override
    {
        if (process_ > 0)
            End(SIGKILL);
    }
    /// Starts clb without waiting for it.
    void Start(const std::string& words)
    {
        const std::string command = "exec '" CLB_PROGRAM "' " + words + " >'" + folder.Path("out") +
                                    "' 2>'" + folder.Path("err") + "'";
        process_ = fork();
        if (process_ != 0)
            return;
        setenv("TMPDIR", folder.Path("tmp").c_str(), 1);
        execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    /// Sends a signal. Returns the signal that ended the program, or 1000 plus its exit code.
    int End(int signal)
    {
        kill(process_, signal);
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        return WIFSIGNALED(status) ? WTERMSIG(status) : 1000 + WEXITSTATUS(status);
    }
    static void WaitFor(const std::function<bool()>& moment)
    {
        for (int n = 0; n < 2000 && !moment(); ++n)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_TRUE(moment());
    }
    bool Holds(const std::string& name) { return fs::exists(folder.Path(name)); }
    /// The names of files that may exist only while a command runs.
    std::string Left()
    {
        std::string names;
        for (const char* place : {"tmp", "books", "books/db", "."})
            for (const auto& entry : fs::directory_iterator(folder.Path(place))) {
                const std::string name = entry.path().filename().string();
                if (name.starts_with(".clb-") || name.starts_with("clb-") ||
                    name.ends_with("-journal"))
                    names += name + " ";
            }
        return names;
    }
    std::string LongStatement()
    {
        std::string text =
            "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n<OFX>\r\n<ACCTID>77\r\n";
        for (int n = 0; n < kRows; ++n)
            text += "<STMTTRN><DTPOSTED>20060305<TRNAMT>1<FITID>" + std::to_string(n) +
                    "<NAME>Shop</STMTTRN>\r\n";
        return "'" + folder.Write("long.ofx", text) + "'";
    }

    pid_t process_ = -1;
};

TEST_F(SignalTest, AnImportInTheMiddleIsTakenBack)
{
    const std::string statement = LongStatement();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Start("import " + statement + " --create Bank" + Home());
        WaitFor([this] { return Holds("books/db/clb.mdb-journal"); });

        EXPECT_EQ(End(signal), signal);

        EXPECT_EQ(Sql("SELECT COUNT(1) FROM Trans"), "[[0]]");
        EXPECT_EQ(Sql("SELECT COUNT(1) FROM Account"), "[[0]]");
        EXPECT_EQ(Left(), "");
    }
}

TEST_F(SignalTest, ATrialRemovesItsCopies)
{
    Start("import --dry-run " + LongStatement() + " --create Bank" + Home());
    WaitFor([this] { return !fs::is_empty(folder.Path("tmp")); });

    EXPECT_EQ(End(SIGTERM), SIGTERM);

    EXPECT_EQ(Left(), "");
}

TEST_F(SignalTest, TheNextStartRemovesWhatAKilledTrialLeft)
{
    Start("import --dry-run " + LongStatement() + " --create Bank" + Home());
    WaitFor([this] { return !fs::is_empty(folder.Path("tmp")); });
    EXPECT_EQ(End(SIGKILL), SIGKILL);
    EXPECT_NE(Left(), "");

    Start("accounts" + Home());
    EXPECT_EQ(End(0), 1000);

    EXPECT_EQ(Left(), "");
}

TEST_F(SignalTest, ADrivenSessionThatWaitsForARequestEnds)
{
    ASSERT_EQ(mkfifo(folder.Path("requests").c_str(), 0600), 0);
    Start("automate" + Home() + " <'" + folder.Path("requests") + "'");
    const int requests = open(folder.Path("requests").c_str(), O_WRONLY | O_CLOEXEC);
    WaitFor([this] { return folder.Read("out").find("ready") != std::string::npos; });

    EXPECT_EQ(End(SIGTERM), SIGTERM);

    close(requests);
}

TEST_F(SignalTest, ACommandThatWaitsForAnotherProgramEnds)
{
    Connection other;
    other.Open("Data Source=" + folder.Path("books/db/clb.mdb"));
    other.Lock();
    Start("sql " + Books() + " 'DELETE FROM Trans'");
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    const auto before = std::chrono::steady_clock::now();

    EXPECT_EQ(End(SIGTERM), SIGTERM);

    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5));
}

TEST_F(SignalTest, ACommandThatWaitsForTheNetworkEnds)
{
    HttpServer server;
    server.On("GET", [](const HttpServer::Connection& connection) { connection.WaitForTheEnd(); });
    folder.Write("books/cvlb.ini", "[Settings]\r\nQuoteService=" + server.Address() + "\r\n");
    Sql("INSERT INTO Investment (AccountID, StockSymbol, StockName) VALUES ('1', 'ACME', 'Acme')");
    Start("quotes" + Home());
    WaitFor([&] { return !server.FirstLines().empty(); });

    EXPECT_EQ(End(SIGTERM), SIGTERM);
}

TEST_F(SignalTest, AQuoteServerThatWaitsForItsPriceFileEnds)
{
    ASSERT_EQ(mkfifo(folder.Path("prices.csv").c_str(), 0600), 0);
    Start("quote-server --prices '" + folder.Path("prices.csv") + "'");
    std::this_thread::sleep_for(std::chrono::milliseconds(300));

    EXPECT_EQ(End(SIGTERM), SIGTERM);
}

TEST_F(SignalTest, ASignalThatItWasStartedToIgnoreDoesNotEndIt)
{
    const auto before = signal(SIGHUP, SIG_IGN);
    Start("import " + LongStatement() + " --create Bank" + Home());
    signal(SIGHUP, before);
    WaitFor([this] { return Holds("books/db/clb.mdb-journal"); });

    EXPECT_EQ(End(SIGHUP), 1000);

    EXPECT_EQ(Sql("SELECT COUNT(1) FROM Trans"), "[[" + std::to_string(kRows) + "]]");
}

}  // namespace
}  // namespace clb
