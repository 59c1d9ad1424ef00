#include "statements/csv/CsvColumns.h"

#include <algorithm>

#include "statements/csv/ColumnNames.h"
#include "statements/csv/ColumnSpec.h"

namespace clb {
namespace {

/// More different values than these are not accounts of one person.
constexpr std::size_t kMostAccounts = 12;
constexpr std::size_t kMostSources = 6;
constexpr std::size_t kMostBalances = 4;

/// Chooses the columns of one table.
class Chooser {
public:
    Chooser(const CsvTable& table, const std::vector<ColumnFacts>& facts) : facts_(facts)
    {
        for (std::size_t i = 0; i < facts.size(); ++i) {
            roles_.push_back(i < table.Names().size() ? RoleOf(table.Names()[i]) : NamedRole{});
            FitToCells(i);
        }
    }

    CsvColumns Choose()
    {
        Dates();
        Amounts();
        Balances();
        Currency();
        Account();
        Others();
        Texts();
        return std::move(columns_);
    }

private:
    /// Takes back what the name says if the cells say otherwise, and fills in what only they say.
    void FitToCells(std::size_t i)
    {
        NamedRole& role = roles_[i];
        const ColumnFacts& facts = facts_[i];
        if (facts.filled == 0)
            return;
        const bool amounts = facts.AreAmounts();
        switch (role.role) {
            case ColumnRole::Date:
            case ColumnRole::ValueDate:
                if (role.role == ColumnRole::ValueDate && facts.AreCurrencies())
                    role = {ColumnRole::Currency, 2};
                else if (!facts.AreDates())
                    role = {ColumnRole::Text, 2};
                break;
            case ColumnRole::Amount:
                if (facts.AreDates() && !amounts)
                    role = {ColumnRole::ValueDate, 1};
                else if (!amounts)
                    role = {facts.letters > 0 ? ColumnRole::Text : ColumnRole::Ignored, 2};
                break;
            case ColumnRole::In:
            case ColumnRole::Out:
                if (facts.AreMarks())
                    role = {ColumnRole::Mark, 1};
                else if (!amounts)
                    role = {ColumnRole::Text, 2};
                break;
            case ColumnRole::Mark:
                if (amounts && !facts.AreMarks())
                    role = {ColumnRole::Amount, 2};
                break;
            case ColumnRole::Balance:
            case ColumnRole::Fee:
            case ColumnRole::OriginalAmount:
                if (!amounts)
                    role = {ColumnRole::Ignored, 2};
                break;
            case ColumnRole::Currency:
                if (amounts)
                    role = {ColumnRole::Amount, 5};
                else if (!facts.AreCurrencies())
                    role = {ColumnRole::Text, 3};
                break;
            case ColumnRole::Check:
                if (!facts.Mostly(facts.digits))
                    role = {ColumnRole::Text, 2};
                break;
            case ColumnRole::Unknown: ByCells(i); break;
            default: break;
        }
    }

    /// What a column without a known name holds.
    void ByCells(std::size_t i)
    {
        NamedRole& role = roles_[i];
        const ColumnFacts& facts = facts_[i];
        // Six digits can be many things; days are in every row.
        const bool sixDigits = facts.digits == facts.filled && facts.longest == 6;
        if (facts.dates == facts.filled && (!sixDigits || facts.filled == MostFilled()))
            role = {ColumnRole::Date, 6};
        else if (facts.currencies == facts.filled && facts.letters == facts.filled)
            role = {ColumnRole::Currency, 6};
        else if (facts.amounts == facts.filled && facts.plainAmounts > 0)
            role = {ColumnRole::Amount, 8};
        else if (facts.AreMarks() &&
                 ((facts.marksIn > 0 && facts.marksOut > 0) || facts.shortest > 1))
            role = {ColumnRole::Mark, 6};
        else if (facts.ibans == facts.filled && facts.values.size() == 1)
            role = {ColumnRole::Account, 6};
    }

    /// Columns of whole numbers without a name. They are amounts only if no column has decimals.
    [[nodiscard]] std::vector<std::size_t> WholeNumbers() const
    {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < facts_.size(); ++i) {
            if (roles_[i].role == ColumnRole::Amount &&
                (roles_[i].rank < 8 || facts_[i].fractions > 0))
                return {};
            if (roles_[i].role == ColumnRole::Unknown && facts_[i].filled > 0 &&
                facts_[i].amounts == facts_[i].filled &&
                (facts_[i].values.size() > 1 || facts_[i].filled == 1))
                found.push_back(i);
        }
        return found;
    }

