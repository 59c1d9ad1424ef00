// The real network client, with servers on this machine.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "base/RuntimeError.h"
#include "platform/CurlHttpClient.h"
#include "tests/support/HttpServer.h"

namespace clb {
namespace {

using namespace std::chrono_literals;

/// Sets the proxy in the environment for one test.
class Proxy {
public:
    explicit Proxy(int port)
    {
        setenv("http_proxy", ("http://127.0.0.1:" + std::to_string(port)).c_str(), 1);
    }
    ~Proxy() { unsetenv("http_proxy"); }
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;
};

/// Both ways to wait for an answer: without and with a function to call meanwhile.
class CurlHttpClientTest : public testing::TestWithParam<bool> {
protected:
    std::optional<std::string> Get(const std::string& url)
    {
        settings.sending = [this](const std::string& sent) { sent_.push_back(sent); };
        if (GetParam() && !settings.waiting)
            settings.waiting = [] {};
        return CurlHttpClient(settings).Get(url);
    }
    std::optional<std::string> GetPath(const std::string& path)
    {
        return Get(server.Address() + path);
    }
    /// The error message of a request that cannot be made.
    std::string FailureOf(const std::string& url)
    {
        try {
            Get(url);
        } catch (const PortError& error) {
            EXPECT_EQ(error.Number(), errors::NetworkFailure);
            return error.what();
        }
        ADD_FAILURE() << "no failure: " << url;
        return "";
    }
    std::size_t Count(const std::string& text)
    {
        std::size_t count = 0;
        for (const std::string& head : server.Heads())
            if (head.find(text) != std::string::npos)
                ++count;
        return count;
    }

