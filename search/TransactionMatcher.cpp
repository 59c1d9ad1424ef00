#include "search/TransactionMatcher.h"

#include <algorithm>

#include "search/TransactionTexts.h"

namespace clb {

RowBits TransactionMatcher::Matching(const TransactionTexts& texts, const SearchQuery& query)
{
    RowBits matching = texts.Present();
    for (const SearchTerm& term : query.Terms()) {
        if (term.without)
            matching -= With(texts, term);
        else
            matching &= With(texts, term);
    }
    return matching;
}

RowBits TransactionMatcher::With(const TransactionTexts& texts, const SearchTerm& term)
{
    RowBits rows = term.word.empty() ? RowBits(texts.Rows()) : WithWord(texts, term);
    if (!term.amounts.empty())
        rows |= texts.WithAmount(term.amounts);
    if (term.days)
        rows |= texts.WithDay(*term.days);
    return rows;
}

const RowBits& TransactionMatcher::WithWord(const TransactionTexts& texts, const SearchTerm& term)
{
    const RowBits* among = nullptr;
    for (auto known = known_.begin(); known != known_.end(); ++known) {
        if (known->field != term.field && known->field != SearchField::Any)
            continue;
        if (known->field == term.field && known->word == term.word) {
            known_.splice(known_.begin(), known_, known);
            return known_.front().rows;
        }
        if (among == nullptr && term.word.find(known->word) != std::string::npos)
            among = &known->rows;
    }
    known_.push_front({term.word, term.field, texts.WithWord(term.word, term.field, among)});
    if (known_.size() > kMostKnown)
        known_.pop_back();
    return known_.front().rows;
}

}  // namespace clb
