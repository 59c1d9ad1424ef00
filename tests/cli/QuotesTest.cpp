// Quotes on the command line: the update command and the local service.

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "base/RuntimeError.h"
#include "platform/CurlHttpClient.h"
#include "tests/cli/CommandFixture.h"
#include "tests/support/HttpServer.h"

namespace clb {
namespace {

/// "clb quote-server" in its own process, listening.
class QuoteServer {
public:
    explicit QuoteServer(const std::string& prices)
    {
        std::array<int, 2> out{};
        if (pipe2(out.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        std::array<std::string, 6> words{CLB_PROGRAM, "quote-server", "--prices",
                                         prices,      "--port",       "0"};
        std::array<char*, 7> arguments{};
        for (std::size_t at = 0; at < words.size(); ++at)
            arguments[at] = words[at].data();
        const int failed =
            posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(out[1]);
        if (failed != 0)
            throw std::runtime_error("cannot start the server");
        line_ = ReadLine(out[0]);
        close(out[0]);
    }
    ~QuoteServer()
    {
        if (process_ > 0)
            EndBy(SIGKILL);
    }
    QuoteServer(const QuoteServer&) = delete;
    QuoteServer& operator=(const QuoteServer&) = delete;

    /// What it prints when it starts to listen.
    [[nodiscard]] const std::string& Line() const { return line_; }
    [[nodiscard]] std::string Address() const
    {
        const auto from = line_.find("http://");
        return line_.substr(from, line_.find(' ', from) - from);
    }
    [[nodiscard]] std::string Port() const { return Address().substr(Address().rfind(':') + 1); }
    /// The exit code; -1 if the signal killed it.
    int EndBy(int signal)
    {
        kill(process_, signal);
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    static std::string ReadLine(int file)
    {
        std::string line;
        char character = 0;
        while (read(file, &character, 1) == 1 && character != '\n')
            line += character;
        return line;
    }

    pid_t process_ = -1;
    std::string line_;
};

class QuotesCommandTest : public CommandFixture {
protected:
    QuotesCommandTest()
    {
        Run("new " + Books());
        Sql("INSERT INTO Investment (StockSymbol, StockName, LastPrice) "
            "VALUES ('ACME', 'Acme Works', 7.25)");
        Sql("INSERT INTO Investment (StockSymbol, StockName, LastPrice) "
            "VALUES ('NOPE', 'Nowhere', 3)");
    }
    void UseService(const std::string& address)
    {
        folder.Write("books/cvlb.ini", "[Settings]\r\nQuoteService=" + address + "\r\n");
    }
    std::string Prices() { return Sql("SELECT LastPrice FROM Investment"); }
    std::string WritePrices(const std::string& acme)
    {
        return folder.Write(
            "prices.csv", "symbol,price,previous close,date\nACME," + acme + ",12.25,2006-03-03\n");
    }
    static std::optional<std::string> Get(const std::string& url)
    {
        return CurlHttpClient({"test", true, {}, {}}).Get(url);
    }
    static std::string Query(const std::string& symbol)
    {
        return "/d/quotes.csv?s=" + symbol + "&f=sl1d1t1c1p2ohgbav&e=.csv";
    }
};

TEST_F(QuotesCommandTest, QuotesAreFetchedFromTheLocalServiceAndPrinted)
{
    QuoteServer server(WritePrices("12.50"));
    UseService(server.Address());

    EXPECT_EQ(Run("quotes" + Home()), 0) << Err();

    EXPECT_EQ(Out(),
              "Symbol  Name        Before  Last Price  Change\n"
              "------  ----------  ------  ----------  ------\n"
              "ACME    Acme Works    7.25       12.50    5.25\n"
              "NOPE    Nowhere       3.00        3.00\n");
    EXPECT_EQ(Prices(), R"([["12.5"],["3"]])");

    WritePrices("11");
    EXPECT_EQ(Run("quotes --json" + Home()), 0);
    EXPECT_EQ(Out(),
              R"({"holdings":[{"StockSymbol":"ACME","StockName":"Acme Works","before":"12.5",)"
              R"("LastPrice":"11"},{"StockSymbol":"NOPE","StockName":"Nowhere","before":"3",)"
              R"("LastPrice":"3"}]})"
              "\n");

    EXPECT_EQ(Run("undo --json" + Home()), 0);
    EXPECT_EQ(Json::parse(Out())["undone"][0]["what"], "Update Quotes");
    EXPECT_EQ(Prices(), R"([["12.5"],["3"]])");
}

TEST_F(QuotesCommandTest, AFailedUpdateSaysSoAndShowsWhatWasSaved)
{
    HttpServer server;
    server.On("?s=ACME&", answers::Ok("ACME,8,2,3,4,5,6,7,8,9,10,11"));
    server.On("?s=NOPE&", answers::Bytes(""));
    UseService(server.Address());

    EXPECT_EQ(Run("quotes" + Home()), 1);

    EXPECT_EQ(Err(), "Unable to update quotes.\n");
    EXPECT_NE(Out().find("ACME    Acme Works    7.25        8.00    0.75\n"), std::string::npos)
        << Out();
    EXPECT_EQ(Prices(), R"([["8"],["3"]])");
}

TEST_F(QuotesCommandTest, TheServerPrintsItsAddressAndEndsBySignal)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        QuoteServer server(WritePrices("12.50"));

        EXPECT_EQ(server.Line(), "Quotes of " + folder.Path("prices.csv") +
                                     " at http://127.0.0.1:" + server.Port() + " until Ctrl+C");
        EXPECT_EQ(server.EndBy(signal), 0);
        EXPECT_THROW(Get(server.Address() + Query("ACME")), PortError);
    }
}

TEST_F(QuotesCommandTest, TheServerAnswersEverySymbolUnchanged)
{
    QuoteServer server(WritePrices("12.50"));
    const auto answer = [&server](const std::string& symbol) {
        return Get(server.Address() + Query(symbol)).value_or("nothing");
    };
    const std::string unknown = ",0.00,\"N/A\",\"N/A\",N/A,\"N/A\",N/A,N/A,N/A,N/A,N/A,N/A\r\n";

    EXPECT_EQ(answer("acme"),
              "\"ACME\",12.5,\"3/3/2006\",\"N/A\",+0.25,\"+2.04%\",N/A,N/A,N/A,N/A,N/A,N/A\r\n");
    EXPECT_EQ(answer("ACME&x"), "\"ACME&x\"" + unknown);
    EXPECT_EQ(answer("ACM%45"), "\"ACM%45\"" + unknown);
    EXPECT_EQ(answer(""), "\"\"" + unknown);
}

TEST_F(QuotesCommandTest, TheServerGivesNoPriceForACutRequest)
{
    QuoteServer server(WritePrices("12.50"));

    EXPECT_EQ(Get(server.Address() + Query("ACME#2")), "This is not a request for a quote.\r\n");
    EXPECT_EQ(Get(server.Address() + "/d/quotes.csv"), "This is not a request for a quote.\r\n");
    EXPECT_EQ(Get(server.Address() + "/"), "");
}

TEST_F(QuotesCommandTest, APortInUseIsRefused)
{
    QuoteServer server(WritePrices("12.50"));

    EXPECT_EQ(
        Run("quote-server --prices '" + folder.Path("prices.csv") + "' --port " + server.Port()),
        1);

    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "clb: Port " + server.Port() +
                         " is in use by another program or may not be used; choose another one "
                         "with --port\n");
}

TEST_F(QuotesCommandTest, ABadPriceFileIsRefused)
{
    const std::string file = folder.Write("bad.csv", "ACME,much,1,2006-03-03\n");

    EXPECT_EQ(Run("quote-server --port 0 --prices '" + file + "'"), 1);

    EXPECT_EQ(Err(), "clb: " + file + ", line 1: the price \"much\" is not an amount\n");
    EXPECT_EQ(Run("quote-server"), 2);
    EXPECT_EQ(Run("quote-server --prices '" + file + "' --port 70000"), 2);
}

}  // namespace
}  // namespace clb
