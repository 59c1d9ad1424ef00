#include "check/CheckFindings.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace clb {
namespace {

constexpr std::int32_t kMostOfAKind = 100;

struct Meaning {
    const char* kind;
    const char* text;
};

constexpr Meaning kMeanings[] = {
    {"damage",
     "Part of the file cannot be read or contradicts itself. Keep the file and go back to a "
     "backup."},
    {"table", "What belongs there cannot be shown or kept. A backup may have it."},
    {"column", "What belongs there cannot be kept, or is read as something else."},
    {"cell",
     "The program refuses this row, and every sum over it, rather than take another value for it."},
    {"text", "It can be shown, but not kept again as it is. Type it anew."},
    {"number",
     "Transactions with one number are taken for pieces of one: splitting or moving one may change "
     "the other. The later ones can have numbers of their own."},
    {"counter",
     "Every new row of this table is refused. A backup from before that number was given has "
     "numbers left."},
    {"account",
     "The rows of one show in the other as well, and only the first one's balance is kept."},
    {"orphan",
     "They show in no account and count in no balance and no budget. Deleting an account leaves "
     "its rows behind."},
    {"balance",
     "Something other than this program has changed, added or deleted rows. Look whether rows are "
     "missing before you repair: the balance may be right, and the rows wrong."},
    {"noticed",
     "Something other than this program had changed, added or deleted rows. Look whether rows are "
     "missing, in a backup from before that day; then take note with --accept."},
    {"category", "What was spent there shows nowhere in that month's budget."},
    {"month", "The row shows in no month."},
    {"index", "The data is right, but long registers become slow."},
    {"trigger",
     "It does something by itself whenever the program writes. Another program made it."},
    {"view", "This program does not read it. Another program made it."},
    {"history",
     "Undo and redo stop at this step. A repair drops it from the history, with the steps that can "
     "only be reached through it. Nothing else is lost."},
};

const char* MeaningOf(const std::string& kind)
{
    const auto found = std::find_if(std::begin(kMeanings), std::end(kMeanings),
                                    [&](const Meaning& meaning) { return kind == meaning.kind; });
    return found == std::end(kMeanings) ? "" : found->text;
}

}  // namespace

void FindingList::Add(Finding finding)
{
    std::int32_t& count = counts_[{finding.kind, finding.table, finding.column}];
    if (++count > kMostOfAKind)
        return;
    if (finding.meaning.empty())
        finding.meaning = MeaningOf(finding.kind);
    findings_.push_back(std::move(finding));
}

void FindingList::Append(FindingList& other)
{
    for (Finding& finding : other.findings_)
        findings_.push_back(std::move(finding));
    for (const auto& [key, count] : other.counts_)
        counts_[key] += count;
    other = {};
}

bool FindingList::Has(const std::string& kind, const std::string& table) const
{
    return std::any_of(findings_.begin(), findings_.end(), [&](const Finding& finding) {
        return finding.kind == kind && finding.table == table;
    });
}

std::vector<Finding> FindingList::Take()
{
    for (const auto& counted : counts_) {
        const std::int32_t count = counted.second;
        if (count <= kMostOfAKind)
            continue;
        const auto last = std::find_if(findings_.rbegin(), findings_.rend(), [&](const Finding& f) {
            return Key{f.kind, f.table, f.column} == counted.first;
        });
        Finding more = *last;
        more.row.reset();
        more.sequence.reset();
        more.query.clear();
        more.rows = count - kMostOfAKind;
        const std::string place =
            more.table.empty() || more.column.empty() ? more.table : more.table + "." + more.column;
        more.text =
            (place.empty() ? "" : place + ": ") + std::to_string(more.rows) + " more like these.";
        findings_.insert(last.base(), std::move(more));
    }
    counts_.clear();
    return std::exchange(findings_, {});
}

std::string CountedRows(std::int64_t rows)
{
    return std::to_string(rows) + (rows == 1 ? " row" : " rows");
}

}  // namespace clb
