#include "statements/ofx/OfxSurvey.h"

#include <functional>

#include "base/Text.h"
#include "statements/ofx/OfxAccount.h"
#include "statements/ofx/OfxDate.h"
#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

constexpr std::size_t kMostStatements = 100000;

const char* Described(OfxTag content)
{
    switch (content) {
        case OfxTag::SignOn: return "only a bank's answer to the sign-on";
        case OfxTag::Profile: return "a bank's profile, which lists its services";
        case OfxTag::AccountList: return "a list of accounts";
        case OfxTag::Transfers: return "a bank's confirmation of transfers";
        case OfxTag::Payments: return "a bank's confirmation of payments";
        case OfxTag::StopChecks: return "a bank's confirmation of stopped cheques";
        case OfxTag::Securities: return "a list of securities";
        case OfxTag::Mail: return "messages from a bank";
        case OfxTag::TaxForms: return "tax forms";
        case OfxTag::ClosingInfo: return "dates and balances of statements without transactions";
        case OfxTag::Enrolment: return "a bank's confirmation of an enrolment";
        case OfxTag::LoanStatement: return "the statement of a loan";
        case OfxTag::Request: return "a request to a bank";
        default: return nullptr;
    }
}

}  // namespace

std::string ToText(const OfxFailure& failure)
{
    const std::string code = OfxText(failure.code);
    const std::string message = OfxText(failure.message);
    std::string text = code.empty() ? "no code" : "code " + code;
    if (!message.empty())
        text += ": " + message;
    return text;
}

std::string_view StampOf(const OfxEntry& entry)
{
    return IsNoStamp(entry.posted) ? entry.user : entry.posted;
}

bool DeletesAnother(const OfxEntry& entry)
{
    return EqualsIgnoringCase(entry.correction, "DELETE");
}

void OfxSurvey::EndStatement(const OfxFacts& facts)
{
    if (statements_.size() == kMostStatements)
        throw NotAStatement("The file holds more than 100,000 statements.");
    statements_.push_back(facts);
    if (facts.currency.empty())
        statements_.back().currency = currency_;
    currency_ = {};
    amounts_.AddOther(facts.balance);
}

void OfxSurvey::Entry(const OfxEntry& entry)
{
    closesRows_ = closesRows_ || entry.closed;
    if (entry.pending || entry.last)
        return;
    if (currency_.empty())
        currency_ = entry.currency;
    amounts_.Add(OfxText(entry.amount));
    const std::string stamp = OfxText(StampOf(entry));
    if (!IsNoStamp(stamp) && !ReadOfxDay(stamp))
        dates_.Add(stamp);
    identifiers_.Add(statements_.size(), entry);
}

void OfxSurvey::Failure(const OfxFailure& failure)
{
    if (failure_.empty())
        failure_ = ToText(failure);
}

void OfxSurvey::Other(OfxTag content)
{
    if (other_ == OfxTag::Unknown || other_ == OfxTag::SignOn)
        other_ = content;
}

void OfxSurvey::OtherAmount(std::string_view raw)
{
    amounts_.AddOther(OfxText(raw));
}

void OfxSurvey::Finish()
{
    accounts_ = OfxAccountsOf(statements_);
    for (const StatementAccount& account : accounts_)
        keys_.push_back(std::hash<std::string>()(account.number + "\n" + account.bank + "\n" +
                                                 account.type + "\n" + account.currency));
    identifiers_.Settle(keys_);
}

std::string OfxSurvey::WhyNoStatement(bool breaksOff) const
{
    if (!failure_.empty())
        return "The bank answered with an error instead of a statement (" + failure_ + ").";
    if (breaksOff && (other_ == OfxTag::Unknown || other_ == OfxTag::SignOn))
        return "The file ends before the statement in it begins.";
    if (const char* const described = Described(other_))
        return std::string("The file holds ") + described + ", not a statement of an account.";
    return "The file is in the format OFX but holds no statement of an account.";
}

}  // namespace clb