    HttpServer server;
    HttpSettings settings{"The Agent", false, {}, {}};
    std::vector<std::string> sent_;
};

TEST_P(CurlHttpClientTest, TheBodyArrivesByteForByte)
{
    const std::string bytes("a\0b\xFF\r\n,", 7);
    server.On("/x", answers::Ok(bytes));

    EXPECT_EQ(GetPath("/x"), bytes);
}

TEST_P(CurlHttpClientTest, AGetRequestNamesTheProgramAndBypassesCaches)
{
    server.On("/x", answers::Ok("fresh"));

    GetPath("/x?s=A");

    ASSERT_EQ(server.Heads().size(), 1U);
    EXPECT_TRUE(server.Heads()[0].starts_with("GET /x?s=A HTTP/1.1\r\n"));
    EXPECT_EQ(Count("\r\nUser-Agent: The Agent\r\n"), 1U);
    EXPECT_EQ(Count("\r\nCache-Control: no-cache\r\n"), 1U);
    EXPECT_EQ(Count("Accept-Encoding"), 0U);
    EXPECT_EQ(sent_, std::vector<std::string>{server.Address() + "/x?s=A"});
}

TEST_P(CurlHttpClientTest, TheAddressIsSentUnchanged)
{
    server.On("", answers::Ok("yes"));

    for (const char* path : {"/x?s=^DJI", "/x?s=a&b", "/x?s=50%", "/x?s=%41", "/x?s=a+b",
                             "/x?s=\"'<>|{}\\", "/x?s=\xC3\xA9", "/../x?s=../..", "/x?s="})
        EXPECT_EQ(GetPath(path), "yes") << path;

    const std::vector<std::string> expected = {
        "GET /x?s=^DJI HTTP/1.1",     "GET /x?s=a&b HTTP/1.1",      "GET /x?s=50% HTTP/1.1",
        "GET /x?s=%41 HTTP/1.1",      "GET /x?s=a+b HTTP/1.1",      "GET /x?s=\"'<>|{}\\ HTTP/1.1",
        "GET /x?s=\xC3\xA9 HTTP/1.1", "GET /../x?s=../.. HTTP/1.1", "GET /x?s= HTTP/1.1",
    };
    EXPECT_EQ(server.FirstLines(), expected);
}

TEST_P(CurlHttpClientTest, AFragmentIsNotSent)
{
    server.On("/x", answers::Ok("yes"));

    EXPECT_EQ(GetPath("/x?s=a#b"), "yes");

    EXPECT_EQ(server.FirstLines(), std::vector<std::string>{"GET /x?s=a HTTP/1.1"});
    EXPECT_EQ(sent_, std::vector<std::string>{server.Address() + "/x?s=a#b"});
}

TEST_P(CurlHttpClientTest, NothingThatBreaksTheRequestLineIsSent)
{
    server.On("", answers::Ok("yes"));

    for (const std::string& symbol :
         {std::string("a b"), std::string("a\rb"), std::string("a\nb"), std::string("a\tb"),
          std::string("a\x7F"), std::string("a\0b", 3), std::string("a HTTP/1.1\r\nX-Evil: 1")})
        EXPECT_EQ(GetPath("/x?s=" + symbol), std::nullopt) << symbol;

    EXPECT_TRUE(server.Heads().empty());
    EXPECT_TRUE(sent_.empty());
}

TEST_P(CurlHttpClientTest, AnAnswerOfAnyStatusIsAnAnswer)
{
    server.On("/gone", answers::Status("404 Not Found", "what is left"));
    server.On("/broken", answers::Status("500 Internal Server Error", "a,b"));
    server.On("/empty", answers::Status("204 No Content", ""));

    EXPECT_EQ(GetPath("/gone"), "what is left");
    EXPECT_EQ(GetPath("/broken"), "a,b");
    EXPECT_EQ(GetPath("/empty"), "");
}

TEST_P(CurlHttpClientTest, AnAnswerOfOneMebibyteIsTheLongest)
{
    const std::string whole(std::size_t{1024} * 1024, 'x');
    server.On("/most", answers::Ok(whole));
    server.On("/more", answers::Ok(whole + "x"));

    EXPECT_EQ(GetPath("/most"), whole);
    EXPECT_EQ(GetPath("/more"), std::nullopt);
}

TEST_P(CurlHttpClientTest, AnAnswerWithoutAnEndIsCutOff)
{
    server.On("/body", answers::Endless());
    server.On("/head", answers::EndlessHead());

    EXPECT_EQ(GetPath("/body"), std::nullopt);
    EXPECT_EQ(GetPath("/head"), std::nullopt);
}

TEST_P(CurlHttpClientTest, AnAnswerCutShortIsReturnedAsFarAsItCame)
{
    server.On("/length", answers::Bytes("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\na,b"));
    server.On("/chunks",
              answers::Bytes("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\na,b\r\n"));

    EXPECT_EQ(GetPath("/length"), "a,b");
    EXPECT_EQ(GetPath("/chunks"), "a,b");
}

TEST_P(CurlHttpClientTest, WithoutAnHttpAnswerTheRequestHasFailed)
{
    server.On("/nothing", answers::Bytes(""));
    server.On("/noise", answers::Bytes("ACME,1,2,3,4,5,6,7,8,9,10,11\r\n"));

    EXPECT_NE(FailureOf(server.Address() + "/nothing"), "");
    EXPECT_NE(FailureOf(server.Address() + "/noise"), "");
}

TEST_P(CurlHttpClientTest, WithoutAServerTheRequestFails)
{
    const std::string url = "http://127.0.0.1:" + std::to_string(HttpServer::FreePort()) + "/x";

    EXPECT_TRUE(FailureOf(url).starts_with("Cannot reach " + url + ": ")) << FailureOf(url);
}

TEST_P(CurlHttpClientTest, TheTimeOfARequestIsLimited)
{
    server.On("/silent", answers::Silence());
    server.On("/slow", answers::Trickle());
    settings.limits.whole = 100ms;

    EXPECT_NE(FailureOf(server.Address() + "/silent"), "");
    EXPECT_NE(FailureOf(server.Address() + "/slow"), "");
}

TEST_P(CurlHttpClientTest, TheLimitHoldsForAllRedirectsTogether)
{
    server.On("/round", [](const HttpServer::Connection& connection) {
        std::this_thread::sleep_for(60ms);
        answers::Redirect("/round")(connection);
    });
    settings.limits.whole = 200ms;

    FailureOf(server.Address() + "/round");

    EXPECT_LE(server.Heads().size(), 4U);
}

TEST_P(CurlHttpClientTest, OnlyAWebAddressIsRequested)
{
    for (const char* url :
         {"file:///etc/passwd", "ftp://127.0.0.1/x", "gopher://127.0.0.1/x", "127.0.0.1/x", "",
          "http://", "http:///x", "http://127.0.0.1:99999/x", "http://a b/x", "http://a\nb/x"})
        EXPECT_NE(FailureOf(url), "") << url;
    EXPECT_TRUE(sent_.empty());
}

TEST_P(CurlHttpClientTest, ARedirectWithinTheSchemeIsFollowed)
{
    HttpServer other;
    other.On("/there", answers::Ok("there"));
    server.On("/near", answers::Redirect("/x"));
    server.On("/far", answers::Redirect(other.Address() + "/there"));
    server.On("/x", answers::Ok("here"));

    EXPECT_EQ(GetPath("/near"), "here");
    EXPECT_EQ(GetPath("/far"), "there");
    EXPECT_EQ(sent_,
              (std::vector<std::string>{server.Address() + "/near", server.Address() + "/far"}));
}

TEST_P(CurlHttpClientTest, ARedirectToAnotherSchemeIsReturnedAsTheAnswer)
{
    server.On("/file", answers::Redirect("file:///etc/passwd", "moved"));
    server.On("/tls", answers::Redirect("https://127.0.0.1/x", "moved"));

    EXPECT_EQ(GetPath("/file"), "moved");
    EXPECT_EQ(GetPath("/tls"), "moved");
}

TEST_P(CurlHttpClientTest, RedirectsInACircleEnd)
{
    server.On("/round", answers::Redirect("/round", "again"));

    EXPECT_EQ(GetPath("/round"), "again");

    EXPECT_EQ(server.Heads().size(), 11U);
}

TEST_P(CurlHttpClientTest, TheSystemsProxyIsUsedUnlessItIsSwitchedOff)
{
    HttpServer proxy;
    proxy.On("http://0.0.0.0:", answers::Ok("by the proxy"));
    server.On("/x", answers::Ok("directly"));
    const Proxy named(proxy.Port());
    // This address is also this machine, but does not look like it.
    const std::string url = "http://0.0.0.0:" + std::to_string(server.Port()) + "/x";

    EXPECT_EQ(Get(url), "by the proxy");
    settings.direct = true;
    EXPECT_EQ(Get(url), "directly");
}

TEST_P(CurlHttpClientTest, ThisMachineNeedsNoProxy)
{
    const Proxy named(HttpServer::FreePort());
    server.On("/x", answers::Ok("directly"));

    EXPECT_EQ(GetPath("/x"), "directly");
    EXPECT_EQ(Get("http://localhost:" + std::to_string(server.Port()) + "/x"), "directly");
}

INSTANTIATE_TEST_SUITE_P(Waiting, CurlHttpClientTest, testing::Bool());

TEST_P(CurlHttpClientTest, TheCallersFunctionRunsRepeatedlyWhileAnAnswerIsAwaited)
{
    std::atomic<int> turns = 0;
    settings.waiting = [&turns] { ++turns; };
    server.On("/slow", [&turns](const HttpServer::Connection& connection) {
        while (turns < 3)
            std::this_thread::yield();
        answers::Ok("at last")(connection);
    });

    EXPECT_EQ(GetPath("/slow"), "at last");
}

}  // namespace
}  // namespace clb
