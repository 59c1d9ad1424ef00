#include "automation/Automation.h"

#include "automation/Recorder.h"
#include "automation/ScriptedPorts.h"
#include "automation/Statements.h"
#include "automation/Verbs.h"
#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "platform/CurlHttpClient.h"

#include <istream>
#include <optional>
#include <ostream>

namespace clb {
namespace {

/// One run of the program with everything that surrounds it.
class Driver {
public:
    Driver(const AutomationOptions& options, IPresenter* presenter)
        : presenter_(presenter),
          messages_(answers_, log_),
          files_(answers_, log_),
          forms_(answers_, log_, presenter),
          shell_(log_),
          printing_(log_),
          pointer_(log_),
          http_({product::Title,
                 !options.quoteService.empty(),
                 {},
                 [this](const std::string& url) {
                     log_.Add({{"event", "request"}, {"url", url}});
                 }}),
          controller_({options.folder, options.clock, messages_, files_, shell_, pointer_, dates_,
                       forms_, printing_, http_, options.quoteService},
                      presenter ? presenter->Metrics() : WindowMetrics()),
          recorder_(controller_, log_)
    {
        if (presenter_)
            presenter_->Attach(controller_);
    }
    ~Driver()
    {
        if (presenter_)
            presenter_->Detach();
    }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    bool Running() const { return controller_.Loaded(); }
    void Unload() { controller_.Unload(); }
    Json Load();
    Json Answer(const std::string& line);

private:
    Json Perform(const std::string& line);
    void Settle();
    template <class Work>
    Json Reporting(Work work);

    IPresenter* presenter_;
    AnswerQueue answers_;
    EventLog log_;
    ScriptedMessageBox messages_;
    ScriptedFileDialog files_;
    ScriptedModalHost forms_;
    ScriptedShell shell_;
    ScriptedPrintJob printing_;
    ScriptedPointer pointer_;
    IsoDateForm dates_;
    CurlHttpClient http_;
    frmController controller_;
    Recorder recorder_;
};

/// Does the work and tells how it went; a failure of any kind becomes an error reply.
template <class Work>
Json Driver::Reporting(Work work)
{
    try {
        return work();
    } catch (const Interrupted&) {
        throw;  // no reply: what the command wrote goes with the connection
    } catch (const RequestError& error) {
        return ErrorReply(0, error.what());
    } catch (const RuntimeError& error) {
        return ErrorReply(error.Number(), error.what());
    } catch (const std::exception& error) {
        return ErrorReply(errors::InvalidCall, error.what());
    }
}

/// What the program wrote is on the disk and in the window before the reply goes out.
void Driver::Settle()
{
    controller_.Settle();
    if (presenter_)
        presenter_->ProcessEvents();
}

Json Driver::Load()
{
    return Reporting([this] {
        controller_.Load();
        Settle();
        return GoodReply({{"ready", true}});
    });
}

Json Driver::Perform(const std::string& line)
{
    const Json json = Json::parse(line, nullptr, false);
    if (!json.is_object())
        throw RequestError("The request is no JSON object");
    Session session{controller_, answers_, log_, presenter_};
    return GoodReply(PerformVerb(session, Request(json)));
}

Json Driver::Answer(const std::string& line)
{
    const Json reply = Reporting([&] { return Perform(line); });
    Interruption::Check();
    // A failed command has its effects too, up to the failure.
    const Json settled = Reporting([&] {
        Settle();
        return Json();
    });
    return settled.is_null() ? reply : settled;
}

}  // namespace

int RunAutomation(std::istream& requests, std::ostream& replies, const AutomationOptions& options,
                  IPresenter* presenter)
{
    Driver driver(options, presenter);
    const Json loaded = driver.Load();
    replies << ToLine(loaded) << std::endl;
    if (loaded["ok"] == false)
        return 1;
    std::string line;
    while (replies && driver.Running() && std::getline(requests, line))
        replies << ToLine(driver.Answer(line)) << std::endl;
    Interruption::Check();
    if (driver.Running())
        driver.Unload();
    return replies ? 0 : 1;
}

}  // namespace clb
