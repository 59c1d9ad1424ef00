#include "check/CheckRows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Date.h"
#include "base/Text.h"

namespace clb {
namespace {

using Kind = RawSql::Kind;

bool FitsLong(std::int64_t number)
{
    return number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::int32_t>::max();
}

std::string NotA(const RawSql::Row& row, int at, const char* what)
{
    return row.Describe(at) + ", which is not " + what;
}

/// Returns what is wrong with a text. Empty if it is valid.
std::string TextFault(std::string_view text, std::size_t width)
{
    if (!IsValidUtf8(text))
        return "a text that is not valid UTF-8";
    if (width != 0 && text.size() > width && Length(text) > width)
        return "a text of " + std::to_string(Length(text)) + " characters, where " +
               std::to_string(width) + " fit";
    return {};
}

/// Returns what is wrong with a cell that is not empty. Empty if it is valid.
std::string Fault(const RawSql::Row& row, int at, const ColumnType& type)
{
    const Kind kind = row.KindOf(at);
    switch (type.type) {
        case FieldType::Text:
            return kind == Kind::Blob ? NotA(row, at, "a text")
                                      : TextFault(row.Text(at), type.width);
        case FieldType::Money: return kind == Kind::Integer ? "" : NotA(row, at, "an amount");
        case FieldType::Long:
            if (kind != Kind::Integer)
                return NotA(row, at, "a whole number");
            return FitsLong(row.Integer(at)) ? "" : row.Describe(at) + ", which is too large";
        case FieldType::Date:
            return kind == Kind::Text && Date::FromIso(row.Text(at)) ? "" : NotA(row, at, "a date");
        case FieldType::Boolean:
            return kind == Kind::Integer && (row.Integer(at) == 0 || row.Integer(at) == 1)
                       ? ""
                       : NotA(row, at, "yes (1) or no (0)");
        default:
            if (kind != Kind::Integer && (kind != Kind::Real || !std::isfinite(row.Real(at))))
                return NotA(row, at, "a number");
            return type.type == FieldType::Single &&
                           std::abs(row.Real(at)) > double{std::numeric_limits<float>::max()}
                       ? row.Describe(at) + ", which is too large"
                       : "";
    }
}

/// Returns a value of the type, in the program's dialect.
const char* ExampleOf(FieldType type)
{
    switch (type) {
        case FieldType::Text: return "'text'";
        case FieldType::Date: return "#2026-01-31#";
        case FieldType::Boolean: return "YES";
        default: return "0";
    }
}

std::optional<std::int64_t> WholeNumber(const RawSql::Row& row, int at)
{
    return row.KindOf(at) == Kind::Integer ? std::optional(row.Integer(at)) : std::nullopt;
}

std::string TextOf(const std::optional<std::int64_t>& number)
{
    return number ? std::to_string(*number) : std::string();
}

}  // namespace

void RowGroup::Add(std::int64_t rowId, std::optional<std::int64_t> sequence)
{
    if (count++ == 0)
        row = rowId;
    if (!sequence)
        return;
    first = std::min(first.value_or(*sequence), *sequence);
    last = std::max(last.value_or(*sequence), *sequence);
}

std::string RowGroup::Numbers() const
{
    return first == last ? "number " + TextOf(first)
                         : "numbers " + TextOf(first) + " to " + TextOf(last);
}

std::optional<Money> RowSum::Total() const
{
    if (sum_ < std::numeric_limits<std::int64_t>::min() ||
        sum_ > std::numeric_limits<std::int64_t>::max())
        return std::nullopt;
    return Money::FromScaled(static_cast<std::int64_t>(sum_));
}

std::string MonthText(const BudgetPlace& place)
{
    const auto& [year, month, category] = place;
    if (!year || !month || *year < 1000 || *year > 9999 || *month < 0)
        return (month ? "month " + TextOf(month) : std::string("an empty month")) +
               (year ? " of the year " + TextOf(year) : std::string(" of an empty year"));
    const std::string period = TextOf(month);
    return TextOf(std::get<0>(place)) + "-" + (period.size() == 1 ? "0" : "") + period;
}

bool IsMonth(const BudgetPlace& place)
{
    const auto& [year, period, category] = place;
    return year && *year >= 1000 && *year <= 9999 && period && *period >= 1 && *period <= 12;
}

CheckRows::CheckRows(RawSql& raw, const TableInfo& expected, FindingList& findings)
    : raw_(raw), expected_(expected), findings_(findings)
{
    const TableInfo* actual = raw.Find(expected.name);
    for (const ColumnInfo& column : expected.columns)
        if (actual && actual->Find(column.name))
            columns_.push_back(&column);
    sequence_ = Place("Sequence");
    piece_ = Place("SubSequence");
    // An account's own number is not a reference to it.
    account_ = expected.name == "Account" ? 0 : Place("AccountID");
    year_ = Place("Year");
    period_ = Place("Period");
    category_ = Place("Category");
    const bool loan = expected.name == "Loan";
    amount_ = Place(loan ? "OriginalAmount" : expected.name == "Investment" ? "Total" : "Amount");
    paid_ = loan ? Place("PaidAmount") : 0;
}

int CheckRows::Place(const char* column) const
{
    const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ColumnInfo* info) {
        return EqualsIgnoringCase(info->name, column);
    });
    return found == columns_.end() ? 0 : static_cast<int>(found - columns_.begin()) + 1;
}

