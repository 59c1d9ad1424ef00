// Runs a session without disturbance and records it.
#pragma once
#include <mutex>
#include <string>

#include "tests/crash/Leftovers.h"
#include "tests/support/HttpServer.h"

namespace clb {

/// A quote service that answers every symbol with the price that is set.
class OnePrice {
public:
    OnePrice();
    [[nodiscard]] std::string Address() const { return server_.Address(); }
    void Price(const std::string& price);

private:
    std::mutex mutex_;
    std::string price_ = "1";
    HttpServer server_;
};

/// Runs the sitting from the moment to its end, and records what was stored after each request.
RecordedSitting RecordUndisturbed(const Sitting& sitting, const MomentPtr& before,
                                  const Starter& start, OnePrice& quotes,
                                  const std::string& parentFolder);

}  // namespace clb