    [[nodiscard]] std::vector<std::size_t> With(ColumnRole role) const
    {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < roles_.size(); ++i)
            if (roles_[i].role == role && facts_[i].filled > 0)
                found.push_back(i);
        std::stable_sort(found.begin(), found.end(), [this](std::size_t one, std::size_t other) {
            return roles_[one].rank < roles_[other].rank;
        });
        return found;
    }

    void Dates()
    {
        columns_.dates = With(ColumnRole::Date);
        const auto values = With(ColumnRole::ValueDate);
        if (columns_.dates.empty())
            columns_.dates = values;
        else if (!values.empty())
            columns_.valueDate = values.front();
    }

    void Amounts()
    {
        if (!InOut().in && !InOut().out)
            for (const std::size_t whole : WholeNumbers())
                roles_[whole] = {ColumnRole::Amount, 8};
        const auto amounts = With(ColumnRole::Amount);
        std::vector<std::size_t> marks = With(ColumnRole::Mark);
        std::erase_if(marks, [this](std::size_t i) {
            return (facts_[i].marksIn + facts_[i].marksOut) * 2 < facts_[i].filled;
        });
        if (marks.empty())
            marks = WordMarks();
        AmountSource pair = InOut();
        if (!pair.in && !pair.out)
            pair = UnnamedInOut(amounts);
        const auto fees = With(ColumnRole::Fee);
        for (const std::size_t amount : amounts) {
            AmountSource source;
            source.amount = amount;
            if (!marks.empty())
                source.mark = marks.front();
            columns_.sources.push_back(source);
        }
        columns_.equals = static_cast<std::size_t>(std::count_if(
            amounts.begin(), amounts.end(),
            [&](std::size_t i) { return roles_[i].rank == roles_[amounts.front()].rank; }));
        if (pair.in || pair.out) {
            const bool whole = pair.in && pair.out;
            columns_.sources.insert(whole ? columns_.sources.begin() : columns_.sources.end(),
                                    pair);
            columns_.equals =
                whole ? columns_.equals + 1 : std::max<std::size_t>(columns_.equals, 1);
        }
        if (columns_.sources.empty())
            for (const std::size_t original : With(ColumnRole::OriginalAmount))
                columns_.sources.push_back(AmountSource{.amount = original});
        if (columns_.sources.size() > kMostSources)
            columns_.sources.resize(kMostSources);
        columns_.equals = std::clamp<std::size_t>(columns_.equals, 1, kMostSources);
        Fees(fees);
    }

    /// Fees that are not zero could change the amount; the balance tells.
    void Fees(const std::vector<std::size_t>& fees)
    {
        if (columns_.sources.empty() || fees.empty() || facts_[fees.front()].nonzero == 0)
            return;
        AmountSource off = columns_.sources.front();
        off.fee = fees.front();
        AmountSource added = off;
        added.feeAdds = true;
        columns_.sources.push_back(off);
        columns_.sources.push_back(added);
    }

