#include "export/NotReturned.h"

#include "base/Text.h"
#include "data/clsDatabase.h"

namespace clb {
namespace {

constexpr std::size_t kNotesLength = 50;

/// A text as a reader of the file finds it: up to "<" or a carriage return, without outer blanks,
/// in the file's characters.
std::string Returned(const std::string& text)
{
    const std::string readable = FromWindows1252(ToWindows1252(text));
    return std::string(Trim(std::string_view(readable).substr(0, readable.find_first_of("<\r"))));
}

std::string Counted(std::int32_t count)
{
    return std::to_string(count) + (count == 1 ? " transaction" : " transactions");
}

}  // namespace

void NotReturned::Add(const ExportedRow& row)
{
    ++count_;
    row_ = row;
    if (!row.postDate)
        Tell("it has no date, and the reading ends there");
    if (!row.hasAmount)
        Tell("it has no amount, and the reading ends there");
    if (row.identifier.find('\'') != std::string::npos)
        Tell("an apostrophe in its identifier ends the reading there");
    if (!identifiers_.insert(Returned(row.identifier)).second)
        Tell("left out, its identifier is an earlier one's");
    Check("identifier", row.identifier, Returned(row.identifier));
    if (row.postDate && row.postDate->Seconds() != 0)
        Tell("its date comes back without the time of day");
    const std::string description = Returned(row.description);
    Check("description", row.description, description.empty() ? "(blank)" : description);
    Check("notes", row.notes, Left(Returned(row.notes), kNotesLength));
    Check("check number", row.checkID, Returned(row.checkID));
    if (row.category != "(none)")
        ++categories_;
    if (row.postDate && (row.month != Month{row.postDate->Year(), row.postDate->Month()}))
        ++moved_;
}

void NotReturned::Check(const std::string& name, const std::string& text,
                        const std::string& returned)
{
    if (returned != text)
        Tell("\"" + returned + "\" comes back for its " + name);
}

void NotReturned::Tell(const std::string& what)
{
    rows_.insert(count_);
    lines_.push_back("Transaction " + Named() + ": " + what);
}

/// Its place in the file, and what a user knows it by.
std::string NotReturned::Named() const
{
    std::string name = std::to_string(count_) + " (";
    if (row_.postDate)
        name += Date::FromDays(row_.postDate->Days()).ToIso() + ", ";
    return name + row_.description + ")";
}

std::vector<std::string> NotReturned::Lines() const
{
    std::vector<std::string> lines = lines_;
    if (const std::string account = Returned(accountID_); account != accountID_)
        lines.push_back("The account's number comes back as \"" + account + "\"");
    if (categories_ > 0)
        lines.push_back("The file holds no categories: " + Counted(categories_));
    if (moved_ > 0)
        lines.push_back("Booked to another month than that of the date, which comes back: " +
                        Counted(moved_));
    return lines;
}

std::vector<std::string> TellNotReturned(clsDatabase& database, const std::string& accountID)
{
    NotReturned result(accountID);
    Recordset rows;
    database.Fill(
        rows, "SELECT * FROM Trans WHERE AccountID = '" + clsDatabase::ToSqlString(accountID) + "'",
        true);
    for (std::int32_t number = 1; !rows.AtEnd(); rows.MoveNext(), ++number) {
        ExportedRow row;
        row.identifier = ToText(rows.Get("FITID"));
        if (row.identifier.empty())
            row.identifier = "CVLB" + std::to_string(number);
        if (const auto* date = std::get_if<Date>(&rows.Get("PostDate")))
            row.postDate = *date;
        row.hasAmount = !IsNull(rows.Get("Amount"));
        row.description = ToText(rows.Get("Description"));
        row.notes = ToText(rows.Get("PayeeName"));
        row.checkID = ToText(rows.Get("CheckID"));
        row.category = ToText(rows.Get("Category"));
        row.month = {ToLong(rows.Get("Year")), ToLong(rows.Get("Period"))};
        result.Add(row);
    }
    return result.Lines();
}

}  // namespace clb
