#include "statements/ofx/OfxWalk.h"

#include "base/Text.h"
#include "statements/ofx/OfxDate.h"
#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

/// Whether the status is an error. Banks that leave the severity out give code 0 for success.
bool IsError(std::string_view severity, std::string_view code)
{
    if (severity.empty())
        return !IsNoStamp(code);
    return EqualsIgnoringCase(severity, "ERROR");
}

bool SaysYes(std::string_view value)
{
    return !value.empty() &&
           std::string_view("YyTt1").find(value.front()) != std::string_view::npos;
}

/// Whether banks also write the aggregate as an element with a text. Text in any other is noise.
bool MayHoldText(OfxTag tag)
{
    switch (tag) {
        case OfxTag::Currency:
        case OfxTag::OriginalCurrency:
        case OfxTag::Party:
        case OfxTag::PendingList:
        case OfxTag::Status:
        case OfxTag::Trade: return true;
        default: return IsOtherContent(tag);
    }
}

/// Sets a value that counts, and counts those that differ.
void SetCounted(std::string_view& field, unsigned& count, std::string_view value)
{
    count += field != value ? 1U : 0U;
    field = value;
}

/// Keeps the first of several values.
void KeepFirst(std::string_view& field, std::string_view value)
{
    if (field.empty())
        field = value;
}

}  // namespace

void OfxWalk::Run()
{
    OfxToken token;
    while (scanner_.Next(token)) {
        if (token.kind == OfxToken::Kind::Open)
            Open(token);
        else
            Close(token.tag, true);
    }
    const bool onlyRows =
        looseRows_ && !structured_ && path_.size() == 1 && Innermost() == OfxTag::Root;
    breaksOff_ = !path_.empty() && !onlyRows;
    atEnd_ = true;
    while (!path_.empty())
        Pop(false);
    EndStatement();
}

void OfxWalk::Open(const OfxToken& token)
{
    if (token.tag == OfxTag::Unknown || token.closed)
        return;
    if (IsAggregate(token.tag) && (token.value.empty() || !MayHoldText(token.tag)))
        OpenAggregate(token);
    else if (!token.value.empty())
        Value(token);
}

void OfxWalk::OpenAggregate(const OfxToken& token)
{
    const OfxTag tag = token.tag;
    // The statement of OFC is in two aggregates.
    if (tag == OfxTag::BankStatement && Inside(OfxTag::OfcStatement))
        return;
    if (IsStatement(tag)) {
        CloseRow();
        for (const OfxTag statement : {OfxTag::BankStatement, OfxTag::CardStatement,
                                       OfxTag::InvestmentStatement, OfxTag::OfcStatement})
            Close(statement, false);
        BeginStatement(tag);
    } else if (tag == OfxTag::Row || tag == OfxTag::PendingRow) {
        CloseRow();
        BeginRow(tag, token.offset);
    } else if (tag == OfxTag::Trade || tag == OfxTag::Position || tag == OfxTag::Order) {
        if (inStatement_ && !InsideRow() && !Inside(tag))
            visitor_.Security(token.name, token.offset);
    } else if (tag == OfxTag::Status) {
        status_ = {token.offset, {}, {}};
        severity_ = {};
    } else if (IsOtherContent(tag) || tag == OfxTag::SignOn) {
        visitor_.Other(tag);
    }
    path_.push_back(tag);
    ++open_[static_cast<std::size_t>(tag)];
}

void OfxWalk::BeginStatement(OfxTag kind)
{
    EndStatement();
    if (kind != OfxTag::Unknown)
        facts_ = {};
    facts_.kind = kind;
    periodEnd_ = {};
    inStatement_ = true;
    structured_ = structured_ || kind != OfxTag::Unknown;
    visitor_.BeginStatement();
}

/// The account of rows that are in no statement: each number is one of the rows after it.
void OfxWalk::LooseAccount(std::string_view number)
{
    if (structured_ || (inStatement_ && number == facts_.account))
        return;
    EndStatement();
    facts_.account = number;
}

void OfxWalk::EndStatement()
{
    if (!inStatement_)
        return;
    visitor_.EndStatement(facts_);
    inStatement_ = false;
    facts_ = {};
}

void OfxWalk::BeginRow(OfxTag tag, std::size_t offset)
{
    if (!inStatement_) {
        BeginStatement(OfxTag::Unknown);
        looseRows_ = true;
    }
    entry_ = {};
    entry_.offset = offset;
    entry_.pending = tag == OfxTag::PendingRow || Inside(OfxTag::PendingList);
}

void OfxWalk::CloseRow()
{
    Close(OfxTag::Row, false);
    Close(OfxTag::PendingRow, false);
}

