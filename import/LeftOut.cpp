#include "import/LeftOut.h"

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
constexpr std::size_t kSearchStart = 5;  // in characters, as the reader begins

/// Lines with something in them, whatever they end in.
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

/// What the repair keeps: all up to the first carriage return, where that holds a line feed.
std::string_view KeptByRepair(std::string_view text)
{
    const std::string_view firstLine = text.substr(0, text.find('\r'));
    return firstLine.find('\n') == std::string_view::npos ? text : firstLine;
}

/// A value before the repair: it ends at a bare line feed too, which gets its carriage return.
std::string_view Value(std::string_view text, std::string_view tag, std::size_t from)
{
    std::string_view value = scan::Value(text, tag, from);
    return TrimRight(value.substr(0, value.find('\n')));
}

std::size_t Openings(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = scan::Find(text, kOpen, 0); at != scan::None;
         at = scan::Find(text, kOpen, at + kOpen.size()))
        ++count;
    return count;
}

/// Walks over the transactions as the reader does, and on behind the place where it stops.
class Walk {
public:
    explicit Walk(std::string_view text) : text_(text) {}

    void Count(LeftOut& result)
    {
        at_ = scan::Find(text_, kAccount, ByteOffset(text_, kSearchStart));
        result.beforeAccount = Openings(text_.substr(0, at_));
        if (at_ == scan::None)
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
                ++result.behindEmptyTransaction;
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
    /// Finds the next whole transaction.
    bool FindNext()
    {
        open_ = scan::Find(text_, kOpen, at_);
        if (open_ == scan::None)
            return false;
        close_ = scan::Find(text_, kClose, open_ + kOpen.size());
        return close_ != scan::None;
    }
    /// The account named last between the place reached and the transaction.
    std::string_view LastAccount(std::string_view account) const
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

LeftOut CountLeftOut(std::string_view text, bool markup)
{
    LeftOut result;
    const std::string_view kept = KeptByRepair(text);
    result.linesBehindRepair = FilledLines(text.substr(kept.size()));
    if (markup)
        Walk(kept).Count(result);
    return result;
}

std::size_t LinesRepairedAway(std::string_view text, std::string_view original)
{
    const std::string_view kept = KeptByRepair(original);
    const bool made = Replace(text, "\r\n", "\n") == std::string(kept) + "\n";
    return made ? FilledLines(original.substr(kept.size())) : 0;
}

}  // namespace clb
