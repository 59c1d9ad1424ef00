// Finds transactions of an open book while a person types.
#pragma once
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/Money.h"
#include "engine/rows/Connection.h"
#include "engine/storage/RowObserver.h"
#include "search/NewestFirst.h"
#include "search/SearchHit.h"
#include "search/SearchQuery.h"
#include "search/TransactionMatcher.h"
#include "search/TransactionTexts.h"

namespace clb {

/// What a search has found.
struct FoundTransactions {
    std::size_t count = 0;
    /// Of all amounts. Nothing if Money cannot hold it, or if one of the cells holds something else
    /// than an amount.
    std::optional<Money> sum = Money();
    /// Identities of rows, the newest first: by date, then by number, as in a register. Rows
    /// without a date are last.
    std::vector<std::int64_t> rows;
};

/// Searches all transactions of the book of a connection. The first search reads them all into
/// memory; before that nothing is kept. Later ones find what has changed since, here (also in the
/// pending group) or in other programs. For one thread, like the connection.
class TransactionFinder : private IRowObserver {
public:
    /// The connection is borrowed, open, and outlives the finder.
    explicit TransactionFinder(Connection& connection) : connection_(connection) {}
    ~TransactionFinder() override;
    TransactionFinder(const TransactionFinder&) = delete;
    TransactionFinder& operator=(const TransactionFinder&) = delete;

    /// Finds the rows that meet the query; an empty query finds none. most: how many of the rows to
    /// return. What another program is writing just now is found by the next search. Only a search
    /// that must read rows may wait for it. Throws EngineError; the next search then reads again.
    FoundTransactions Find(const SearchQuery& query,
                           std::size_t most = std::numeric_limits<std::size_t>::max());
    /// The rows as a list shows them. Rows that are gone are left out. Throws EngineError.
    [[nodiscard]] std::vector<SearchHit> Read(std::span<const std::int64_t> rows) const
    {
        return ReadHits(connection_, rows);
    }
    /// Gives the memory back. The next search reads everything again.
    void Forget() noexcept;

private:
    void Update();
    /// Whether something here has changed since it was read.
    [[nodiscard]] bool IsBehind() const;
    void ReadAll();
    void ReadChanged();
    void ReadAccounts();
    void Note(std::int64_t identity);

    // IRowObserver
    void RowChanging(std::string_view table, std::int64_t before, std::int64_t after) override;
    void TableChanged(std::string_view table) override;
    void Committed() noexcept override { readPending_ = false; }
    void Lost() noexcept override;

    Connection& connection_;
    std::unique_ptr<TransactionTexts> texts_;  ///< null: they must be read
    TransactionMatcher matcher_;
    NewestFirst order_;
    Connection::Contents contents_;      ///< of the file when it was read whole
    std::vector<std::int64_t> changed_;  ///< rows to be read again
    bool observing_ = false;
    bool outdated_ = false;  ///< too much has changed to be read row by row
    bool accountsChanged_ = false;
    bool readPending_ = false;  ///< something was read that may yet be taken back
};

}  // namespace clb
