#include "intake/RowAdditions.h"

#include "base/Text.h"
#include "data/NoCategory.h"
#include "data/clsDatabase.h"
#include "intake/OfxText.h"

namespace clb {
namespace {

constexpr std::int32_t kCategoryLength = 50;

std::string Quoted(const std::string& text)
{
    return "'" + clsDatabase::ToSqlString(text) + "'";
}

}  // namespace

void RowAdditions::Remember(const StatementRow& row, const std::string& identifier)
{
    additions_.push_back({row, identifier});
}

void RowAdditions::Write()
{
    for (const Addition& addition : additions_)
        Write(addition);
    additions_.clear();
}

void RowAdditions::Write(const Addition& addition)
{
    const StatementRow& row = addition.row;
    const std::string where = " WHERE AccountID = " + Quoted(accountID_) + " AND PostDate = #" +
                              row.date.ToIso() + "# AND Amount = " + row.amount.ToText() +
                              " AND FITID = " + Quoted(addition.identifier);
    const std::string description = DescriptionOf(row);
    std::string set =
        "SET PayeeName = " + Quoted(NotesOf(row)) + ", CheckID = " + Quoted(row.checkNumber);
    if (!description.empty())
        set += ", Description = " + Quoted(description);
    if (!row.category.empty())
        set += ", Category = " + Quoted(ProvideCategory(row.category, row.date));
    database_.Execute("UPDATE Trans " + set + where);
    if (!row.pieces.empty())
        WritePieces(addition, where);
}

/// The row becomes the first piece; the others are copies of it with the next numbers.
void RowAdditions::WritePieces(const Addition& addition, const std::string& where)
{
    Recordset rows;
    database_.Fill(rows,
                   "SELECT AccountID, PostDate, FITID, CheckID, Year, Period, Sequence, "
                   "SubSequence, Description, PayeeName, Category, Amount FROM Trans" +
                       where,
                   false);
    if (rows.Empty())
        return;
    std::vector<Value> common;
    for (std::size_t field = 0; field < 7; ++field)
        common.push_back(rows.Get(field));
    const std::string description = ToText(rows.Get("Description"));
    const std::string notes = ToText(rows.Get("PayeeName"));
    std::int32_t number = 0;
    for (const StatementPiece& piece : addition.row.pieces) {
        if (number > 0) {
            rows.AddNew();
            for (std::size_t field = 0; field < common.size(); ++field)
                rows.Set(field, common[field]);
            rows.Set("SubSequence", number);
            rows.Set("Description", description);
        }
        rows.Set("PayeeName", piece.text.empty() ? notes : piece.text);
        rows.Set("Category", ProvideCategory(piece.category, addition.row.date));
        rows.Set("Amount", piece.amount);
        rows.Update();
        ++number;
    }
}

/// The category as it is stored. The month has a budget line for it afterwards.
std::string RowAdditions::ProvideCategory(const std::string& category, const Date& date)
{
    const std::string stored = clsDatabase::TruncateString(category, kCategoryLength);
    if (stored.empty())
        return kNoCategory;
    database_.CreateBudgetEntry(stored, date.Year(), date.Month(), kNoCategory, Money());
    return stored;
}

}  // namespace clb
