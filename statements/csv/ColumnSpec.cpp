#include "statements/csv/ColumnSpec.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "statements/csv/ColumnNames.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

std::optional<std::size_t> ByNumber(std::string_view digits, const CsvTable& table)
{
    std::size_t number = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number);
    if (error != std::errc() || end != last || number < 1 ||
        number > std::max(table.Width(), table.Names().size()))
        return std::nullopt;
    return number - 1;
}

std::optional<std::size_t> Find(std::string_view column, const CsvTable& table)
{
    for (std::size_t i = 0; i < table.Names().size(); ++i)
        if (table.Names()[i] == column)
            return i;
    if (column.starts_with('#'))
        return ByNumber(column.substr(1), table);
    for (std::size_t i = 0; i < table.Names().size(); ++i)
        if (!column.empty() && PlainName(table.Names()[i]) == PlainName(column) &&
            !PlainName(column).empty())
            return i;
    return ByNumber(column, table);
}

/// Applies the fields of one specification.
class Spec {
public:
    Spec(const CsvTable& table, CsvColumns& columns) : table_(table), columns_(columns) {}

    void Field(std::string_view field, std::string_view value)
    {
        fields_.emplace(field);
        if (field == "date")
            columns_.dates = Several(value);
        else if (field == "valuedate")
            columns_.valueDate = One(value);
        else if (field == "amount")
            Amount(value);
        else if (field == "in")
            source_.in = One(value);
        else if (field == "out")
            source_.out = One(value);
        else if (field == "mark")
            mark_ = One(value);
        else if (field == "name")
            columns_.names = Several(value);
        else if (field == "text")
            columns_.texts = Several(value);
        else if (field == "category")
            columns_.category = One(value);
        else if (field == "check")
            columns_.check = One(value);
        else if (field == "id")
            columns_.id = One(value);
        else if (field == "balance") {
            columns_.balances = Several(value);
            columns_.balanceGiven = true;
        } else if (field == "currency")
            columns_.currency = One(value);
        else if (field == "account")
            columns_.account = One(value);
        else
            throw NotAStatement("Columns cannot be given for \"" + std::string(field) + "\".");
    }

    void Finish()
    {
        TakeAmounts();
        Release();
    }

private:
    void TakeAmounts()
    {
        if (!source_.amount && !source_.in && !source_.out) {
            if (mark_)
                for (AmountSource& source : columns_.sources)
                    source.mark = source.amount ? mark_ : source.mark;
            return;
        }
        if (source_.amount && (source_.in || source_.out))
            throw NotAStatement(
                "Columns cannot be given for amount= together with in= or out=: either one column "
                "holds the amounts of both signs, or two do.");
        // A mark that the table itself has stays in force.
        for (const AmountSource& source : columns_.sources)
            mark_ = mark_ ? mark_ : source.mark;
        source_.mark = source_.amount && mark_ != source_.amount ? mark_ : std::nullopt;
        columns_.sources = {source_};
        columns_.equals = 1;
        columns_.sourceGiven = true;
        if (!columns_.balanceGiven)
            std::erase_if(columns_.balances, [this](std::size_t i) {
                return i == source_.amount || i == source_.in || i == source_.out;
            });
    }
    /// A column with a given meaning is no description or note any more.
    void Release()
    {
        const auto taken = [this](std::size_t column) {
            return std::find(given_.begin(), given_.end(), column) != given_.end();
        };
        if (!fields_.contains("name"))
            std::erase_if(columns_.names, taken);
        if (!fields_.contains("text"))
            std::erase_if(columns_.texts, taken);
    }
    void Amount(std::string_view value)
    {
        const auto whole = Find(value, table_);
        source_.negated = !whole && value.ends_with('-');
        source_.amount = One(source_.negated ? value.substr(0, value.size() - 1) : value);
    }
    std::optional<std::size_t> One(std::string_view value)
    {
        return value.empty() ? std::nullopt : std::optional(Column(value));
    }
    std::size_t Column(std::string_view column)
    {
        const auto found = Find(column, table_);
        if (!found)
            throw NotAStatement("The table has no column \"" + std::string(column) + "\".");
        given_.push_back(*found);
        return *found;
    }
    std::vector<std::size_t> Several(std::string_view value)
    {
        std::vector<std::size_t> columns;
        if (value.empty())
            return columns;
        if (Find(value, table_))
            return {Column(value)};
        while (!value.empty()) {
            const std::size_t end = std::min(value.find('+'), value.size());
            columns.push_back(Column(TrimSpaces(value.substr(0, end))));
            value.remove_prefix(std::min(end + 1, value.size()));
        }
        return columns;
    }

    const CsvTable& table_;
    CsvColumns& columns_;
    std::set<std::string, std::less<>> fields_;  ///< that are given
    std::vector<std::size_t> given_;             ///< columns of any of them
    AmountSource source_;
    std::optional<std::size_t> mark_;
};

}  // namespace

void ApplyColumnSpec(std::string_view spec, const CsvTable& table, CsvColumns& columns)
{
    Spec fields(table, columns);
    while (!spec.empty()) {
        std::size_t end = std::min(spec.find(','), spec.size());
        // A name may hold a comma: a field goes on until the next "word=".
        while (end < spec.size() && spec.substr(end + 1).find('=') == std::string_view::npos)
            end = spec.size();
        const std::string_view part = spec.substr(0, end);
        spec.remove_prefix(std::min(end + 1, spec.size()));
        const std::size_t equals = part.find('=');
        if (equals == std::string_view::npos)
            throw NotAStatement("\"" + std::string(part) + "\" names no column.");
        fields.Field(FoldText(TrimSpaces(part.substr(0, equals))),
                     TrimSpaces(part.substr(equals + 1)));
    }
    fields.Finish();
}

}  // namespace clb
