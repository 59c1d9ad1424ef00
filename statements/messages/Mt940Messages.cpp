#include "statements/messages/Mt940Messages.h"

#include "statements/messages/RowText.h"

namespace clb {
namespace {

/// The bank's reference of a line; empty if it is not fit to recognise the row.
std::string_view ReferenceOf(const Mt940Line& line)
{
    return IsIdentifying(line.bankReference, 8) ? std::string_view(line.bankReference)
                                                : std::string_view();
}

}  // namespace

Mt940Rows::Mt940Rows(std::string_view text, const std::vector<bool>& textsFirst)
    : fields_(text), textsFirst_(textsFirst)
{
}

bool Mt940Rows::Next(Mt940Row& row)
{
    row = {};
    Mt940Field field;
    bool any = false;
    if (hasAhead_) {
        hasAhead_ = false;
        any = Take(ahead_, row);
    }
    while (fields_.Next(field)) {
        if (field.tag == "61" && any) {
            ahead_ = field;
            hasAhead_ = true;
            return true;
        }
        if (field.tag == "61") {
            any = Take(field, row);
        } else if (field.tag == "86") {
            const bool first = textsFirst_[field.message];
            (any && !first ? row.texts : before_).push_back(field.content);
            row.isLast = field.isLast;
        } else if (field.tag == "NS") {
            if (any)
                row.ns = field.content;
            row.isLast = field.isLast;
        } else {
            before_.clear();
            if (any)
                return true;
        }
    }
    return any;
}

bool Mt940Rows::Take(const Mt940Field& field, Mt940Row& row)
{
    row.begin = field.begin;
    row.message = field.message;
    row.line = field.content;
    row.isLast = field.isLast;
    if (textsFirst_[field.message])
        row.texts = before_;
    before_.clear();
    return true;
}

Mt940Facts::Mt940Facts(std::string_view text)
{
    Mt940Fields fields(text);
    Mt940Field field;
    while (fields.Next(field)) {
        if (open_.any && field.message != messages_.size())
            Finish();
        Take(field);
    }
    if (open_.any) {
        // Some banks close no message at all.
        const bool closes = anyClosed_ || messages_.empty();
        broken_ = open_.isCut || (open_.isBegun && !open_.isClosed && !open_.isInterim &&
                                  !fields.Ended() && closes);
        Finish();
    }
    CountReferences(text);
}

void Mt940Facts::Take(const Mt940Field& field)
{
    open_.any = true;
    const std::string_view tag = field.tag;
    if (tag == "20") {
        open_.isBegun = true;
    } else if (tag.starts_with("25")) {
        open_.account = ReadMt940Account(field.content);
        open_.hasAccount = hasStatement_ = true;
    } else if (tag == "34F" || tag == "13D" || tag.starts_with("90")) {
        open_.isInterim = true;
        if (open_.currency.empty())
            open_.currency = Mt940Currency(field.content);
    } else if (tag.starts_with("60") || tag.starts_with("62") || tag == "64" || tag == "65") {
        TakeBalance(field);
    } else if (tag == "61" || tag == "86") {
        if (tag == "86")
            wraps_.Add(field.content);
        else
            open_.isCut = field.isLast && ReadMt940Line(field.content).type.empty();
        TakeOrder(field);
    }
}

void Mt940Facts::TakeBalance(const Mt940Field& field)
{
    hasStatement_ = true;
    const bool opens = field.tag[1] == '0';
    (opens ? open_.isBegun : open_.isClosed) = true;
    const auto balance = ReadMt940Balance(field.content);
    if (!balance)
        return;
    if (open_.currency.empty())
        open_.currency = balance->currency;
    if (opens && !open_.balances.opening)
        open_.balances.opening = balance->amount;
    if (field.tag.starts_with("62")) {
        open_.balances.closing = balance->amount;
        open_.balances.closingDate = balance->date;
    }
}

/// Texts are before their lines if a message begins with a text and ends with a line.
void Mt940Facts::TakeOrder(const Mt940Field& field)
{
    if (open_.isClosed)
        return;
    const bool isLine = field.tag == "61";
    if (!open_.hasOrder)
        open_.textsFirst = !isLine;
    open_.hasOrder = true;
    open_.lastIsLine = isLine;
}

void Mt940Facts::Finish()
{
    std::size_t number = messages_.empty() ? 0 : messages_.back();
    if (open_.hasAccount || accounts_.empty()) {
        if (!open_.currency.empty())
            open_.account.currency = open_.currency;
        number = AccountFor(open_.account);
    }
    if (open_.isBegun || open_.isClosed || open_.hasAccount)
        accounts_[number].chain.Add(open_.balances);
    anyClosed_ = anyClosed_ || open_.isClosed;
    messages_.push_back(number);
    textsFirst_.push_back(open_.textsFirst && open_.lastIsLine);
    open_ = {};
}

std::size_t Mt940Facts::AccountFor(const StatementAccount& account)
{
    const auto [at, added] = numbers_.emplace(
        account.bank + '\n' + account.number + '\n' + account.currency, accounts_.size());
    if (added)
        accounts_.push_back({account, {}});
    return at->second;
}

void Mt940Facts::CountReferences(std::string_view text)
{
    Mt940Rows rows(text, textsFirst_);
    for (Mt940Row row; rows.Next(row);) {
        const Mt940Line line = ReadMt940Line(row.line);
        if (!line.expected && !ReferenceOf(line).empty())
            references_.Add(messages_[row.message], ReferenceOf(line));
    }
}

void Mt940Facts::Identify(std::size_t message, const Mt940Line& line, StatementRow& row) const
{
    const std::string_view reference = ReferenceOf(line);
    const bool single = references_.IsSingle(messages_[message], reference);
    (single ? row.identifier : row.sharedIdentifier) = reference;
}

}  // namespace clb
