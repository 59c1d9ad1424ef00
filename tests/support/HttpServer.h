// A scripted HTTP server, for tests of the network.
#pragma once
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace clb {

/// A server on this machine that gives scripted answers, bad ones too. Each connection carries one
/// request. Connections are served one after the other.
class HttpServer {
public:
    /// One connection, after its request has been read.
    class Connection {
    public:
        explicit Connection(int socket) : socket_(socket) {}
        /// Returns false if the client has disconnected.
        [[nodiscard]] bool Send(std::string_view bytes) const;
        /// Waits until the client disconnects.
        void WaitForTheEnd() const;

    private:
        int socket_;
    };
    using Answer = std::function<void(const Connection&)>;

    HttpServer();
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// "http://127.0.0.1:12345".
    [[nodiscard]] std::string Address() const
    {
        return "http://127.0.0.1:" + std::to_string(port_);
    }
    [[nodiscard]] int Port() const { return port_; }
    /// Sets the answer to requests whose first line contains the text. If several texts match, the
    /// one set first is used. Other requests get status 404 and an empty body.
    void On(const std::string& text, Answer answer);
    /// The heads of all requests so far, as received.
    [[nodiscard]] std::vector<std::string> Heads() const;
    /// The first lines of these heads: "GET /path HTTP/1.1".
    [[nodiscard]] std::vector<std::string> FirstLines() const;

    /// Returns a port of this machine on which no program listens.
    static int FreePort();

private:
    void Serve();
    [[nodiscard]] Answer FindAnswer(const std::string& head) const;

    int listening_ = -1;
    int port_ = 0;
    std::atomic<int> serving_ = -1;
    mutable std::mutex mutex_;
    std::vector<std::pair<std::string, Answer>> answers_;
    std::vector<std::string> heads_;
    std::thread thread_;
};

// Ready-made answers.
namespace answers {

/// A complete answer. Each line of `headers` ends with CR LF.
HttpServer::Answer Status(const std::string& status, const std::string& body,
                          const std::string& headers = "");
inline HttpServer::Answer Ok(const std::string& body)
{
    return Status("200 OK", body);
}
inline HttpServer::Answer Redirect(const std::string& location, const std::string& body = "")
{
    return Status("302 Found", body, "Location: " + location + "\r\n");
}
/// Exactly these bytes.
HttpServer::Answer Bytes(const std::string& bytes);
/// Sends nothing and keeps the connection open, until the client gives up.
HttpServer::Answer Silence();
/// A head, then an endless body, as fast as the client reads it.
HttpServer::Answer Endless();
/// A head, then a byte now and then, for as long as the client reads.
HttpServer::Answer Trickle();
/// A head that never ends.
HttpServer::Answer EndlessHead();

}  // namespace answers

}  // namespace clb