std::string CheckRows::Sql() const
{
    std::string sql = "SELECT rowid";
    for (const ColumnInfo* column : columns_)
        sql += ", " + QuoteName(column->name);
    return sql + " FROM " + QuoteName(expected_.name) + " NOT INDEXED";
}

void CheckRows::Run()
{
    if (raw_.Find(expected_.name))
        raw_.Select(Sql(), [this](const RawSql::Row& row) { TakeRow(row); });
}

void CheckRows::TakeRow(const RawSql::Row& row)
{
    int at = 0;
    for (const ColumnInfo* column : columns_)
        CheckCell(row, ++at, *column);
    CheckNumber(row);
    if (account_ != 0)
        AddToAccount(row);
    if (year_ != 0 && period_ != 0 && category_ != 0)
        AddToPlace(row);
}

std::optional<std::int64_t> CheckRows::Sequence(const RawSql::Row& row) const
{
    return sequence_ == 0 ? std::nullopt : WholeNumber(row, sequence_);
}

/// "row 17 (number 5)", or only the number if it is also the row's.
std::string CheckRows::Name(const RawSql::Row& row) const
{
    const auto number = Sequence(row);
    std::string rowText = "row " + std::to_string(row.Integer(0));
    if (!number)
        return rowText;
    return *number == row.Integer(0) ? "number " + std::to_string(*number)
                                     : rowText + " (number " + std::to_string(*number) + ")";
}

void CheckRows::CheckCell(const RawSql::Row& row, int at, const ColumnInfo& column)
{
    std::string fault;
    if (!row.IsNull(at))
        fault = Fault(row, at, column.type);
    else if (column.notNull)
        fault = "nothing, where something must be";
    if (fault.empty())
        return;
    const bool text = column.type.type == FieldType::Text && row.KindOf(at) == Kind::Text;
    findings_.Add(
        {.kind = text ? "text" : "cell",
         .table = expected_.name,
         .text = expected_.name + "." + column.name + " of " + Name(row) + " holds " + fault + ".",
         .rows = 1,
         .row = row.Integer(0),
         .sequence = Sequence(row),
         .column = column.name,
         .query = text ? std::string() : QueryFor(row, at)});
}

