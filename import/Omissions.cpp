#include "import/Omissions.h"

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "import/StatementScan.h"

namespace clb {
namespace {

namespace scan = statement_scan;

constexpr std::string_view kAccount = "<ACCTID>";
constexpr std::string_view kOpen = "<STMTTRN>";
constexpr std::string_view kClose = "</STMTTRN>";
constexpr std::size_t kSearchStart = 5;  // in characters, where the import begins

/// Counts the lines that are not empty. Any line end counts.
std::size_t FilledLines(std::string_view text)
{
    std::size_t count = 0;
    bool filled = false;
    for (const char c : text) {
        const bool end = c == '\r' || c == '\n';
        if (!end && !filled)
            ++count;
        filled = !end;
    }
    return count;
}

/// The part that the repair keeps: up to the first carriage return, if there is a line feed in it.
std::string_view KeptByRepair(std::string_view text)
{
    const std::string_view firstLine = text.substr(0, text.find('\r'));
    return firstLine.find('\n') == std::string_view::npos ? text : firstLine;
}

/// A value in a text that is not repaired yet. It also ends at a bare line feed, because the repair
/// adds a carriage return there.
std::string_view Value(std::string_view text, std::string_view tag, std::size_t from)
{
    std::string_view value = scan::Value(text, tag, from);
    return TrimRight(value.substr(0, value.find('\n')));
}

std::size_t Openings(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = scan::Find(text, kOpen, 0); at != scan::kNone;
         at = scan::Find(text, kOpen, at + kOpen.size()))
        ++count;
    return count;
}

/// Goes through the transactions as the import does, and continues where the import stops.
class Walk {
public:
    explicit Walk(std::string_view text) : text_(text) {}

    void Count(Omissions& result)
    {
        at_ = scan::Find(text_, kAccount, ByteOffset(text_, kSearchStart));
        result.beforeAccount = Openings(text_.substr(0, at_));
        if (at_ == scan::kNone)
            return;
        result.notClosed = Openings(text_.substr(at_));
        const std::string_view first = Value(text_, kAccount, at_);
        std::string_view account = first;
        std::set<std::string_view> others;
        bool stopped = false;
        while (FindNext()) {
            account = LastAccount(account);
            const std::string_view block = Take();
            --result.notClosed;
            if (stopped && !block.empty())
                ++result.afterEmptyTransaction;
            stopped = stopped || block.empty();
            if (stopped)
                continue;
            if (account != first)
                others.insert(account);
            if (Value(block, "<FITID>", 0).empty())
                ++result.withoutIdentifier;
        }
        result.furtherAccounts = others.size();
    }

private:
    /// Finds the next complete transaction.
    bool FindNext()
    {
        open_ = scan::Find(text_, kOpen, at_);
        if (open_ == scan::kNone)
            return false;
        close_ = scan::Find(text_, kClose, open_ + kOpen.size());
        return close_ != scan::kNone;
    }
    /// The last account between the current place and the transaction.
    [[nodiscard]] std::string_view LastAccount(std::string_view account) const
    {
        const std::size_t tag = text_.substr(at_, open_ - at_).rfind(kAccount);
        return tag == std::string_view::npos ? account : Value(text_, kAccount, at_ + tag);
    }
    std::string_view Take()
    {
        const std::size_t start = open_ + kOpen.size();
        at_ = close_ + kClose.size();
        return text_.substr(start, close_ - start);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t open_ = 0;  ///< of the transaction that was found
    std::size_t close_ = 0;
};

}  // namespace

Omissions CountOmissions(std::string_view text, bool markup)
{
    Omissions result;
    const std::string_view kept = KeptByRepair(text);
    result.linesAfterRepair = FilledLines(text.substr(kept.size()));
    if (markup)
        Walk(kept).Count(result);
    return result;
}

}  // namespace clb