    /// A column whose every cell is such as "Debit", whatever its name.
    [[nodiscard]] std::vector<std::size_t> WordMarks() const
    {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < roles_.size(); ++i)
            if ((roles_[i].role == ColumnRole::Text || roles_[i].role == ColumnRole::Status) &&
                facts_[i].AreMarks() &&
                (facts_[i].shortest > 1 || (facts_[i].marksIn > 0 && facts_[i].marksOut > 0)))
                found.push_back(i);
        return found;
    }

    /// Two columns without names of which each row fills one.
    [[nodiscard]] AmountSource UnnamedInOut(const std::vector<std::size_t>& amounts) const
    {
        AmountSource pair;
        const std::size_t rows = MostFilled();
        for (const std::size_t out : amounts)
            for (const std::size_t in : amounts)
                if (out < in && roles_[out].rank >= 8 && roles_[in].rank >= 8 && !pair.in &&
                    facts_[out].filled < rows && facts_[in].filled < rows &&
                    facts_[out].filled + facts_[in].filled == rows) {
                    pair.out = out;
                    pair.in = in;
                    pair.unnamed = true;
                }
        return pair;
    }

    /// Number of rows, as far as a column is filled in all of them.
    [[nodiscard]] std::size_t MostFilled() const
    {
        std::size_t most = 0;
        for (const ColumnFacts& facts : facts_)
            most = std::max(most, facts.filled);
        return most;
    }

    [[nodiscard]] AmountSource InOut() const
    {
        const auto best = [this](ColumnRole role) {
            std::vector<std::size_t> found;
            for (std::size_t i = 0; i < roles_.size(); ++i)
                if (roles_[i].role == role)
                    found.push_back(i);
            std::stable_sort(found.begin(), found.end(),
                             [this](std::size_t one, std::size_t other) {
                                 // A column without cells is the last choice, though it may belong
                                 // to the pair.
                                 return std::pair(facts_[one].filled == 0, roles_[one].rank) <
                                        std::pair(facts_[other].filled == 0, roles_[other].rank);
                             });
            return found.empty() ? std::nullopt : std::optional(found.front());
        };
        AmountSource pair;
        pair.in = best(ColumnRole::In);
        pair.out = best(ColumnRole::Out);
        const bool none = (!pair.in || facts_[*pair.in].filled == 0) &&
                          (!pair.out || facts_[*pair.out].filled == 0);
        return none ? AmountSource{} : pair;
    }

    void Balances()
    {
        columns_.balances = With(ColumnRole::Balance);
        // Without names one of the amounts may be the balance.
        if (columns_.balances.empty() && columns_.sources.size() > 1)
            for (const AmountSource& source : columns_.sources)
                if (source.amount && !source.fee && roles_[*source.amount].rank >= 8)
                    columns_.balances.push_back(*source.amount);
        if (columns_.balances.size() > kMostBalances)
            columns_.balances.resize(kMostBalances);
    }

    void Currency()
    {
        const auto found = With(ColumnRole::Currency);
        if (found.empty())
            return;
        columns_.currency = found.front();
        if (columns_.sources.empty() || roles_[found.front()].rank == 0)
            return;
        // The one next to the amount.
        const AmountSource& source = columns_.sources.front();
        const std::size_t amount =
            source.amount.value_or(source.out.value_or(source.in.value_or(0)));
        const auto distance = [amount](std::size_t i) {
            return i > amount ? 2 * (i - amount) - 1 : 2 * (amount - i);
        };
        columns_.currency = *std::min_element(
            found.begin(), found.end(),
            [&](std::size_t one, std::size_t other) { return distance(one) < distance(other); });
    }

    void Account()
    {
        const bool others = !With(ColumnRole::OtherAccount).empty();
        const std::size_t rows = MostFilled();
        for (const std::size_t i : With(ColumnRole::Account)) {
            const ColumnFacts& facts = facts_[i];
            // Several numbers in a column of doubtful name may be those of the other parties.
            const bool sure = roles_[i].rank == 0 || others || facts.values.size() * 3 <= rows;
            if (!columns_.account && facts.filled == rows &&
                (facts.values.size() == 1 || (facts.values.size() <= kMostAccounts && sure)))
                columns_.account = i;
            else
                roles_[i] = {ColumnRole::OtherAccount, 1};
        }
    }

    void Others()
    {
        const auto first = [this](ColumnRole role) {
            const auto found = With(role);
            return found.empty() ? std::nullopt : std::optional(found.front());
        };
        columns_.category = first(ColumnRole::Category);
        columns_.check = first(ColumnRole::Check);
        columns_.statuses = With(ColumnRole::Status);
        for (const std::size_t i : With(ColumnRole::Id)) {
            // Running numbers and words begin anew in the next file.
            if (!columns_.id && facts_[i].shortest >= 6 &&
                facts_[i].values.size() >= std::min<std::size_t>(facts_[i].filled, 20) &&
                facts_[i].filled * 2 > facts_[i].letters)
                columns_.id = i;
            else
                roles_[i] = {ColumnRole::Text, 3};
        }
    }

    void Texts()
    {
        columns_.names = With(ColumnRole::Name);
        columns_.texts = With(ColumnRole::Text);
        for (const ColumnRole role : {ColumnRole::OtherAccount, ColumnRole::Id})
            for (const std::size_t i : With(role))
                if (i != columns_.id)
                    columns_.texts.push_back(i);
        for (const std::size_t i : With(ColumnRole::Unknown))
            if (facts_[i].letters > 0 && (facts_[i].values.size() > 1 || facts_[i].filled == 1))
                columns_.texts.push_back(i);
    }

    const std::vector<ColumnFacts>& facts_;
    std::vector<NamedRole> roles_;
    CsvColumns columns_;
};

}  // namespace

CsvColumns ChooseColumns(const CsvTable& table, const std::vector<ColumnFacts>& facts,
                         const StatementAnswers& answers)
{
    CsvColumns columns = Chooser(table, facts).Choose();
    ApplyColumnSpec(answers.columns, table, columns);
    return columns;
}

}  // namespace clb
