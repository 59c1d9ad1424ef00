// HTTP over libcurl.
#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "ports/IHttpClient.h"

namespace clb {

/// How long one request may take.
struct HttpLimits {
    std::chrono::milliseconds connect{10'000};  ///< to connect
    std::chrono::milliseconds whole{30'000};    ///< to the end of the answer, redirects included
};

struct HttpSettings {
    std::string agent;    ///< the User-Agent header
    bool direct = false;  ///< never uses the system's proxy
    HttpLimits limits;
    /// Called with each address before its request is sent, but not for redirects; may be empty.
    std::function<void(const std::string& url)> sending;
    /// Called about ten times a second while the answer is on its way; may be empty.
    std::function<void()> waiting = {};
};

/// The real network. Uses the proxy of the environment (http_proxy, https_proxy, all_proxy,
/// no_proxy), but never for this machine itself. Follows redirects that keep the address's scheme;
/// any other redirect is returned as the answer. Each request is independent of the others.
class CurlHttpClient : public IHttpClient {
public:
    explicit CurlHttpClient(HttpSettings settings);

    /// Sends the address as it is, without its fragment ("#..."). If the connection ends early,
    /// returns what has arrived. Throws PortError (NetworkFailure) if scheme, host or port are not
    /// valid, the host cannot be reached, or the time is up. Throws Interrupted if the program is
    /// asked to end.
    std::optional<std::string> Get(const std::string& url) override;

private:
    HttpSettings settings_;
};

}  // namespace clb
