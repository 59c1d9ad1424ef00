#include "intake/StatementJson.h"

#include <map>

namespace clb {
namespace {

const char* SubjectOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "the order of day, month and year";
        case StatementQuestion::Decimal: return "the decimal mark of its amounts";
        case StatementQuestion::Sign: return "whether positive amounts come in or go out";
        case StatementQuestion::Columns: return "which column is what";
        case StatementQuestion::Truncated: return "what to do with its end, which is missing";
    }
    return "";
}

std::string SentenceOf(const OpenQuestion& open)
{
    std::string options;
    for (const std::string& option : open.options)
        options += (options.empty() ? "" : ", ") + option;
    return std::string("The file leaves open ") + SubjectOf(open.question) +
           (options.empty() ? "" : " (" + options + ")") + ". " +
           (open.why.empty() ? "" : open.why + " ") + "Answer with " + OptionOf(open.question) +
           ".";
}

/// Counts by the keys that scripts know.
Json CountsOf(const std::vector<LeftOutPart>& parts)
{
    static const std::map<LeftOutReason, const char*> keys = {
        {LeftOutReason::NoDate, "noDate"},         {LeftOutReason::NoAmount, "noAmount"},
        {LeftOutReason::Pending, "pending"},       {LeftOutReason::OtherCurrency, "otherCurrency"},
        {LeftOutReason::Investment, "investment"}, {LeftOutReason::Incomplete, "incomplete"},
        {LeftOutReason::NotARow, "notARow"},       {LeftOutReason::TwiceInFile, "twiceInFile"}};
    // What the import of OFX and QIF files as they are may leave out. Nothing of it is left out
    // here.
    Json counts = {{"linesBehindRepair", 0}, {"behindEmptyTransaction", 0},
                   {"beforeAccount", 0},     {"notClosed", 0},
                   {"furtherAccounts", 0},   {"withoutIdentifier", 0}};
    for (const auto& [reason, key] : keys)
        counts[key] = 0;
    for (const LeftOutPart& part : parts)
        counts[keys.at(part.reason)] = counts[keys.at(part.reason)].get<std::size_t>() + part.count;
    return counts;
}

Json AmountOrNull(const std::optional<Money>& amount)
{
    return amount ? Json(amount->ToText()) : Json();
}

Json ToJson(const LeftOutPart& part)
{
    return {{"line", part.line},
            {"reason", ToText(part.reason)},
            {"text", part.text},
            {"count", part.count}};
}

Json ToJson(const ImportedAccount& account)
{
    return {{"account", account.accountID},
            {"name", account.name},
            {"currency", account.currency.empty() ? Json() : Json(account.currency)},
            {"read", account.read},
            {"added", account.added},
            {"known", account.known},
            {"opening", AmountOrNull(account.opening)},
            {"closing", AmountOrNull(account.closing)},
            {"balanced", account.balanced ? Json(*account.balanced) : Json()}};
}

Json ToJson(const OpenQuestion& open)
{
    return {{"question", KeyOf(open.question)},
            {"options", open.options},
            {"proposed", open.proposed.empty() ? Json() : Json(open.proposed)},
            {"option", OptionOf(open.question)}};
}

template <class Item>
Json ArrayOf(const std::vector<Item>& items)
{
    Json array = Json::array();
    for (const Item& item : items)
        array.push_back(ToJson(item));
    return array;
}

/// What was added, or what the account had already.
std::int64_t Sum(const ImportedStatement& statement, std::int64_t ImportedAccount::*count)
{
    std::int64_t sum = 0;
    for (const ImportedAccount& account : statement.accounts)
        sum += account.*count;
    return sum;
}

}  // namespace

const char* OptionOf(StatementQuestion question)
{
    switch (question) {
        case StatementQuestion::DateOrder: return "--date-order";
        case StatementQuestion::Decimal: return "--decimal";
        case StatementQuestion::Sign: return "--sign";
        case StatementQuestion::Columns: return "--columns";
        case StatementQuestion::Truncated: return "--take-whole-rows";
    }
    return "";
}

std::string ReasonOf(const ImportedStatement& statement)
{
    std::string reason = statement.refused;
    for (const OpenQuestion& open : statement.asked)
        reason += (reason.empty() ? "" : "\n") + SentenceOf(open);
    return reason;
}

Json ToJson(const ImportedStatement& statement)
{
    const std::string reason = ReasonOf(statement);
    return {{"file", statement.source},
            {"kind", statement.kind.empty() ? Json() : Json(statement.kind)},
            {"imported", Sum(statement, &ImportedAccount::added)},
            {"skipped", Sum(statement, &ImportedAccount::known)},
            {"refused", reason.empty() ? Json() : Json(reason)},
            {"leftOut", CountsOf(statement.leftOut)},
            {"omitted", ArrayOf(statement.leftOut)},
            {"accounts", ArrayOf(statement.accounts)},
            {"asked", ArrayOf(statement.asked)},
            {"notes", statement.notes}};
}

}  // namespace clb