void OfxWalk::Close(OfxTag tag, bool byTag)
{
    if (!IsAggregate(tag) || !Inside(tag))
        return;
    while (Innermost() != tag)
        Pop(false);
    Pop(byTag);
}

void OfxWalk::Pop(bool byTag)
{
    const OfxTag tag = path_.back();
    path_.pop_back();
    --open_[static_cast<std::size_t>(tag)];
    Ended(tag, byTag);
}

void OfxWalk::Ended(OfxTag tag, bool byTag)
{
    if (tag == OfxTag::Row || tag == OfxTag::PendingRow) {
        entry_.closed = byTag;
        entry_.last = atEnd_;
        visitor_.Entry(entry_);
    } else if (IsStatement(tag)) {
        EndStatement();
    } else if (tag == OfxTag::Status) {
        EndOfStatus();
    }
}

void OfxWalk::EndOfStatus()
{
    if (IsError(severity_, status_.code))
        visitor_.Failure(status_);
}

void OfxWalk::Value(const OfxToken& token)
{
    if (InsideRow())
        RowValue(token.tag, token.value);
    else if (token.tag == OfxTag::AccountId && path_.size() == 1)
        LooseAccount(token.value);
    else if (inStatement_ || Innermost() == OfxTag::Status)
        StatementValue(token.tag, token.value);
    if (token.tag == OfxTag::OtherAmount || token.tag == OfxTag::BalanceAmount ||
        token.tag == OfxTag::Ledger)
        visitor_.OtherAmount(token.value);
}

/// An aggregate of a row may lack its end tag. What cannot belong to it belongs to the row.
void OfxWalk::RowValue(OfxTag tag, std::string_view value)
{
    const OfxTag around = Innermost();
    if (around == OfxTag::Opaque)
        return;
    if (around == OfxTag::Party && tag == OfxTag::Name)
        KeepFirst(entry_.party, value);
    else if (tag != OfxTag::CurrencySymbol)
        PlainRowValue(tag, value);
    else if (around == OfxTag::Currency)
        KeepFirst(entry_.currency, value);
}

void OfxWalk::PlainRowValue(OfxTag tag, std::string_view value)
{
    switch (tag) {
        case OfxTag::Amount: SetCounted(entry_.amount, entry_.amounts, value); break;
        case OfxTag::DatePosted: SetCounted(entry_.posted, entry_.dates, value); break;
        case OfxTag::DateUser:
        case OfxTag::DateTransaction: KeepFirst(entry_.user, value); break;
        case OfxTag::DateAvailable: KeepFirst(entry_.available, value); break;
        case OfxTag::RowType: KeepFirst(entry_.type, value); break;
        case OfxTag::Identifier: KeepFirst(entry_.identifier, value); break;
        case OfxTag::CheckNumber: KeepFirst(entry_.check, value); break;
        case OfxTag::Reference: KeepFirst(entry_.reference, value); break;
        case OfxTag::Name: KeepFirst(entry_.name, value); break;
        case OfxTag::Party: KeepFirst(entry_.party, value); break;
        case OfxTag::ExtendedName: KeepFirst(entry_.extendedName, value); break;
        case OfxTag::Memo: KeepFirst(entry_.memo, value); break;
        case OfxTag::Currency: KeepFirst(entry_.currency, value); break;
        case OfxTag::CorrectedIdentifier: KeepFirst(entry_.corrected, value); break;
        case OfxTag::CorrectionAction: KeepFirst(entry_.correction, value); break;
        case OfxTag::PendingList: entry_.pending = entry_.pending || SaysYes(value); break;
        default: break;
    }
}

void OfxWalk::StatementValue(OfxTag tag, std::string_view value)
{
    const OfxTag around = Innermost();
    switch (tag) {
        case OfxTag::AccountId: KeepFirst(facts_.account, value); break;
        case OfxTag::BankId: KeepFirst(facts_.bank, value); break;
        case OfxTag::BranchId: KeepFirst(facts_.branch, value); break;
        case OfxTag::AccountType: KeepFirst(facts_.type, value); break;
        case OfxTag::StatementCurrency: KeepFirst(facts_.currency, value); break;
        case OfxTag::BalanceAmount:
            if (around == OfxTag::LedgerBalance)
                facts_.balance = value;
            break;
        case OfxTag::BalanceDate:
            if (around == OfxTag::LedgerBalance)
                facts_.balanceDate = value;
            break;
        case OfxTag::PeriodEnd: periodEnd_ = value; break;
        case OfxTag::Ledger:
            facts_.balance = value;
            facts_.balanceDate = periodEnd_;
            break;
        case OfxTag::Code: status_.code = value; break;
        case OfxTag::Severity: severity_ = value; break;
        case OfxTag::Message: status_.message = value; break;
        default: break;
    }
}

}  // namespace clb
