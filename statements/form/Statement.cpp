#include "statements/form/Statement.h"

namespace clb {

const char* ToText(LeftOutReason reason)
{
    switch (reason) {
        case LeftOutReason::NoDate: return "it has no date that can be read";
        case LeftOutReason::NoAmount: return "it has no amount that can be read exactly";
        case LeftOutReason::Pending: return "it is not booked yet";
        case LeftOutReason::OtherCurrency: return "it is in another currency than its account";
        case LeftOutReason::Investment: return "it is a trade or position of securities";
        case LeftOutReason::Incomplete: return "the file breaks off in it";
        case LeftOutReason::NotARow: return "it is no transaction";
        case LeftOutReason::TwiceInFile: return "the file has it twice";
    }
    return "";
}

}  // namespace clb
