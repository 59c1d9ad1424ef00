#include <httplib.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <iostream>
#include <memory>
#include <string_view>
#include <thread>

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
    constexpr std::string_view before = "/d/quotes.csv?s=";
    constexpr std::string_view after = "&f=sl1d1t1c1p2ohgbav&e=.csv";
    if (target.size() < before.size() + after.size() || !target.starts_with(before) ||
        !target.ends_with(after))
        return std::nullopt;
    target.remove_prefix(before.size());
    target.remove_suffix(after.size());
    return std::string(target);
}

void Answer(PriceFile& prices, const httplib::Request& request, httplib::Response& response)
{
    const auto symbol = SymbolOf(request.target);
    if (!symbol) {
        // A "#" in a symbol cuts the address short. What is left could be another stock's symbol.
        response.status = 400;
        response.set_content("This is not a request for a quote.\r\n", "text/plain");
        return;
    }
    response.set_content(QuoteLine(*symbol, prices.Find(*symbol)), "text/csv");
}

/// Allows a port to be reused soon after another program closed it, but not to be shared.
void ReuseAddress(socket_t socket)
{
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

/// Binds the server to the port; 0 means any free port. Returns the port. Throws RuntimeError if
/// that fails.
int Bind(httplib::Server& server, int port)
{
    const int bound =
        port == 0 ? server.bind_to_any_port(kHost) : (server.bind_to_port(kHost, port) ? port : -1);
    if (bound < 0)
        throw RuntimeError(errors::NetworkFailure,
                           "Port " + std::to_string(port) +
                               " is in use by another program or may not be used; choose another "
                               "one with --port");
    return bound;
}

/// Serves until the program is told to end.
void ServeUntilSignalled(httplib::Server& server, const sigset_t& signals)
{
    std::atomic<bool> ended = false;
    std::thread serving([&] {
        server.listen_after_bind();
        ended = true;
        kill(getpid(), SIGTERM);
    });
    // stop() has no effect before the server listens.
    while (!server.is_running() && !ended)
        std::this_thread::yield();
    int signal = 0;
    sigwait(&signals, &signal);
    server.stop();
    serving.join();
}

void Serve(const ServerOptions& options)
{
    PriceFile prices(options.prices, std::cerr);
    httplib::Server server;
    server.set_socket_options(ReuseAddress);
    server.Get("/d/quotes.csv",
               [&prices](const httplib::Request& request, httplib::Response& response) {
                   Answer(prices, request, response);
               });
    const int port = Bind(server, options.port);
    sigset_t signals = EndingSignals::Set();
    sigaddset(&signals, SIGTERM);  // ServeUntilSignalled sends it if the server ends by itself
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    Interruption::Check();
    std::cout << "Quotes of " << options.prices << " at http://" << kHost << ":" << port
              << " until Ctrl+C" << std::endl;
    ServeUntilSignalled(server, signals);
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
