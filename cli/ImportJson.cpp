#include "cli/ImportJson.h"

#include "intake/StatementJson.h"

namespace clb {
namespace {

Json AmountOrNull(const std::optional<Money>& amount)
{
    return amount ? Json(amount->ToText()) : Json();
}

Json ToJson(const OddBalance& odd)
{
    return {{"account", odd.accountID},
            {"name", odd.description},
            {"stored", AmountOrNull(odd.stored)},
            {"sum", AmountOrNull(odd.sum)}};
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
    const std::string reason = ReasonOf(file.statement);
    if (!reason.empty() && !file.accountMissing)
        return reason;
    if (file.accountMissing && file.messages.empty())
        return "The file's account is not known: --create, --map or --qif-account names one.";
    return file.messages.substr(0, file.messages.find_last_not_of('\n') + 1);
}

Json ToJson(const ImportedFile& file, bool rows)
{
    Json json = ToJson(file.statement);
    json["refused"] = file.Refused() ? Json(ReasonOf(file)) : Json();
    json["balances"] = ArrayOf(file.balances);
    json["backup"] = file.backup.empty() ? Json() : Json(file.backup);
    if (rows)
        json["rows"] = ArrayOf(file.rows);
    return json;
}

}  // namespace clb
