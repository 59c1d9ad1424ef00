#include "tests/support/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>

namespace clb {
namespace {

/// Opens a socket on a port that the system chooses.
struct Bound {
    int socket = -1;
    int port = 0;
};

Bound BindSomewhere()
{
    Bound bound{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), 0};
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (bind(bound.socket, any, size) != 0 || getsockname(bound.socket, any, &size) != 0)
        throw std::runtime_error("no free port");
    bound.port = ntohs(address.sin_port);
    return bound;
}

std::string ReadHead(int socket)
{
    std::string head;
    std::array<char, 4096> buffer{};
    while (head.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = recv(socket, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            break;
        head.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return head;
}

std::string FirstLine(const std::string& head)
{
    return head.substr(0, head.find("\r\n"));
}

}  // namespace

bool HttpServer::Connection::Send(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void HttpServer::Connection::WaitForTheEnd() const
{
    std::array<char, 256> buffer{};
    while (recv(socket_, buffer.data(), buffer.size(), 0) > 0) {
    }
}

HttpServer::HttpServer()
{
    const Bound bound = BindSomewhere();
    listening_ = bound.socket;
    port_ = bound.port;
    if (listen(listening_, 16) != 0)
        throw std::runtime_error("cannot listen");
    thread_ = std::thread([this] { Serve(); });
}

HttpServer::~HttpServer()
{
    shutdown(listening_, SHUT_RDWR);
    {
        const std::lock_guard lock(mutex_);
        if (serving_ >= 0)
            shutdown(serving_, SHUT_RDWR);
    }
    thread_.join();
    close(listening_);
}

void HttpServer::On(const std::string& text, Answer answer)
{
    const std::lock_guard lock(mutex_);
    answers_.emplace_back(text, std::move(answer));
}

std::vector<std::string> HttpServer::Heads() const
{
    const std::lock_guard lock(mutex_);
    return heads_;
}

std::vector<std::string> HttpServer::FirstLines() const
{
    std::vector<std::string> lines;
    for (const std::string& head : Heads())
        lines.push_back(FirstLine(head));
    return lines;
}

int HttpServer::FreePort()
{
    const Bound bound = BindSomewhere();
    close(bound.socket);
    return bound.port;
}

HttpServer::Answer HttpServer::FindAnswer(const std::string& head) const
{
    const std::lock_guard lock(mutex_);
    for (const auto& [text, answer] : answers_)
        if (FirstLine(head).find(text) != std::string::npos)
            return answer;
    return answers::Status("404 Not Found", "");
}

void HttpServer::Serve()
{
    for (;;) {
        const int socket = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0)
            return;
        {
            const std::lock_guard lock(mutex_);
            serving_ = socket;
        }
        const std::string head = ReadHead(socket);
        {
            const std::lock_guard lock(mutex_);
            heads_.push_back(head);
        }
        FindAnswer(head)(Connection(socket));
        const std::lock_guard lock(mutex_);
        serving_ = -1;
        close(socket);
    }
}

namespace answers {

HttpServer::Answer Status(const std::string& status, const std::string& body,
                          const std::string& headers)
{
    return Bytes("HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
                 "\r\nConnection: close\r\n" + headers + "\r\n" + body);
}

HttpServer::Answer Bytes(const std::string& bytes)
{
    return [bytes](const HttpServer::Connection& connection) {
        static_cast<void>(connection.Send(bytes));
    };
}

HttpServer::Answer Silence()
{
    return [](const HttpServer::Connection& connection) { connection.WaitForTheEnd(); };
}

HttpServer::Answer Endless()
{
    return [](const HttpServer::Connection& connection) {
        bool taken = connection.Send("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        while (taken)
            taken = connection.Send(std::string(65536, '1'));
    };
}

HttpServer::Answer Trickle()
{
    return [](const HttpServer::Connection& connection) {
        bool taken = connection.Send("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        while (taken) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            taken = connection.Send("1");
        }
    };
}

HttpServer::Answer EndlessHead()
{
    return [](const HttpServer::Connection& connection) {
        bool taken = connection.Send("HTTP/1.1 200 OK\r\n");
        while (taken)
            taken = connection.Send("X-More: " + std::string(1000, '1') + "\r\n");
    };
}

}  // namespace answers

}  // namespace clb
