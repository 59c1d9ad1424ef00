#include "app/OtherPrograms.h"
#include "automation/VerbTable.h"

namespace clb {
namespace {

const Verb& FindVerb(const std::string& name)
{
    for (const VerbTable* table : {&WindowVerbs(), &GridVerbs(), &SessionVerbs()}) {
        const auto found = table->find(name);
        if (found != table->end())
            return found->second;
    }
    throw RequestError("Unknown verb: " + name);
}

}  // namespace

Json PerformVerb(Session& session, const Request& request)
{
    const Verb& verb = FindVerb(request.Text("do"));
    if (verb.users && !session.controller.window.Enabled())
        throw RequestError("The main window is disabled");
    OtherPrograms& others = session.controller.Others();
    // As in the window, a user's command first shows what other programs have written.
    if (verb.users && !others.Follow() && verb.onCurrentRow)
        throw RequestError(others.WhyRowGone());
    return verb.perform(session, request);
}

}  // namespace clb
