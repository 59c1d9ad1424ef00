// The other party of an entry.
#pragma once
#include <string>

#include "statements/messages/CamtNodes.h"

namespace clb {

/// Whose statement an entry is in.
struct CamtOwner {
    std::string account;  ///< IBAN or number
    std::string name;
};

struct CamtParty {
    std::string name;
    std::string account;
    std::string ultimate;  ///< name of the party that it acts for, if it says so
};

/// The other party by the details of a transaction. Usually the debtor of a credit and the creditor
/// of a debit; the other one if that is the owner, or missing, as in returned payments.
[[nodiscard]] CamtParty OtherParty(CamtNode details, bool credit, const CamtOwner& owner);

}  // namespace clb
