#include "tests/crash/Undisturbed.h"

#include <chrono>

#include "tests/support/TempFolder.h"

namespace clb {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point moment)
{
    return std::chrono::duration<double>(Clock::now() - moment).count();
}

}  // namespace

OnePrice::OnePrice()
{
    server_.On("quotes.csv", [this](const HttpServer::Connection& connection) {
        const std::lock_guard lock(mutex_);
        answers::Ok("\"S\"," + price_ +
                    ",\"3/3/2006\",\"4:00pm\",+0.25,\"+2.04%\",12.30,12.60,12.20,12.49,12.51,"
                    "1234567\r\n")(connection);
    });
}

void OnePrice::Price(const std::string& price)
{
    const std::lock_guard lock(mutex_);
    price_ = price;
}

RecordedSitting RecordUndisturbed(const Sitting& sitting, const MomentPtr& before,
                                  const Starter& start, OnePrice& quotes,
                                  const std::string& parentFolder)
{
    const TempFolder folder(parentFolder);
    RecordedSitting record{sitting, before, nullptr, 0, {}};
    Unpack(*before, sitting, folder.Path());
    auto from = Clock::now();
    const auto program = start(folder.Path());
    program->FirstLine();
    record.startSeconds = SecondsSince(from);
    record.started = Look(folder.Path(), before);
    // What updates an older schema is no step.
    if (record.started != before)
        record.started = Look(folder.Path(), nullptr);
    MomentPtr last = record.started;
    for (const Action& action : sitting.actions) {
        quotes.Price(action.price);
        for (const Json& request : action.requests) {
            const Json sent = InFolder(request, folder.Path());
            from = Clock::now();
            const Json reply = program->Ask(sent);
            RecordedRequest done{request,
                                 action.kind,
                                 action.price,
                                 reply["ok"] == true,
                                 SecondsSince(from),
                                 Look(folder.Path(), last),
                                 false};
            done.writes = done.after != last;
            last = done.after;
            record.requests.push_back(std::move(done));
        }
    }
    return record;
}

}  // namespace clb
