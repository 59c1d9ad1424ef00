// The rows of one account of a statement on their way into the book.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "intake/KnownRows.h"
#include "intake/OfxText.h"
#include "intake/RowAdditions.h"
#include "intake/RowIdentifiers.h"
#include "statements/form/Statement.h"

namespace clb {

class clsDatabase;
class modImport;

/// Passes the rows that the account does not have yet to the import of OFX files, in parts, and
/// completes them afterwards.
class AccountFeed {
public:
    /// accountID: of the account in the book, which is there. Borrows database and import.
    AccountFeed(clsDatabase& database, modImport& import, std::string accountID,
                const StatementAccount& account);

    /// Throws EngineError.
    void Add(const StatementRow& row);
    /// Passes on a file that the import takes as it is, instead of single rows.
    void PassWhole(const std::string& text);
    /// Passes on what is left. To be called once, after the last row. Throws EngineError.
    void Finish();

    [[nodiscard]] std::int64_t Added() const { return added_; }
    [[nodiscard]] std::int64_t Known() const { return known_; }
    /// Rows that were added although the account has another one with their bank's identifier.
    [[nodiscard]] const std::vector<LeftOutPart>& Reused() const { return reused_; }

private:
    /// Empty if the account has the row.
    std::string NewIdentifier(const StatementRow& row);
    std::string NewIdentifierOfBank(const StatementRow& row);
    void Pass();

    modImport& import_;
    RowIdentifiers identifiers_;
    KnownRows knownRows_;
    OfxText text_;
    RowAdditions additions_;
    std::int64_t added_ = 0;
    std::int64_t known_ = 0;
    std::vector<LeftOutPart> reused_;
};

}  // namespace clb
