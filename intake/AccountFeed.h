// The rows of one account of a statement on their way into the book.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "intake/EarlierRows.h"
#include "intake/OfxText.h"
#include "intake/RowAdditions.h"
#include "intake/RowIdentifiers.h"
#include "statements/form/Statement.h"

namespace clb {

class clsDatabase;
class modImport;

enum class RowState : std::uint8_t {
    Added,
    Known,
    Read  ///< not stored
};
/// Takes a row that was read, the identifier under which it is or would be stored, and what came of
/// it.
using FeedWatch =
    std::function<void(const StatementRow& row, const std::string& identifier, RowState state)>;

/// Passes the rows that the account does not have yet to the import of OFX files, in parts, and
/// completes them afterwards.
class AccountFeed {
public:
    /// accountID: of the account in the book, which is there. Borrows database and import.
    AccountFeed(clsDatabase& database, modImport& import, std::string accountID,
                const StatementAccount& account, FeedWatch watch = {});

    /// Throws EngineError.
    void Add(const StatementRow& row);
    /// Whether the import of OFX files, which knows rows by their identifier only, finds out the
    /// same about a row with an identifier as Add does. Throws EngineError.
    [[nodiscard]] bool ImportAgrees(const StatementRow& row);
    /// Passes on a file that the import takes as it is, instead of single rows.
    void PassWhole(std::string text);
    /// To be called for each row of such a file before it is passed on, for the watch only.
    void Show(const StatementRow& row);
    /// Passes on what is left. To be called once, after the last row. Throws EngineError.
    void Finish();

    [[nodiscard]] std::int64_t Added() const { return added_; }
    [[nodiscard]] std::int64_t Known() const { return known_; }
    /// Rows that were added although the account has another one with their bank's identifier.
    [[nodiscard]] const std::vector<LeftOutPart>& Reused() const { return reused_; }

private:
    /// Whether the account has the row; identifier becomes the one under which it is stored.
    bool IsKnown(const StatementRow& row, std::string& identifier);
    bool IsKnownToBank(const StatementRow& row, std::string& identifier);
    void Pass();

    modImport& import_;
    std::string accountID_;
    FeedWatch watch_;
    RowIdentifiers identifiers_;
    EarlierRows earlier_;
    OfxText text_;
    RowAdditions additions_;
    std::int64_t added_ = 0;
    std::int64_t known_ = 0;
    std::vector<LeftOutPart> reused_;
};

}  // namespace clb
