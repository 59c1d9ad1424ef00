// HTTP requests, as the quotes need them.
#pragma once
#include <optional>
#include <string>

namespace clb {

/// The network.
class IHttpClient {
public:
    virtual ~IHttpClient() = default;
    /// Sends one GET request, waits for the answer and returns its body: the bytes as received,
    /// whatever the status, never from a cache. The body may be empty. Returns nothing if the path
    /// or the query contains a space or a control character (such an address is not valid), or if
    /// the answer is longer than 1 MiB. Throws PortError if the request cannot be made.
    [[nodiscard]] virtual std::optional<std::string> Get(const std::string& url) = 0;
};

}  // namespace clb
