#pragma once
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace clb {

/// A server on this machine that answers as badly as it is told to. One connection carries one
/// request; connections are served one after the other.
class HttpServer {
public:
    /// What the client sees of one connection. The request has been read.
    class Connection {
    public:
        explicit Connection(int socket) : socket_(socket) {}
        /// False when the client is gone.
        bool Send(std::string_view bytes) const;
        /// Waits until the client goes.
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
    std::string Address() const { return "http://127.0.0.1:" + std::to_string(port_); }
    int Port() const { return port_; }
    /// From now on, requests whose first line holds the text are answered so; the earliest that
    /// fits counts. Others get status 404 and an empty body.
    void On(const std::string& text, Answer answer);
    /// Heads of the requests so far, as received.
    std::vector<std::string> Heads() const;
    /// Their first lines: "GET /path HTTP/1.1".
    std::vector<std::string> FirstLines() const;

    /// A port of this machine where nobody listens.
    static int FreePort();

private:
    void Serve();
    Answer FindAnswer(const std::string& head) const;

    int listening_ = -1;
    int port_ = 0;
    std::atomic<int> serving_ = -1;
    mutable std::mutex mutex_;
    std::vector<std::pair<std::string, Answer>> answers_;
    std::vector<std::string> heads_;
    std::thread thread_;
};

// Answers of all kinds.
namespace answers {

/// A whole answer; further header lines end with CR LF each.
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
/// These bytes and no more.
HttpServer::Answer Bytes(const std::string& bytes);
/// No byte and no end: the client has to give up.
HttpServer::Answer Silence();
/// A head, then a body without an end, as fast as it is taken.
HttpServer::Answer Endless();
/// A head, then a byte now and then, as long as the client listens.
HttpServer::Answer Trickle();
/// A head without an end.
HttpServer::Answer EndlessHead();

}  // namespace answers

}  // namespace clb
