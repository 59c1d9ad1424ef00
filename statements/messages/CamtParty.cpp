#include "statements/messages/CamtParty.h"

#include "base/Text.h"
#include "statements/messages/CamtNodes.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

std::string PartyName(CamtNode party)
{
    std::string name = TextAt(party, "Nm", "Pty/Nm");
    if (name.empty())
        name = TextAt(party, "Agt/FinInstnId/Nm");
    return IsNoReference(name) ? std::string() : name;
}

CamtParty Side(CamtNode parties, const std::string& side)
{
    CamtParty party;
    party.name = PartyName(Child(parties, side));
    const CamtNode account = At(parties, side + "Acct/Id");
    party.account = TextAt(account, "IBAN", "Othr/Id");
    if (party.account.empty())
        party.account = TextAt(account, "PrtryAcct/Id", "BBAN");
    party.ultimate = PartyName(Child(parties, "Ultmt" + side));
    if (party.name.empty())
        party.name.swap(party.ultimate);
    return party;
}

bool IsOwner(const CamtParty& party, const CamtOwner& owner)
{
    if (!party.account.empty())
        return party.account == owner.account;
    return !party.name.empty() && EqualsIgnoringCase(party.name, owner.name);
}

}  // namespace

CamtParty OtherParty(CamtNode details, bool credit, const CamtOwner& owner)
{
    const CamtNode parties = Child(details, "RltdPties");
    CamtParty usual = Side(parties, credit ? "Dbtr" : "Cdtr");
    const std::string side = credit ? "Cdtr" : "Dbtr";
    const bool named = Child(parties, side) || Child(parties, "Ultmt" + side);
    CamtParty opposite = named ? Side(parties, side) : CamtParty();
    const bool isOpposite = !opposite.name.empty() && !IsOwner(opposite, owner) &&
                            (usual.name.empty() || IsOwner(usual, owner));
    CamtParty& other = isOpposite ? opposite : usual;
    if (other.name.empty())
        other.name = TextAt(parties, "TradgPty/Nm", "TradgPty/Pty/Nm");
    if (other.ultimate == other.name)
        other.ultimate.clear();
    return other;
}

}  // namespace clb
