#pragma once
#include <optional>
#include <string>

namespace clb {

/// The network, as the quotes see it.
class IHttpClient {
public:
    virtual ~IHttpClient() = default;
    /// Body of one GET, bytes as received, never from a cache; blocks. An empty body is an answer,
    /// and so is the body of any status. Nothing when path or query hold a blank or a control
    /// character, which makes no legal address, or when the answer is longer than 1 MiB. Throws
    /// PortError when the request could not be made.
    virtual std::optional<std::string> Get(const std::string& url) = 0;
};

}  // namespace clb