/// Numbers of rows start at 1, those of pieces at 0. A transaction without a number is found
/// together with those that share one.
void CheckRows::CheckNumber(const RawSql::Row& row)
{
    const auto add = [&](int at, const std::string& what) {
        findings_.Add({.kind = "number",
                       .table = expected_.name,
                       .text = expected_.name + "." + Column(at).name + " of " + Name(row) +
                               " holds " + what + ".",
                       .rows = 1,
                       .row = row.Integer(0),
                       .sequence = Sequence(row),
                       .column = Column(at).name,
                       .meaning = "The program never gives such a number. Commands on this row may "
                                  "fail or change another one.",
                       .query = QueryFor(row, at)});
    };
    if (sequence_ != 0 && row.KindOf(sequence_) == Kind::Integer && row.Integer(sequence_) < 1)
        add(sequence_, row.Describe(sequence_) + ", where numbers begin at 1");
    if (piece_ != 0 && row.IsNull(piece_))
        add(piece_, "nothing, where a number must be");
    else if (piece_ != 0 && row.KindOf(piece_) == Kind::Integer && row.Integer(piece_) < 0)
        add(piece_, row.Describe(piece_) + ", where numbers begin at 0");
}

/// Returns the query that stores another value in the cell. Empty if the number does not identify
/// the row.
std::string CheckRows::QueryFor(const RawSql::Row& row, int at) const
{
    const auto number = Sequence(row);
    // A repair computes a balance again.
    if (!number || at == sequence_ || Column(at).name == "CurrentBalance")
        return {};
    std::string piece;
    if (piece_ != 0 && row.IsNull(piece_))
        piece = " AND SubSequence IS NULL";
    else if (piece_ != 0 && row.KindOf(piece_) == Kind::Integer)
        piece = " AND SubSequence = " + std::to_string(row.Integer(piece_));
    return "UPDATE " + expected_.name + " SET " + Column(at).name + " = " +
           ExampleOf(Column(at).type.type) + " WHERE Sequence = " + std::to_string(*number) + piece;
}

const ColumnInfo& CheckRows::Column(int at) const
{
    return *columns_[static_cast<std::size_t>(at) - 1];
}

void CheckRows::AddToAccount(const RawSql::Row& row)
{
    const bool none = row.IsNull(account_);
    const std::string_view number = none ? std::string_view() : row.Text(account_);
    if (!lastAccount_ || none || number != lastNumber_) {
        lastNumber_ = number;
        lastAccount_ = &accounts_[none ? std::nullopt : std::optional(lastNumber_)];
    }
    lastAccount_->Add(row.Integer(0), Sequence(row));
    AddAmount(row, lastAccount_->sum);
    if (none)
        lastAccount_ = nullptr;
}

void CheckRows::AddAmount(const RawSql::Row& row, RowSum& sum) const
{
    if (amount_ == 0 || (paid_ == 0 && expected_.name == "Loan"))
        return sum.Spoil();
    const bool both = paid_ != 0;
    if (row.IsNull(amount_) || (both && row.IsNull(paid_)))
        return;
    if (row.KindOf(amount_) != Kind::Integer || (both && row.KindOf(paid_) != Kind::Integer))
        return sum.Spoil();
    sum.Add(row.Integer(amount_));
    if (both)
        sum.Subtract(row.Integer(paid_));
}

void CheckRows::AddToPlace(const RawSql::Row& row)
{
    for (const int at : {year_, period_})
        if (!row.IsNull(at) && row.KindOf(at) != Kind::Integer)
            return;  // reported with the cell already
    BudgetPlace place{WholeNumber(row, year_), WholeNumber(row, period_), std::nullopt};
    if (!row.IsNull(category_))
        std::get<2>(place) = std::string(row.Text(category_));
    if (!IsMonth(place))
        months_.Add({.kind = "month",
                     .table = expected_.name,
                     .text = expected_.name + ": number " + TextOf(Sequence(row)) +
                             " is booked to " + MonthText(place) + ", which is no month.",
                     .rows = 1,
                     .row = row.Integer(0),
                     .sequence = Sequence(row)});
    places_[std::move(place)].Add(row.Integer(0), Sequence(row));
}

}  // namespace clb
