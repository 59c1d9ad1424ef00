#include "statements/csv/CsvColumns.h"

#include <algorithm>

#include "statements/csv/AmountColumns.h"
#include "statements/csv/CellWords.h"
#include "statements/csv/ColumnNames.h"
#include "statements/csv/ColumnSpec.h"
#include "statements/csv/OwnAccount.h"
#include "statements/csv/RowCurrency.h"

namespace clb {
namespace {

/// Rank of columns of currencies that only their cells show.
constexpr int kCurrencyByCells = 6;

/// Chooses the columns of one table.
class Chooser {
public:
    Chooser(const CsvTable& table, const std::vector<ColumnFacts>& facts)
        : roles_(table, facts), numberAbove_(NumberAbove(table))
    {
    }

    CsvColumns Choose()
    {
        Dates();
        AmountColumns(roles_, columns_).Find();
        Currency();
        columns_.account = ChooseAccount(roles_, numberAbove_);
        Others();
        Texts();
        return std::move(columns_);
    }

private:
    void Dates()
    {
        columns_.dates = roles_.With(ColumnRole::Date);
        const auto values = roles_.With(ColumnRole::ValueDate);
        if (columns_.dates.empty())
            columns_.dates = values;
        else if (!values.empty())
            columns_.valueDate = values.front();
    }

    void Currency()
    {
        if (NamesCurrency())
            return;
        auto found = roles_.With(ColumnRole::Currency);
        DropOriginals(found);
        if (found.empty())
            return;
        columns_.currency = found.front();
        if (columns_.sources.empty() || roles_[found.front()].rank == 0)
            return;
        // The one next to the amount.
        const std::size_t amount = AmountColumn();
        const auto distance = [amount](std::size_t i) {
            return i > amount ? 2 * (i - amount) - 1 : 2 * (amount - i);
        };
        columns_.currency = *std::min_element(
            found.begin(), found.end(),
            [&](std::size_t one, std::size_t other) { return distance(one) < distance(other); });
    }

    [[nodiscard]] std::size_t AmountColumn() const
    {
        const AmountSource& source = columns_.sources.front();
        return source.amount.value_or(source.out.value_or(source.in.value_or(0)));
    }

    /// Whether the name of the amount says its currency, as "Amount (EUR)" does. Another column of
    /// currencies is then that of other amounts.
    [[nodiscard]] bool NamesCurrency() const
    {
        return !columns_.sources.empty() && AmountColumn() < roles_.Names().size() &&
               !CurrencyInName(roles_.Names()[AmountColumn()]).empty();
    }

    /// Drops columns that belong to the original amount: those beside it, which some rows leave
    /// empty, and those without a name if others have one.
    void DropOriginals(std::vector<std::size_t>& found) const
    {
        const bool named = std::any_of(found.begin(), found.end(), [this](std::size_t i) {
            return roles_[i].rank < kCurrencyByCells;
        });
        std::erase_if(found, [&](std::size_t i) {
            return (IsBesideOriginal(i) && roles_.Facts(i).filled < roles_.Rows()) ||
                   (named && roles_[i].rank >= kCurrencyByCells);
        });
    }

    [[nodiscard]] bool IsBesideOriginal(std::size_t i) const
    {
        const auto originals = roles_.With(ColumnRole::OriginalAmount);
        return std::any_of(originals.begin(), originals.end(), [i](std::size_t original) {
            return original + 1 == i || original == i + 1;
        });
    }

    void Others()
    {
        const auto first = [this](ColumnRole role) {
            const auto found = roles_.With(role);
            return found.empty() ? std::nullopt : std::optional(found.front());
        };
        columns_.category = first(ColumnRole::Category);
        columns_.check = first(ColumnRole::Check);
        columns_.statuses = roles_.With(ColumnRole::Status);
        for (const ColumnRole role : {ColumnRole::Unknown, ColumnRole::Text})
            for (const std::size_t i : roles_.With(role))
                if (HoldsStates(roles_.Facts(i)))
                    columns_.statuses.push_back(i);
        for (const std::size_t i : roles_.With(ColumnRole::Id)) {
            // Running numbers and words begin anew in the next file.
            if (!columns_.id && roles_.Facts(i).shortest >= 6 &&
                roles_.Facts(i).values.size() * 5 >=
                    std::min<std::size_t>(roles_.Facts(i).filled, 40) * 3)
                columns_.id = i;
            else
                roles_[i] = {ColumnRole::Text, 3};
        }
    }

    /// Whether every cell says whether its row is booked, and some say that it is.
    static bool HoldsStates(const ColumnFacts& facts)
    {
        const auto& values = facts.values;
        return std::all_of(values.begin(), values.end(), IsPlainlyStatus) &&
               std::any_of(values.begin(), values.end(), [](const std::string& value) {
                   return StatusOf(value) == CellStatus::Booked;
               });
    }

    void Texts()
    {
        columns_.names = roles_.With(ColumnRole::Name);
        columns_.texts = roles_.With(ColumnRole::Text);
        for (const ColumnRole role : {ColumnRole::OtherAccount, ColumnRole::Id})
            for (const std::size_t i : roles_.With(role))
                if (i != columns_.id)
                    columns_.texts.push_back(i);
        for (const std::size_t i : roles_.With(ColumnRole::Unknown))
            if (roles_.Facts(i).letters > 0 && !IsConstant(i))
                columns_.texts.push_back(i);
        // The same in every row: rather of the account than of the row.
        for (const std::size_t i : roles_.With(ColumnRole::Unknown))
            if (roles_.Facts(i).letters > 0 && IsConstant(i))
                columns_.texts.push_back(i);
    }

    [[nodiscard]] bool IsConstant(std::size_t i) const
    {
        return roles_.Facts(i).values.size() == 1 && roles_.Facts(i).filled > 1;
    }

    ColumnRoles roles_;
    std::string numberAbove_;
    CsvColumns columns_;
};

/// Refuses given columns of dates in which nothing is a date, though the table has some.
void RequireDates(std::string_view spec, const CsvTable& table,
                  const std::vector<ColumnFacts>& facts, const CsvColumns& columns)
{
    if (spec.empty() || columns.dates.empty())
        return;
    const bool rows = std::any_of(facts.begin(), facts.end(),
                                  [](const ColumnFacts& column) { return column.dates > 0; });
    const bool dates = std::any_of(columns.dates.begin(), columns.dates.end(), [&](std::size_t i) {
        return i < facts.size() && facts[i].dates > 0;
    });
    if (rows && !dates)
        throw NotAStatement("Column \"" + table.NameOf(columns.dates.front()) +
                            "\" holds no dates, though it is given as date=.");
}

}  // namespace

CsvColumns ChooseColumns(const CsvTable& table, const std::vector<ColumnFacts>& facts,
                         const StatementAnswers& answers)
{
    CsvColumns columns = Chooser(table, facts).Choose();
    ApplyColumnSpec(answers.columns, table, columns);
    RequireDates(answers.columns, table, facts, columns);
    return columns;
}

}  // namespace clb
