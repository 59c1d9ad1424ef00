#include "check/CheckNumbers.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string>

#include "base/Text.h"

namespace clb {
namespace {

/// A split appends its text to a description and may cut at most this much of its end.
constexpr std::size_t kComparedLength = 38;

/// Returns the description that a piece was split from, as far as it is kept.
std::string Origin(std::string_view description)
{
    const std::size_t split = description.find(" (split #");
    return std::string(Left(description.substr(0, split), kComparedLength));
}

struct Piece {
    std::int64_t row = 0;
    std::int64_t subSequence = 0;
    std::string account;
    std::string date;
    std::string origin;
};

/// Divides the pieces with one number and one account into transactions.
class Transactions {
public:
    /// Pieces with the same SubSequence, in the order of their rows. Each SubSequence occurs once.
    void Take(const std::vector<const Piece*>& pieces)
    {
        ++round_;
        std::vector<const Piece*> left = pieces;
        for (const Likeness likeness : {Likeness::Same, Likeness::Date, Likeness::Account}) {
            std::vector<const Piece*> further;
            for (const Piece* piece : left)
                if (!Join(*piece, likeness))
                    further.push_back(piece);
            left = std::move(further);
        }
        for (const Piece* piece : left)
            Begin(*piece);
    }
    std::vector<std::vector<std::int64_t>> Rows()
    {
        for (auto& rows : rows_)
            std::sort(rows.begin(), rows.end());
        return std::move(rows_);
    }

private:
    enum class Likeness { Same, Date, Account };

    /// Similar transactions, the earliest first. Those before `at` have this round's SubSequence.
    struct Alike {
        std::vector<std::size_t> transactions;
        std::size_t at = 0;
        std::int64_t round = 0;
    };

    static std::string KeyOf(const Piece& piece, Likeness likeness)
    {
        switch (likeness) {
            case Likeness::Same: return "s" + piece.date + '\n' + piece.origin;
            case Likeness::Date: return "d" + piece.date;
            default: return "a";
        }
    }
    bool Join(const Piece& piece, Likeness likeness)
    {
        const auto found = alike_.find(KeyOf(piece, likeness));
        if (found == alike_.end())
            return false;
        Alike& alike = found->second;
        if (alike.round != round_)
            alike.at = 0;
        alike.round = round_;
        while (alike.at < alike.transactions.size() &&
               joined_[alike.transactions[alike.at]] == round_)
            ++alike.at;
        if (alike.at == alike.transactions.size())
            return false;
        const std::size_t transaction = alike.transactions[alike.at];
        joined_[transaction] = round_;
        rows_[transaction].push_back(piece.row);
        return true;
    }
    void Begin(const Piece& piece)
    {
        for (const Likeness likeness : {Likeness::Same, Likeness::Date, Likeness::Account})
            alike_[KeyOf(piece, likeness)].transactions.push_back(rows_.size());
        rows_.push_back({piece.row});
        joined_.push_back(round_);
    }

    std::vector<std::vector<std::int64_t>> rows_;  // of each transaction
    std::vector<std::int64_t> joined_;  // the round in which the transaction last got a piece
    std::map<std::string, Alike> alike_;
    std::int64_t round_ = 0;
};

}  // namespace

/// All rows of one number, in order of SubSequence and row.
struct CheckNumbers::Group {
    std::int64_t number = 0;
    std::vector<Piece> pieces;

    /// Returns the rows of each transaction. The one with the earliest row is first.
    [[nodiscard]] std::vector<std::vector<std::int64_t>> ByTransaction() const
    {
        std::map<std::string, Transactions> accounts;
        std::map<std::string, std::vector<const Piece*>> same;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            same[pieces[i].account].push_back(&pieces[i]);
            const bool last =
                i + 1 == pieces.size() || pieces[i + 1].subSequence != pieces[i].subSequence;
            if (!last)
                continue;
            for (const auto& [account, alike] : same)
                accounts[account].Take(alike);
            same.clear();
        }
        std::vector<std::vector<std::int64_t>> all;
        for (auto& [account, transactions] : accounts)
            for (auto& rows : transactions.Rows())
                all.push_back(std::move(rows));
        std::sort(all.begin(), all.end());
        return all;
    }
};

CheckNumbers::CheckNumbers(RawSql& raw, FindingList& findings)
{
    FindDoubled(raw);
    FindMissing(raw);
    std::int64_t largest = 0;
    raw.Select("SELECT max(Sequence) FROM Trans WHERE typeof(Sequence) = 'integer'",
               [&](const RawSql::Row& row) { largest = std::max(largest, row.Integer(0)); });
    Number(largest);
    for (Finding& finding : found_) {
        finding.repairable = !newNumbers_.empty();
        findings.Add(std::move(finding));
    }
}

void CheckNumbers::FindDoubled(RawSql& raw)
{
    Group group;
    raw.Select(
        "SELECT Sequence, coalesce(SubSequence, 0), rowid, AccountID, PostDate, Description FROM "
        "Trans WHERE typeof(Sequence) = 'integer' AND Sequence IN (SELECT Sequence FROM Trans "
        "GROUP BY Sequence HAVING count(*) > 1) ORDER BY 1, 2, 3",
        [&](const RawSql::Row& row) {
            if (!group.pieces.empty() && row.Integer(0) != group.number) {
                Close(group);
                group.pieces.clear();
            }
            group.number = row.Integer(0);
            group.pieces.push_back({row.Integer(2), row.Integer(1), std::string(row.Text(3)),
                                    std::string(row.Text(4)), Origin(row.Text(5))});
        });
    Close(group);
}

void CheckNumbers::Close(const Group& group)
{
    if (group.pieces.empty())
        return;
    auto transactions = group.ByTransaction();
    if (transactions.size() < 2)
        return;
    found_.push_back({.kind = "number",
                      .table = "Trans",
                      .text = "Trans: number " + std::to_string(group.number) + " stands for " +
                              std::to_string(transactions.size()) + " transactions (" +
                              CountedRows(static_cast<std::int64_t>(group.pieces.size())) + ").",
                      .rows = static_cast<std::int32_t>(group.pieces.size()),
                      .row = transactions[1].front(),
                      .sequence = group.number,
                      .column = "Sequence"});
    std::move(transactions.begin() + 1, transactions.end(), std::back_inserter(later_));
}

void CheckNumbers::FindMissing(RawSql& raw)
{
    raw.Select("SELECT rowid FROM Trans WHERE Sequence IS NULL ORDER BY rowid",
               [&](const RawSql::Row& row) {
                   found_.push_back(
                       {.kind = "number",
                        .table = "Trans",
                        .text = "Trans: row " + std::to_string(row.Integer(0)) + " has no number.",
                        .rows = 1,
                        .row = row.Integer(0),
                        .column = "Sequence",
                        .meaning = "It cannot be split or moved to another month."});
                   later_.push_back({row.Integer(0)});
               });
}

void CheckNumbers::Number(std::int64_t largest)
{
    const auto wanted = static_cast<std::int64_t>(later_.size());
    if (largest > std::numeric_limits<std::int32_t>::max() - wanted)
        return;
    std::sort(later_.begin(), later_.end());
    for (const auto& rows : later_) {
        ++largest;
        for (const std::int64_t row : rows)
            newNumbers_.push_back({row, static_cast<std::int32_t>(largest)});
    }
}

}  // namespace clb
