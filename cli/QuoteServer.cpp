#include <arpa/inet.h>
#include <event2/buffer.h>
#include <event2/event.h>
#include <event2/http.h>
#include <sys/socket.h>

#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <string_view>

#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "cli/Commands.h"
#include "cli/FolderOptions.h"
#include "cli/PriceFile.h"
#include "platform/Signals.h"

namespace clb {
namespace {

constexpr const char* kHost = "127.0.0.1";

struct ServerOptions {
    std::string prices;
    int port = 8271;
};

/// The symbol of a request for a quote, as the address contains it. Returns nothing for any other
/// request.
std::optional<std::string> SymbolOf(std::string_view target)
{
    constexpr std::string_view kBefore = "/d/quotes.csv?s=";
    constexpr std::string_view kAfter = "&f=sl1d1t1c1p2ohgbav&e=.csv";
    if (target.size() < kBefore.size() + kAfter.size() || !target.starts_with(kBefore) ||
        !target.ends_with(kAfter))
        return std::nullopt;
    target.remove_prefix(kBefore.size());
    target.remove_suffix(kAfter.size());
    return std::string(target);
}

struct Release {
    void operator()(event_base* loop) const { event_base_free(loop); }
    void operator()(evhttp* server) const { evhttp_free(server); }
    void operator()(event* waiting) const { event_free(waiting); }
};
template <class Thing>
using Owned = std::unique_ptr<Thing, Release>;

/// Throws std::bad_alloc if the library had no memory for the object.
template <class Thing>
Owned<Thing> Own(Thing* made)
{
    if (!made)
        throw std::bad_alloc();
    return Owned<Thing>(made);
}

void Send(evhttp_request* request, int status, const char* type, const std::string& text)
{
    evhttp_add_header(evhttp_request_get_output_headers(request), "Content-Type", type);
    evbuffer_add(evhttp_request_get_output_buffer(request), text.data(), text.size());
    evhttp_send_reply(request, status, nullptr, nullptr);
}

void Answer(PriceFile& prices, evhttp_request* request)
{
    const auto symbol = SymbolOf(evhttp_request_get_uri(request));
    if (symbol)
        Send(request, HTTP_OK, "text/csv", QuoteLine(*symbol, prices.Find(*symbol)));
    else  // A "#" in a symbol cuts the address short. What is left could be another stock's symbol.
        Send(request, HTTP_BADREQUEST, "text/plain", "This is not a request for a quote.\r\n");
}

/// Called for each request for the path of quotes. No exception may reach the library.
void AnswerQuote(evhttp_request* request, void* prices)
{
    try {
        Answer(*static_cast<PriceFile*>(prices), request);
    } catch (const std::exception&) {
        evhttp_send_error(request, HTTP_INTERNAL, nullptr);
    }
}

void AnswerUnknown(evhttp_request* request, void*)
{
    evhttp_send_reply(request, HTTP_NOTFOUND, nullptr, nullptr);
}

/// Binds the server to the port; 0 means any free port. Returns the port. Throws RuntimeError if
/// that fails.
int Listen(evhttp& server, int port)
{
    evhttp_bound_socket* const bound =
        evhttp_bind_socket_with_handle(&server, kHost, static_cast<ev_uint16_t>(port));
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (!bound || getsockname(evhttp_bound_socket_get_fd(bound),
                              reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw RuntimeError(errors::NetworkFailure,
                           "Port " + std::to_string(port) +
                               " is in use by another program or may not be used; choose another "
                               "one with --port");
    return ntohs(address.sin_port);
}

void EndLoop(evutil_socket_t, short, void* loop)
{
    event_base_loopbreak(static_cast<event_base*>(loop));
}

/// Serves until the program is asked to end.
void Serve(const ServerOptions& options)
{
    PriceFile prices(options.prices, std::cerr);
    const auto loop = Own(event_base_new());
    const auto server = Own(evhttp_new(loop.get()));
    evhttp_set_allowed_methods(server.get(), EVHTTP_REQ_GET);
    evhttp_set_cb(server.get(), "/d/quotes.csv", AnswerQuote, &prices);
    evhttp_set_gencb(server.get(), AnswerUnknown, nullptr);
    const int port = Listen(*server, options.port);
    const auto signal =
        Own(event_new(loop.get(), EndingSignals::Descriptor(), EV_READ, EndLoop, loop.get()));
    event_add(signal.get(), nullptr);
    Interruption::Check();
    std::cout << "Quotes of " << options.prices << " at http://" << kHost << ":" << port
              << " until Ctrl+C" << std::endl;
    event_base_dispatch(loop.get());
    // A signal is the normal end of this command.
    Interruption::Forget();
}

}  // namespace

void AddQuoteServer(CLI::App& app, int&)
{
    auto options = std::make_shared<ServerOptions>();
    Command command(app, "quote-server", "Serve stock quotes to this machine from a price file");
    command
        .Take("--prices", options->prices,
              "Price file: symbol, price, previous close, date (yyyy-mm-dd) on each line; "
              "read again when it changes")
        .Required()
        .Placeholder("FILE.csv");
    command.Take("--port", options->port, "Port to listen on; 0: any that is free")
        .ShowDefault()
        .Between(0, 65535);
    command.Run([options] { Serve(*options); });
}

}  // namespace clb
