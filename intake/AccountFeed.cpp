#include "intake/AccountFeed.h"

#include "base/RuntimeError.h"
#include "import/modImport.h"

namespace clb {
namespace {

/// Rows that are passed on at once. The import keeps the text of all of them in memory.
constexpr std::size_t kRowsAtOnce = 50'000;

}  // namespace

AccountFeed::AccountFeed(clsDatabase& database, modImport& import, std::string accountID,
                         const StatementAccount& account)
    : import_(import),
      identifiers_(account.number),
      knownRows_(database, accountID),
      text_(accountID, account),
      additions_(database, accountID)
{
}

void AccountFeed::Add(const StatementRow& row)
{
    const std::string identifier = NewIdentifier(row);
    if (identifier.empty()) {
        ++known_;
        return;
    }
    text_.Add(row, identifier);
    if (!OfxText::CanCarry(row))
        additions_.Remember(row, identifier);
    if (text_.Rows() >= kRowsAtOnce)
        Pass();
}

std::string AccountFeed::NewIdentifier(const StatementRow& row)
{
    if (!row.identifier.empty())
        return NewIdentifierOfBank(row);
    const std::string made = identifiers_.Make(row);
    const bool known = knownRows_.HasIdentified(row, {made}) || knownRows_.TakeUnidentified(row);
    return known ? std::string() : made;
}

/// Banks use identifiers again for other rows. Such a row gets one of its own.
std::string AccountFeed::NewIdentifierOfBank(const StatementRow& row)
{
    const std::string stored = RowIdentifiers::OfBank(row.identifier);
    const std::string further = identifiers_.Further(row);
    if (knownRows_.HasIdentified(row, {stored, row.identifier, further}))
        return {};
    if (!knownRows_.HasIdentifier(stored) && !knownRows_.HasIdentifier(row.identifier))
        return stored;
    reused_.push_back({row.line, LeftOutReason::NotARow,
                       row.date.ToIso() + " " + row.amount.ToText() + " " + row.name});
    return further;
}

void AccountFeed::Pass()
{
    if (text_.Rows() == 0)
        return;
    const auto rows = static_cast<std::int64_t>(text_.Rows());
    const std::int32_t before = import_.Counts().added;
    import_.ImportText(text_.Take());
    const std::int64_t stored = import_.Counts().added - before;
    added_ += stored;
    // The import has told the user of its error.
    if (stored < rows)
        throw RuntimeError(errors::InvalidCall, "The book did not take all rows of the statement.");
    additions_.Write();
}

void AccountFeed::PassWhole(const std::string& text)
{
    const ImportCounts before = import_.Counts();
    import_.ImportText(text);
    added_ = import_.Counts().added - before.added;
    known_ = import_.Counts().duplicates - before.duplicates;
}

void AccountFeed::Finish()
{
    Pass();
}

}  // namespace clb
