#include "statements/form/StatementReader.h"

namespace clb {

const char* KeyOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "dateOrder";
        case StatementQuestion::Decimal: return "decimal";
        case StatementQuestion::Sign: return "sign";
        case StatementQuestion::Columns: return "columns";
        case StatementQuestion::Truncated: return "truncated";
    }
    return "";
}

}  // namespace clb
