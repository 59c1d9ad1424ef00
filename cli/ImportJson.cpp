#include "cli/ImportJson.h"

#include <map>

namespace clb {
namespace {

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
           (open.why.empty() ? "" : open.why + " ") + "Say it with " + OptionOf(open.question) +
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
    Json counts = Json::object();
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

Json ToJson(const OddBalance& odd)
{
    return {{"account", odd.accountID},
            {"name", odd.description},
            {"stored", AmountOrNull(odd.stored)},
            {"sum", AmountOrNull(odd.sum)}};
}

Json ToJson(const OpenQuestion& open)
{
    return {{"question", KeyOf(open.question)},
            {"options", open.options},
            {"proposed", open.proposed.empty() ? Json() : Json(open.proposed)},
            {"option", OptionOf(open.question)}};
}

Json ToJson(const ShownRow& shown)
{
    return {{"date", shown.row.date.ToIso()},
            {"amount", shown.row.amount.ToText()},
            {"text", TextOf(shown.row)},
            {"identifier", shown.identifier},
            {"state", shown.state}};
}

template <class Item>
Json ArrayOf(const std::vector<Item>& items)
{
    Json array = Json::array();
    for (const Item& item : items)
        array.push_back(ToJson(item));
    return array;
}

}  // namespace

std::string TextOf(const StatementRow& row)
{
    return row.name + (row.name.empty() || row.text.empty() ? "" : " ") + row.text;
}

std::string ReasonOf(const ImportedFile& file)
{
    if (!file.statement.refused.empty() && !file.accountMissing)
        return file.statement.refused;
    std::string reason;
    for (const OpenQuestion& open : file.statement.asked)
        reason += (reason.empty() ? "" : "\n") + SentenceOf(open);
    if (!reason.empty())
        return reason;
    if (file.accountMissing && file.messages.empty())
        return "The file's account is not known: --create, --map or --qif-account names one.";
    return file.messages.substr(0, file.messages.find_last_not_of('\n') + 1);
}

Json ToJson(const ImportedFile& file, bool rows)
{
    const ImportedStatement& statement = file.statement;
    Json json = {{"file", statement.source},
                 {"kind", statement.kind.empty() ? Json() : Json(statement.kind)},
                 {"imported", file.Added()},
                 {"skipped", file.Known()},
                 {"refused", file.Refused() ? Json(ReasonOf(file)) : Json()},
                 {"leftOut", CountsOf(statement.leftOut)},
                 {"omitted", ArrayOf(statement.leftOut)},
                 {"accounts", ArrayOf(statement.accounts)},
                 {"asked", ArrayOf(statement.asked)},
                 {"notes", statement.notes},
                 {"balances", ArrayOf(file.balances)},
                 {"backup", file.backup.empty() ? Json() : Json(file.backup)}};
    if (rows)
        json["rows"] = ArrayOf(file.rows);
    return json;
}

}  // namespace clb
