#include "statements/ofx/OfxRows.h"

#include <algorithm>

#include "base/Text.h"
#include "statements/ofx/OfxAccount.h"
#include "statements/ofx/OfxDate.h"
#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

constexpr std::size_t kShownLength = 100;
constexpr std::size_t kLongestSought = 256;

/// Puts texts together that are not empty, with a space between them.
std::string Joined(std::initializer_list<std::string> texts)
{
    std::string joined;
    for (const std::string& text : texts) {
        if (text.empty())
            continue;
        joined += joined.empty() ? "" : " ";
        joined += text;
    }
    return joined;
}

/// Whether a text says the other already. A longer one is not looked for, which would take long.
bool Holds(std::string_view text, std::string_view part)
{
    return text == part ||
           (part.size() <= kLongestSought && text.find(part) != std::string_view::npos);
}

bool IsZeros(std::string_view text)
{
    return text.find_first_not_of('0') == std::string_view::npos;
}

/// The type in words if it says what the row is: "FEE", "ATM". The numbers of OFC say nothing.
std::string TypeName(const OfxEntry& entry)
{
    std::string type = OfxText(entry.type);
    const bool digit = !type.empty() && type.front() >= '0' && type.front() <= '9';
    return digit ? std::string() : type;
}

/// Returns the number of a cheque. Many banks also number other rows by this element.
std::string CheckNumber(const OfxEntry& entry)
{
    std::string number = OfxText(entry.check);
    const bool isCheck = EqualsIgnoringCase(entry.type, "CHECK");
    if (IsZeros(number) || (!isCheck && entry.check == entry.identifier))
        return {};
    return number;
}

/// Sets the row's name and text: the first of its names, and all others that say more.
void Describe(const OfxEntry& entry, StatementRow& row)
{
    std::string memo = OfxText(entry.memo);
    for (const std::string_view raw : {entry.name, entry.party, entry.extendedName})
        if (row.name.empty())
            row.name = OfxText(raw);
    if (row.name.empty())
        row.name.swap(memo);
    row.text = memo;
    const auto add = [&row](const std::string& more) {
        if (!more.empty() && !Holds(row.name, more) && !Holds(row.text, more))
            row.text = Joined({row.text, more});
    };
    add(OfxText(entry.extendedName));
    add(OfxText(entry.party));
    const std::string reference = OfxText(entry.reference);
    if (!IsZeros(reference) && entry.reference != entry.identifier &&
        entry.reference != entry.check)
        add(reference);
    if (row.name.empty())
        row.name = TypeName(entry);
}

}  // namespace

void OfxRows::BeginStatement()
{
    currency_ = Account().currency;
    securities_.clear();
    sink_.BeginAccount(Account());
}

void OfxRows::EndStatement(const OfxFacts& facts)
{
    if (currency_ != Account().currency)
        sink_.BeginAccount(Account());
    for (const Securities& held : securities_)
        sink_.LeftOut({held.line, LeftOutReason::Investment, ToUpperAscii(held.name), held.count});
    sink_.EndAccount(OfxBalancesOf(facts, survey_.Amounts(), answers_.decimal));
    ++statement_;
}

void OfxRows::Security(std::string_view name, std::size_t offset)
{
    const auto found = std::find_if(
        securities_.begin(), securities_.end(),
        [name](const Securities& held) { return EqualsIgnoringCase(held.name, name); });
    if (found == securities_.end())
        securities_.push_back({name, lines_.LineOf(offset), 1});
    else
        ++found->count;
}

void OfxRows::Failure(const OfxFailure& failure)
{
    sink_.LeftOut({lines_.LineOf(failure.offset), LeftOutReason::NotARow,
                   "error of the bank, " + ToText(failure)});
}

std::optional<Date> OfxRows::Day(std::string_view stamp) const
{
    const std::string text = OfxText(stamp);
    if (IsNoStamp(text))
        return std::nullopt;
    const auto day = ReadOfxDay(text);
    return day ? day
               : ReadDate(text, survey_.Dates().Settled(answers_.dateOrder, kOfxPreferredOrder));
}

std::optional<LeftOutReason> OfxRows::WhyNoRow(const OfxEntry& entry)
{
    if (entry.last || (!entry.closed && survey_.ClosesRows()))
        return LeftOutReason::Incomplete;
    if (entry.pending)
        return LeftOutReason::Pending;
    if (DeletesAnother(entry))
        return LeftOutReason::NotARow;
    if (!Day(StampOf(entry)) || entry.dates > 1)
        return LeftOutReason::NoDate;
    if (entry.amounts > 1 || !survey_.Amounts().Read(OfxText(entry.amount), answers_.decimal))
        return LeftOutReason::NoAmount;
    const std::size_t account = survey_.AccountKeys().at(statement_);
    const IdentifierUse use = survey_.Identifiers().UseOf(entry, account);
    const bool twice =
        use == IdentifierUse::Again && !seen_.insert(OfxIdentifiers::KeyOf(entry, account)).second;
    if (twice || use == IdentifierUse::Corrected)
        return LeftOutReason::TwiceInFile;
    return std::nullopt;
}

void OfxRows::Entry(const OfxEntry& entry)
{
    const std::size_t line = lines_.LineOf(entry.offset);
    if (const auto reason = WhyNoRow(entry))
        return LeaveOut(entry, line, *reason);
    EnterAccount(entry);
    StatementRow row = RowOf(entry);
    row.line = line;
    sink_.Row(row);
}

/// A row in another currency belongs to an account of its own.
void OfxRows::EnterAccount(const OfxEntry& entry)
{
    StatementAccount account = Account();
    if (!entry.currency.empty())
        account.currency = OfxCurrency(entry.currency);
    if (account.currency == currency_)
        return;
    currency_ = account.currency;
    sink_.BeginAccount(account);
}

StatementRow OfxRows::RowOf(const OfxEntry& entry) const
{
    StatementRow row;
    row.date = *Day(StampOf(entry));
    row.valueDate = Day(entry.available);
    row.amount = *survey_.Amounts().Read(OfxText(entry.amount), answers_.decimal);
    Describe(entry, row);
    row.checkNumber = CheckNumber(entry);
    const IdentifierUse use =
        survey_.Identifiers().UseOf(entry, survey_.AccountKeys().at(statement_));
    if (use == IdentifierUse::Once || use == IdentifierUse::Again)
        row.identifier = OfxText(entry.identifier);
    if (use == IdentifierUse::Reused)
        row.sharedIdentifier = OfxText(entry.identifier);
    return row;
}

void OfxRows::LeaveOut(const OfxEntry& entry, std::size_t line, LeftOutReason reason)
{
    StatementRow row;
    Describe(entry, row);
    const std::string text =
        Joined({OfxText(StampOf(entry)), OfxText(entry.amount), row.name, row.text});
    sink_.LeftOut({line, reason, Left(text, kShownLength)});
}

}  // namespace clb
