#include "automation/CallOperations.h"

#include "automation/CallTable.h"
#include "automation/Request.h"

namespace clb {
namespace {

const Operation& FindOperation(const std::string& name)
{
    for (const OperationTable* group :
         {&StoreOperations(), &ViewOperations(), &GridOperations(), &StatementOperations(),
          &QuoteOperations(), &CommonOperations()}) {
        const auto found = group->find(name);
        if (found != group->end())
            return found->second;
    }
    throw RequestError("Unknown operation: " + name);
}

}  // namespace

Json CallOperation(frmController& controller, const std::string& name, const Json& given)
{
    const Operation& operation = FindOperation(name);
    CallArguments arguments(given, operation.kinds);
    Json result = operation.call(controller, arguments);
    return {{"result", std::move(result)}, {"args", arguments.ToJson()}};
}

}  // namespace clb
