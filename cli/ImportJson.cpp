#include "cli/ImportJson.h"

#include "cli/Table.h"
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
            {"state", StateOf(shown)}};
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

const char* StateOf(const ShownRow& shown)
{
    switch (shown.state) {
        case RowState::Added: return "added";
        case RowState::Known: return "known";
        case RowState::Read: break;
    }
    return "read";
}

std::string TextOf(const StatementRow& row)
{
    return row.name + (row.name.empty() || row.text.empty() ? "" : " ") + row.text;
}

std::string LineOf(const LeftOutPart& part)
{
    std::string line = "line " + std::to_string(part.line) + " left out: ";
    if (part.count > 1)
        line = std::to_string(part.count) + " parts left out: ";
    line += ToText(part.reason);
    if (!part.text.empty())
        line += ": " + Printable(part.text);
    return line;
}

bool IsUnreadable(const LeftOutPart& part)
{
    return !part.text.empty() &&
           (part.reason == LeftOutReason::NoDate || part.reason == LeftOutReason::NoAmount);
}

std::string ReasonInFile(const ImportedFile& file)
{
    std::string lines;
    const auto add = [&lines](const std::string& line) {
        if (!line.empty())
            lines += (lines.empty() ? "" : "\n") + line;
    };
    if (file.statement.unknownFormat)
        add("Invalid file format.");
    if (!file.accountMissing)
        add(ReasonOf(file.statement));
    if (file.Unreadable())
        add("Invalid data was found while importing:");
    for (const LeftOutPart& part : file.statement.leftOut)
        if (IsUnreadable(part))
            add(LineOf(part));
    return lines;
}

std::string ReasonOf(const ImportedFile& file)
{
    if (file.accountMissing && file.messages.empty())
        return "The file's account is not known: --create, --map or --qif-account names one.";
    const std::string reason = ReasonInFile(file);
    return reason.empty() ? file.messages.substr(0, file.messages.find_last_not_of('\n') + 1)
                          : reason;
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

Json ToJson(const std::vector<OtherFile>& others)
{
    Json list = Json::array();
    for (const OtherFile& other : others)
        list.push_back({{"file", other.path}, {"reason", other.why}});
    return list;
}

}  // namespace clb
