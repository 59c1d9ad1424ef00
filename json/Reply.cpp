#include "json/Reply.h"

namespace clb {

Json GoodReply(const Json& members)
{
    Json reply{{"ok", true}};
    reply.update(members);
    return reply;
}

Json ErrorReply(std::int32_t number, const std::string& message)
{
    return {{"ok", false}, {"error", {{"number", number}, {"message", message}}}};
}

}  // namespace clb
