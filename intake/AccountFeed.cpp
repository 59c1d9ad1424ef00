#include "intake/AccountFeed.h"

#include "base/RuntimeError.h"
#include "import/modImport.h"

namespace clb {
namespace {

/// Rows that are passed on at once. The import keeps the text of all of them in memory.
constexpr std::size_t kRowsAtOnce = 2'000;

}  // namespace

AccountFeed::AccountFeed(clsDatabase& database, modImport& import, std::string accountID,
                         const StatementAccount& account, FeedWatch watch)
    : import_(import),
      accountID_(std::move(accountID)),
      watch_(std::move(watch)),
      identifiers_(account.number),
      earlier_(database, accountID_),
      text_(accountID_, account),
      additions_(database, accountID_)
{
}

void AccountFeed::Add(const StatementRow& row)
{
    std::string identifier;
    const bool known = IsKnown(row, identifier);
    if (watch_)
        watch_(row, identifier, known ? RowState::Known : RowState::Added);
    if (known) {
        ++known_;
        return;
    }
    text_.Add(row, identifier);
    if (!OfxText::CanCarry(row))
        additions_.Remember(row, identifier);
    if (text_.Rows() >= kRowsAtOnce)
        Pass();
}

bool AccountFeed::IsKnown(const StatementRow& row, std::string& identifier)
{
    if (!row.identifier.empty())
        return IsKnownToBank(row, identifier);
    identifier = identifiers_.Make(row);
    if (earlier_.HasIdentifier(identifier))
        return true;
    // A shorter file may have given the row's identifier to no other row.
    const std::string& shared = row.sharedIdentifier;
    if (!shared.empty() && earlier_.TakeIdentified(row, {RowIdentifiers::OfBank(shared), shared}))
        return true;
    return earlier_.TakeUnidentified(row);
}

/// Banks use identifiers again for other rows. Such a row gets one of its own.
bool AccountFeed::IsKnownToBank(const StatementRow& row, std::string& identifier)
{
    identifier = RowIdentifiers::OfBank(row.identifier);
    if (earlier_.HasIdentified(row, {identifier, row.identifier}))
        return true;
    const bool reused =
        earlier_.HasIdentifier(identifier) || earlier_.HasIdentifier(row.identifier);
    if (!reused && !earlier_.HasFurther())
        return false;
    const std::string further = identifiers_.Further(row);
    if (earlier_.HasIdentifier(further))
        return true;
    if (!reused)
        return false;
    identifier = further;
    reused_.push_back({row.line, LeftOutReason::NotARow,
                       row.date.ToIso() + " " + row.amount.ToText() + " " + row.name});
    return false;
}

void AccountFeed::Pass()
{
    if (text_.Rows() == 0)
        return;
    const auto rows = static_cast<std::int64_t>(text_.Rows());
    const std::int32_t before = import_.Counts().added;
    import_.ImportText(accountID_, text_.Take(), modImport::Memos::Whole);
    const std::int64_t stored = import_.Counts().added - before;
    added_ += stored;
    // The import has told the user of its error.
    if (stored < rows)
        throw RuntimeError(errors::InvalidCall, "The book did not take all rows of the statement.");
    additions_.Write();
}

bool AccountFeed::ImportAgrees(const StatementRow& row)
{
    const std::string identifier = RowIdentifiers::OfBank(row.identifier);
    if (earlier_.HasIdentifier(row.identifier))
        return earlier_.HasIdentified(row, {identifier, row.identifier});
    return !earlier_.HasIdentifier(identifier) &&
           (!earlier_.HasFurther() || !earlier_.HasIdentifier(identifiers_.Further(row)));
}

void AccountFeed::PassWhole(std::string text)
{
    const ImportCounts before = import_.Counts();
    import_.ImportText(accountID_, std::move(text), modImport::Memos::Short);
    added_ = import_.Counts().added - before.added;
    known_ = import_.Counts().duplicates - before.duplicates;
}

void AccountFeed::Show(const StatementRow& row)
{
    if (watch_)
        watch_(row, row.identifier,
               earlier_.HasIdentifier(row.identifier) ? RowState::Known : RowState::Added);
}

void AccountFeed::Finish()
{
    Pass();
}

}  // namespace clb
