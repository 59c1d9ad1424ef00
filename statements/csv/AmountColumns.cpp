#include "statements/csv/AmountColumns.h"

#include <algorithm>

namespace clb {
namespace {

constexpr std::size_t kMostSources = 6;
constexpr std::size_t kMostBalances = 4;
constexpr std::size_t kMostPairs = 3;

}  // namespace

void AmountColumns::Find()
{
    const AmountSource named = NamedPair();
    const bool hasPair = named.in || named.out;
    if (!hasPair)
        TakeWholeNumbers();
    const auto amounts = Amounts();
    const auto mark = Mark();
    std::vector<AmountSource> pairs;
    if (!hasPair)
        pairs = UnnamedPairs(amounts);
    else if (named.in && named.out)
        pairs = {named};
    columns_.sources = pairs;
    columns_.equals = pairs.size();
    const std::size_t rows = roles_.Rows();
    for (const std::size_t amount : amounts) {
        columns_.sources.push_back(
            AmountSource{.amount = amount,
                         .mark = mark,
                         .unnamed = roles_[amount].rank >= ColumnRoles::kUnnamed});
        const int rank = roles_[amounts.front()].rank;
        const bool everywhere = roles_.Facts(amount).filled == rows;
        if (roles_[amount].rank == rank &&
            (rank < ColumnRoles::kUnnamed || everywhere || amount == amounts.front()))
            ++columns_.equals;
    }
    if (hasPair && pairs.empty())
        columns_.sources.push_back(named);
    // Words such as "Debit" in a column of texts may be no marks; the balance tells.
    if (mark && !amounts.empty() && roles_[*mark].role != ColumnRole::Mark)
        columns_.sources.push_back(AmountSource{.amount = amounts.front()});
    if (columns_.sources.empty())
        for (const std::size_t original : roles_.With(ColumnRole::OriginalAmount)) {
            columns_.sources.push_back(AmountSource{.amount = original, .mark = mark});
            ++columns_.equals;
        }
    if (columns_.sources.size() > kMostSources)
        columns_.sources.resize(kMostSources);
    columns_.equals = std::clamp<std::size_t>(columns_.equals, 1, kMostSources);
    AddFees();
    FindBalances();
}

/// Takes columns of whole numbers without a name for amounts. If others have decimals, only a
/// balance, or a second column that fills the gaps of the first, can show that they are amounts.
void AmountColumns::TakeWholeNumbers()
{
    bool fractions = false;
    for (const std::size_t amount : roles_.With(ColumnRole::Amount)) {
        if (roles_[amount].rank < ColumnRoles::kUnnamed)
            return;
        fractions = fractions || roles_.Facts(amount).fractions > 0;
    }
    for (const std::size_t i : roles_.With(ColumnRole::Unknown)) {
        const ColumnFacts& facts = roles_.Facts(i);
        if (facts.amounts == facts.filled && (facts.values.size() > 1 || facts.filled == 1))
            roles_[i] = {ColumnRole::Amount,
                         fractions ? ColumnRoles::kWholeNumbers : ColumnRoles::kUnnamed};
    }
}

std::vector<std::size_t> AmountColumns::Amounts() const
{
    auto amounts = roles_.With(ColumnRole::Amount);
    // A column that some rows leave empty does not hold their amounts.
    const std::size_t rows = roles_.Rows();
    std::stable_sort(amounts.begin(), amounts.end(), [&](std::size_t one, std::size_t other) {
        return std::pair(roles_[one].rank, roles_.Facts(one).filled < rows) <
               std::pair(roles_[other].rank, roles_.Facts(other).filled < rows);
    });
    return amounts;
}

/// A column named as one of marks; else one whose every cell is such as "Debit".
std::optional<std::size_t> AmountColumns::Mark() const
{
    for (const std::size_t i : roles_.With(ColumnRole::Mark))
        if ((roles_.Facts(i).marksIn + roles_.Facts(i).marksOut) * 2 >= roles_.Facts(i).filled)
            return i;
    for (const ColumnRole role : {ColumnRole::Text, ColumnRole::Status})
        for (const std::size_t i : roles_.With(role)) {
            const ColumnFacts& facts = roles_.Facts(i);
            if (facts.AreMarks() &&
                (facts.shortest > 1 || (facts.marksIn > 0 && facts.marksOut > 0)))
                return i;
        }
    return std::nullopt;
}

AmountSource AmountColumns::NamedPair() const
{
    const auto best = [this](ColumnRole role) {
        // A column without cells is the last choice, though it may belong to the pair.
        std::optional<std::size_t> found;
        for (std::size_t i = 0; i < roles_.Size(); ++i)
            if (roles_[i].role == role &&
                (!found || std::pair(roles_.Facts(i).filled == 0, roles_[i].rank) <
                               std::pair(roles_.Facts(*found).filled == 0, roles_[*found].rank)))
                found = i;
        return found;
    };
    AmountSource pair;
    pair.in = best(ColumnRole::In);
    pair.out = best(ColumnRole::Out);
    const bool none = (!pair.in || roles_.Facts(*pair.in).filled == 0) &&
                      (!pair.out || roles_.Facts(*pair.out).filled == 0);
    return none ? AmountSource{} : pair;
}

/// Two columns without names of which each row fills one.
std::vector<AmountSource> AmountColumns::UnnamedPairs(const std::vector<std::size_t>& amounts) const
{
    std::vector<AmountSource> pairs;
    const std::size_t rows = roles_.Rows();
    for (const std::size_t out : amounts)
        for (const std::size_t in : amounts) {
            const std::size_t ofOut = roles_.Facts(out).nonzero;
            const std::size_t ofIn = roles_.Facts(in).nonzero;
            if (out < in && pairs.size() < kMostPairs &&
                roles_[out].rank >= ColumnRoles::kUnnamed &&
                roles_[in].rank >= ColumnRoles::kUnnamed && ofOut < rows && ofIn < rows &&
                ofOut + ofIn == rows)
                pairs.push_back(AmountSource{.in = in, .out = out, .unnamed = true});
        }
    return pairs;
}

/// Fees that are not zero could change the amount; the balance tells.
void AmountColumns::AddFees()
{
    const auto fees = roles_.With(ColumnRole::Fee);
    if (columns_.sources.empty() || fees.empty() || roles_.Facts(fees.front()).nonzero == 0)
        return;
    AmountSource off = columns_.sources.front();
    off.fee = fees.front();
    AmountSource added = off;
    added.feeAdds = true;
    columns_.sources.push_back(off);
    columns_.sources.push_back(added);
}

void AmountColumns::FindBalances()
{
    columns_.balances = roles_.With(ColumnRole::Balance);
    // Without names one of the amounts may be the balance.
    if (columns_.balances.empty() && columns_.sources.size() > 1)
        for (const AmountSource& source : columns_.sources)
            if (source.amount && !source.fee && roles_[*source.amount].role == ColumnRole::Amount &&
                roles_[*source.amount].rank >= ColumnRoles::kUnnamed)
                columns_.balances.push_back(*source.amount);
    if (columns_.balances.size() > kMostBalances)
        columns_.balances.resize(kMostBalances);
}

}  // namespace clb
