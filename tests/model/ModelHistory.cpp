#include "tests/model/ModelHistory.h"

#include <algorithm>

namespace clb::model {
namespace {

/// Rows that only one of the tables has, and rows that both have with other cells.
template <class Row>
std::size_t Changed(const std::vector<Row>& before, const std::vector<Row>& after,
                    long Row::*identity)
{
    std::size_t same = 0;
    std::size_t written = 0;
    for (const Row& row : after) {
        const auto was = std::find_if(before.begin(), before.end(), [&](const Row& one) {
            return one.*identity == row.*identity;
        });
        if (was != before.end())
            ++(*was == row ? same : written);
    }
    return before.size() + after.size() - 2 * same - written;
}

std::size_t ChangedRows(const Tables& before, const Tables& after)
{
    return Changed(before.accounts, after.accounts, &Account::sequence) +
           Changed(before.transactions, after.transactions, &Transaction::row) +
           Changed(before.lines, after.lines, &BudgetLine::sequence) +
           Changed(before.holdings, after.holdings, &Holding::sequence) +
           Changed(before.loans, after.loans, &Loan::sequence);
}

}  // namespace

ModelHistory::ModelHistory(const Tables& start)
    : states_{{"", 0, std::make_shared<const Tables>(start)}}
{
}

void ModelHistory::Note(const Tables& tables, const std::string& what)
{
    const Tables& before = *states_[now_].tables;
    if (tables == before)
        return;
    const std::size_t rows = ChangedRows(before, tables);
    states_.resize(++now_);
    states_.push_back({what, rows, std::make_shared<const Tables>(tables)});
}

const Tables* ModelHistory::Back()
{
    return Done() == 0 ? nullptr : states_[--now_].tables.get();
}

const Tables* ModelHistory::Forward()
{
    return Undone() == 0 ? nullptr : states_[++now_].tables.get();
}

std::string ModelHistory::Captions() const
{
    return (Done() > 0 ? "|Undo " + states_[now_].what : std::string()) +
           (Undone() > 0 ? "|Redo " + states_[now_ + 1].what : std::string());
}

std::string ModelHistory::List() const
{
    std::string list;
    for (std::size_t step = states_.size() - 1; step > 0; --step)
        list += "|" + states_[step].what + ", " + std::to_string(states_[step].rows) +
                (step > now_ ? ", undone" : "");
    return list;
}

}  // namespace clb::model
