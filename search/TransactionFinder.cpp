#include "search/TransactionFinder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/Date.h"
#include "base/Text.h"
#include "engine/rows/RawSql.h"

namespace clb {
namespace {

using Kind = RawSql::Kind;

constexpr std::size_t kAlwaysNoted = 1000;  ///< changed rows
constexpr std::size_t kShare = 8;           ///< and so many of the book's rows for each one
constexpr std::size_t kTogether = 500;      ///< rows of one query

constexpr const char* kRows =
    "SELECT rowid, Sequence, SubSequence, AccountID, PostDate, Description, Amount, Category, "
    "PayeeName, CheckID FROM Trans";

/// Reads rows for the search. Many rows of one day follow each other.
class RowReader {
public:
    SearchedRow Read(const RawSql::Row& row)
    {
        SearchedRow read;
        read.identity = row.Integer(0);
        read.sequence = NumberAt(row, 1);
        read.piece = NumberAt(row, 2);
        const std::string_view account = row.Text(3);
        if (!account.empty() || !row.IsNull(3))
            read.account = account;
        if (row.KindOf(4) == Kind::Text)
            read.day = DayOf(row.Text(4));
        read.description = row.Text(5);
        read.amount = row.WholeNumber(6);
        read.wrongAmount = !read.amount && !row.IsNull(6);
        read.category = row.Text(7);
        read.notes = row.Text(8);
        read.checkNumber = row.Text(9);
        return read;
    }

private:
    /// Only for the order: 0 for what is not a number.
    static std::int32_t NumberAt(const RawSql::Row& row, int column)
    {
        const std::int64_t number = row.Integer(column);
        return std::in_range<std::int32_t>(number) ? static_cast<std::int32_t>(number) : 0;
    }
    std::optional<std::int32_t> DayOf(std::string_view text)
    {
        if (text != lastText_) {
            const auto date = Date::FromIso(text);
            lastText_ = text;
            lastDay_ = date ? std::optional(date->Days()) : std::nullopt;
        }
        return lastDay_;
    }

    std::string lastText_;
    std::optional<std::int32_t> lastDay_;
};

bool IsTransactions(std::string_view table)
{
    return EqualsIgnoringCase(table, "Trans");
}

bool IsAccounts(std::string_view table)
{
    return EqualsIgnoringCase(table, "Account");
}

/// Adds the rows of the table that meet the condition: "" or " WHERE ...".
void AddRows(Connection& connection, TransactionTexts& texts, const std::string& where)
{
    RowReader reader;
    RawSql(connection).Select(kRows + where, [&](const RawSql::Row& row) {
        texts.Add(reader.Read(row));
    });
}

void NameAccounts(Connection& connection, TransactionTexts& texts)
{
    std::vector<std::pair<std::string, std::string>> accounts;
    // Of accounts with one number the first counts, and the last one to be named wins.
    RawSql(connection)
        .Select(
            "SELECT AccountID, Description FROM Account WHERE AccountID IS NOT NULL ORDER BY rowid "
            "DESC",
            [&](const RawSql::Row& row) { accounts.emplace_back(row.Text(0), row.Text(1)); });
    texts.NameAccounts(accounts);
}

}  // namespace

TransactionFinder::~TransactionFinder()
{
    Forget();
}

void TransactionFinder::Forget() noexcept
{
    if (observing_)
        connection_.RemoveObserver(*this);
    observing_ = false;
    texts_.reset();
    matcher_.Forget();
    order_ = NewestFirst();
    changed_ = {};
}

FoundTransactions TransactionFinder::Find(const SearchQuery& query, std::size_t most)
{
    FoundTransactions found;
    if (query.Empty())
        return found;
    Update();
    const RowBits rows = matcher_.Matching(*texts_, query);
    found.count = rows.Count();
    found.sum = texts_->SumOf(rows);
    if (found.count > 0 && most > 0) {
        order_.Make(*texts_);
        found.rows = order_.Of(*texts_, rows, most);
    }
    return found;
}

void TransactionFinder::Update()
{
    readPending_ = connection_.Locked() && (readPending_ || IsBehind());
    if (!texts_ || outdated_ || texts_->Removed() > kAlwaysNoted + texts_->Rows() / 2 ||
        connection_.WrittenElsewhere(contents_))
        return ReadAll();
    if (!changed_.empty())
        ReadChanged();
    if (accountsChanged_)
        ReadAccounts();
}

bool TransactionFinder::IsBehind() const
{
    return !texts_ || outdated_ || accountsChanged_ || !changed_.empty();
}

void TransactionFinder::ReadAll()
{
    constexpr std::int64_t kMostReserved = 1'000'000;  // identities may be larger than the book
    texts_.reset();
    matcher_.Forget();
    order_.Forget();
    if (!observing_)
        connection_.AddObserver(*this);
    observing_ = true;
    auto texts = std::make_unique<TransactionTexts>();
    const ReadGroup group(connection_);
    contents_ = connection_.ContentsNow();
    RawSql(connection_).Select("SELECT max(rowid) FROM Trans", [&](const RawSql::Row& row) {
        texts->Reserve(
            static_cast<std::size_t>(std::clamp<std::int64_t>(row.Integer(0), 0, kMostReserved)));
    });
    AddRows(connection_, *texts, "");
    NameAccounts(connection_, *texts);
    texts_ = std::move(texts);
    changed_.clear();
    outdated_ = false;
    accountsChanged_ = false;
}

void TransactionFinder::ReadChanged()
{
    constexpr std::size_t kInserted = 64;  // more are sorted more quickly together
    matcher_.Forget();
    std::sort(changed_.begin(), changed_.end());
    changed_.erase(std::unique(changed_.begin(), changed_.end()), changed_.end());
    // An error leaves nothing that is half read.
    auto texts = std::exchange(texts_, nullptr);
    const std::size_t before = texts->Rows();
    const ReadGroup group(connection_);
    for (std::size_t at = 0; at < changed_.size(); at += kTogether) {
        std::string where = " WHERE rowid IN (";
        for (std::size_t i = at; i < std::min(at + kTogether, changed_.size()); ++i) {
            texts->Remove(changed_[i]);
            where += std::to_string(changed_[i]) + ",";
        }
        where.back() = ')';
        AddRows(connection_, *texts, where);
    }
    if (texts->Rows() - before > kInserted)
        order_.Forget();
    for (std::size_t row = before; row < texts->Rows(); ++row)
        order_.Insert(*texts, row);
    changed_.clear();
    texts_ = std::move(texts);
}

void TransactionFinder::ReadAccounts()
{
    matcher_.Forget();
    NameAccounts(connection_, *texts_);
    accountsChanged_ = false;
}

void TransactionFinder::Note(std::int64_t identity)
{
    if (outdated_ || !texts_)
        return;
    if (changed_.size() < kAlwaysNoted + texts_->Rows() / kShare)
        return changed_.push_back(identity);
    outdated_ = true;
    changed_ = {};
}

void TransactionFinder::RowChanging(std::string_view table, std::int64_t before, std::int64_t after)
{
    if (IsAccounts(table))
        accountsChanged_ = true;
    if (!IsTransactions(table))
        return;
    Note(after);
    if (before != after)
        Note(before);
}

void TransactionFinder::TableChanged(std::string_view table)
{
    outdated_ = outdated_ || IsTransactions(table);
    accountsChanged_ = accountsChanged_ || IsAccounts(table);
}

void TransactionFinder::Lost() noexcept
{
    // Rows that were read while they were changed are as they were before.
    outdated_ = outdated_ || readPending_;
    readPending_ = false;
}

}  // namespace clb
