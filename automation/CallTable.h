#pragma once
#include <map>
#include <string_view>

#include "app/frmController.h"
#include "automation/CallArguments.h"

namespace clb {

/// An operation that can be called by name. The result of one without a result is null.
struct Operation {
    const char* kinds;  ///< of its arguments, see CallArguments
    Json (*call)(frmController&, CallArguments&);
};
using OperationTable = std::map<std::string_view, Operation>;

/// Records, totals, budget months.
const OperationTable& StoreOperations();
/// What is shown, and the tree.
const OperationTable& ViewOperations();
const OperationTable& GridOperations();
/// Statement files in and out.
const OperationTable& StatementOperations();
/// One stock's quote.
const OperationTable& QuoteOperations();
/// Settings, file dialogs, small routines.
const OperationTable& CommonOperations();

}  // namespace clb
