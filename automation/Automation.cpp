#include "automation/Automation.h"

#include <istream>
#include <new>
#include <ostream>

#include "automation/Recorder.h"
#include "automation/ScriptedPorts.h"
#include "automation/Verbs.h"
#include "base/Interruption.h"
#include "base/RuntimeError.h"
#include "data/ErrorText.h"
#include "json/Reply.h"
#include "platform/CurlHttpClient.h"

namespace clb {
namespace {

/// The error number of a reply that reports too little memory.
constexpr std::int32_t kOutOfMemory = 7;

/// One run of the program together with everything around it.
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
          http_({product::kTitle,
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
    // Both return the reply's line. They throw std::bad_alloc if there is no memory for it; nothing
    // is kept then.
    std::string Load();
    std::string Answer(const std::string& line);
    bool Failed() const { return failed_; }

private:
    Json Perform(const std::string& line);
    template <class Work>
    void Report(std::string& reply, Work work);

    IPresenter* presenter_;
    AnswerQueue answers_;
    EventLog log_;
    ScriptedMessageBox messages_;
    ScriptedFileDialog files_;
    ScriptedModalHost forms_;
    ScriptedShell shell_;
    ScriptedPrintJob printing_;
    ScriptedPointer pointer_;
    FixedForm dates_;
    CurlHttpClient http_;
    frmController controller_;
    Recorder recorder_;
    bool failed_ = false;  // the last reply is an error
};

/// Does the work. If it fails in any way, the reply becomes an error reply. An error that commands
/// do not report themselves, such as too little memory, takes the whole command back.
template <class Work>
void Driver::Report(std::string& reply, Work work)
{
    Json failure;
    try {
        work();
        return;
    } catch (const Interrupted&) {
        controller_.Abandon();
        throw;  // no reply
    } catch (const RequestError& error) {
        failure = ErrorReply(0, error.what());
    } catch (const RuntimeError& error) {
        failure = ErrorReply(error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        controller_.Abandon();
        failure = ErrorReply(kOutOfMemory, kNoMemory);
    } catch (const std::exception& error) {
        controller_.Abandon();
        failure = ErrorReply(errors::InvalidCall, error.what());
    }
    reply = ToLine(failure);
    failed_ = true;
}

std::string Driver::Load()
{
    std::string reply = ToLine(GoodReply({{"ready", true}}));
    Report(reply, [this] {
        controller_.Load();
        controller_.Settle();
    });
    if (presenter_ && !failed_)
        Report(reply, [this] { presenter_->ProcessEvents(); });
    return reply;
}

Json Driver::Perform(const std::string& line)
{
    const Json json = Json::parse(line, nullptr, false);
    if (!json.is_object())
        throw RequestError("The request is not a JSON object");
    Session session{controller_, answers_, log_, presenter_};
    return GoodReply(PerformVerb(session, Request(json)));
}

std::string Driver::Answer(const std::string& line)
{
    failed_ = false;
    std::string reply;
    Report(reply, [&] { reply = ToLine(Perform(line)); });
    Interruption::Check();
    // A failed command keeps what it did before the failure. That too is on the disk and in the
    // window before the reply is sent.
    Report(reply, [this] { controller_.Settle(); });
    if (presenter_)
        Report(reply, [this] { presenter_->ProcessEvents(); });
    return reply;
}

}  // namespace

int RunAutomation(std::istream& requests, std::ostream& replies, const AutomationOptions& options,
                  IPresenter* presenter)
{
    Driver driver(options, presenter);
    replies << driver.Load() << std::endl;
    if (driver.Failed())
        return 1;
    std::string line;
    while (replies && driver.Running() && std::getline(requests, line))
        replies << driver.Answer(line) << std::endl;
    Interruption::Check();
    if (driver.Running())
        driver.Unload();
    // If there was no memory to read a request, it has no reply.
    return !replies || requests.bad() ? 1 : 0;
}

}  // namespace clb
