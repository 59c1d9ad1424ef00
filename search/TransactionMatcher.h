// Finds the transactions that meet a search.
#pragma once
#include <cstddef>
#include <list>
#include <string>

#include "search/RowBits.h"
#include "search/SearchQuery.h"

namespace clb {

class TransactionTexts;

/// Evaluates searches over TransactionTexts. Remembers what the last words have found, so that a
/// word that grows while it is typed is sought only where its beginning was found.
class TransactionMatcher {
public:
    /// The rows that meet all terms of the query.
    [[nodiscard]] RowBits Matching(const TransactionTexts& texts, const SearchQuery& query);
    /// The texts have changed.
    void Forget() { known_.clear(); }

private:
    struct KnownWord {
        std::string word;
        SearchField field;
        RowBits rows;
    };

    [[nodiscard]] RowBits With(const TransactionTexts& texts, const SearchTerm& term);
    const RowBits& WithWord(const TransactionTexts& texts, const SearchTerm& term);

    static constexpr std::size_t kMostKnown = 16;
    std::list<KnownWord> known_;  ///< the last used first
};

}  // namespace clb
