#pragma once
#include <optional>
#include <string>

namespace clb {

/// The network, as the quotes see it.
class IHttpClient {
public:
    virtual ~IHttpClient() = default;
    /// Body of one GET, bytes as received, never from a cache; blocks. An empty body is an answer,
    /// whatever its status. Nothing when the text is no legal address or the answer is longer than
    /// 1 MiB. Throws PortError when the request could not be made.
    virtual std::optional<std::string> Get(const std::string& url) = 0;
};

}  // namespace clb
