#include <limits>

#include "app/OtherPrograms.h"
#include "app/StatementImport.h"
#include "app/StatementQuestions.h"
#include "automation/CallOperations.h"
#include "automation/StateReport.h"
#include "automation/VerbTable.h"
#include "base/RuntimeError.h"
#include "history/HistoryJson.h"
#include "history/SentSql.h"
#include "intake/StatementJson.h"

namespace clb {
namespace {

constexpr std::int64_t kAllSteps = std::numeric_limits<std::int64_t>::max();

Json Window(Session& session, const Request&)
{
    // What the captions name is what Undo and Redo do, whichever program has made it.
    session.controller.ShowHistory();
    return DescribeWindow(session.controller);
}

Json TreeNodes(Session& session, const Request&)
{
    session.controller.Others().NodeNumbersReported();
    return DescribeTree(session.controller.TreeView);
}

AnswerQueue::Answer ReadAnswer(const Request& request, bool screenshots)
{
    if (request.Has("box")) {
        const auto button = ButtonOf(request.Text("box"));
        if (!button)
            throw RequestError("No such button: " + request.Text("box"));
        return BoxReply{*button};
    }
    if (request.Has("file"))
        return FileReply{request.Text("file")};
    return FormReply{request.Text("form"), ReadSteps(request.Array("steps"), screenshots)};
}

Json Answer(Session& session, const Request& request)
{
    session.answers.Add(ReadAnswer(request, session.presenter != nullptr));
    return Json::object();
}

Json Log(Session& session, const Request&)
{
    return {{"events", session.log.Take()}};
}

/// A whole number of at least 1; by default another one.
std::int64_t Positive(const Request& request, const char* name, std::int64_t byDefault)
{
    if (!request.Has(name))
        return byDefault;
    const std::int32_t number = request.Long(name);
    if (number < 1)
        throw RequestError(std::string("Wrong argument: \"") + name + "\" must be at least 1");
    return number;
}

Json DescribeStep(History& history, std::int64_t number)
{
    const std::optional<Step> step = history.Find(number);
    if (!step)
        throw RequestError("The history has no step " + std::to_string(number));
    try {
        return StepReply(history, *step);
    } catch (const HistoryRefusal& refusal) {
        throw RuntimeError(errors::InvalidCall, refusal.what());
    }
}

Json ListSteps(Session& session, const Request& request)
{
    const std::int64_t limit = Positive(request, "limit", kAllSteps);
    const std::int64_t number = Positive(request, "step", 0);
    session.controller.ShowHistory();
    History& history = session.controller.Steps();
    if (number != 0)
        return DescribeStep(history, number);
    return {{"steps", ToJson(NewestSteps(history, limit))}};
}

/// Imports a statement of any kind. The statement's keys stand at the top too if there is one only.
Json Open(Session& session, const Request& request)
{
    StatementQuestions questions(session.controller);
    StatementImport command(session.controller, questions);
    Json files = Json::array();
    for (const ImportedStatement& statement : command.Import(request.Text("file")))
        files.push_back(ToJson(statement));
    Json reply = files.size() == 1 ? files.front() : Json::object();
    reply["files"] = std::move(files);
    reply["dryRun"] = false;
    return reply;
}

Json Sql(Session& session, const Request& request)
{
    return RunSent(session.controller.Data().Database(), session.controller.Steps(),
                   request.Text("text"));
}

Json Call(Session& session, const Request& request)
{
    const Json none = Json::array();
    const Json& arguments = request.Has("args") ? request.Array("args") : none;
    session.controller.Steps().Begin(request.Text("op"));
    return CallOperation(session.controller, request.Text("op"), arguments);
}

Json Trace(Session& session, const Request& request)
{
    Connection& connection = session.controller.Data().Database();
    if (!request.Flag("statements")) {
        connection.Trace({});
        return Json::object();
    }
    connection.Trace([&log = session.log](std::string_view text) {
        log.Add({{"event", "execute"}, {"text", text}});
    });
    return Json::object();
}

Json Screenshot(Session& session, const Request& request)
{
    if (!session.presenter)
        throw RequestError("Unknown verb: screenshot");
    const std::string file = request.Text("file");
    if (!session.presenter->Screenshot(file))
        throw RequestError("Cannot write the picture: " + file);
    return Json::object();
}

}  // namespace

const VerbTable& SessionVerbs()
{
    static const VerbTable verbs = {
        {"window", {Window, false}},     {"tree", {TreeNodes, false}},
        {"answer", {Answer, false}},     {"log", {Log, false}},
        {"sql", {Sql, false}},           {"call", {Call, false}},
        {"trace", {Trace, false}},       {"screenshot", {Screenshot, false}},
        {"history", {ListSteps, false}}, {"open", {Open, false}},
    };
    return verbs;
}

}  // namespace clb
