#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "ports/IHttpClient.h"

namespace clb {

/// How long one request may take.
struct HttpLimits {
    std::chrono::milliseconds connect{10'000};  ///< until there is a connection
    std::chrono::milliseconds whole{30'000};    ///< until the answer's end, redirects included
};

struct HttpSettings {
    std::string agent;    ///< what the program calls itself to the service
    bool direct = false;  ///< never by way of the system's proxy
    HttpLimits limits;
    /// Told each address before its request is sent, redirects aside; may be empty.
    std::function<void(const std::string& url)> sending;
    /// Called again and again, about ten times a second, while an answer is awaited; may be empty.
    std::function<void()> waiting = {};
};

/// The real network. The proxy is the one that the environment names (http_proxy, https_proxy,
/// all_proxy, no_proxy); this machine itself is always reached without it. Redirects are followed
/// within the scheme of the address, any other redirect is an answer like all others. Nothing of
/// one request is kept for the next.
class CurlHttpClient : public IHttpClient {
public:
    explicit CurlHttpClient(HttpSettings settings);

    /// The address stands in the request as it is, but for a fragment ("#..."), which no request
    /// carries. An answer whose connection ends early is what has come of it. Throws PortError
    /// (NetworkFailure) when the part of the address before the path is no place to ask, nobody is
    /// there or answers, or the time is over; Interrupted when the program is told to end.
    std::optional<std::string> Get(const std::string& url) override;

private:
    HttpSettings settings_;
};

}  // namespace clb
