#include "search/SearchQuery.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

struct Prefix {
    std::string_view text;
    SearchField field;
};
constexpr std::array kPrefixes = {
    Prefix{"account:", SearchField::Account}, Prefix{"category:", SearchField::Category},
    Prefix{"payee:", SearchField::Description}, Prefix{"notes:", SearchField::Notes}};

bool IsDigitByte(char c)
{
    return c >= '0' && c <= '9';
}

bool IsNumber(std::string_view word)
{
    return std::all_of(word.begin(), word.end(), &IsDigitByte);
}

/// Whether thousands are set apart by the space.
bool IsThinSpace(char32_t code)
{
    return code == 0xA0 || code == 0x2007 || code == 0x2009 || code == 0x202F;
}

/// The first character. Of bytes that are not a character, the first one.
ScannedChar NextOf(std::string_view text)
{
    const ScannedChar next = FirstChar(text);
    return next.size > 1 && !IsValidUtf8(text.substr(0, next.size)) ? ScannedChar{U'\uFFFD', 1}
                                                                    : next;
}

bool IsComparison(std::string_view word)
{
    return word == ">" || word == ">=" || word == "<" || word == "<=";
}

/// What is typed before the rest of a condition.
bool IsBegun(std::string_view word)
{
    return IsComparison(word) || word == ".." || word == "+" ||
           word.find_first_not_of('-') == std::string_view::npos;
}

/// Goes through the typed text from left to right.
class QueryReader {
public:
    explicit QueryReader(std::string_view text) : rest_(text) {}

    std::vector<SearchTerm> Read()
    {
        for (SkipSpaces(rest_); !rest_.empty(); SkipSpaces(rest_))
            if (!TakeText())
                AddWord(TakeWord());
        return std::move(terms_);
    }

private:
    static void SkipSpaces(std::string_view& text)
    {
        while (!text.empty()) {
            const ScannedChar next = NextOf(text);
            if (!FoldsToSpace(next.code))
                return;
            text.remove_prefix(next.size);
        }
    }

    /// The size of the word at the front of a text.
    static std::size_t WordSize(std::string_view text)
    {
        std::size_t at = 0;
        while (at < text.size()) {
            const ScannedChar next = NextOf(text.substr(at));
            const std::size_t after = at + next.size;
            const bool inNumber = IsThinSpace(next.code) && at > 0 && IsDigitByte(text[at - 1]) &&
                                  after < text.size() && IsDigitByte(text[after]);
            if (FoldsToSpace(next.code) && !inNumber)
                break;
            at = after;
        }
        return at;
    }

    std::string_view Take(std::size_t size)
    {
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }
    std::string_view TakeWord() { return Take(WordSize(rest_)); }

    /// Takes a quoted text, without its quotes.
    std::string_view TakeQuoted()
    {
        Take(1);
        const std::size_t end = std::min(rest_.find('"'), rest_.size());
        const std::string_view quoted = Take(end);
        Take(std::min<std::size_t>(1, rest_.size()));
        return quoted;
    }

    static const Prefix* PrefixOf(std::string_view text)
    {
        const auto* const found =
            std::find_if(kPrefixes.begin(), kPrefixes.end(), [text](const Prefix& prefix) {
                return EqualsIgnoringCase(text.substr(0, prefix.text.size()), prefix.text);
            });
        return found == kPrefixes.end() ? nullptr : &*found;
    }

    /// Takes a quoted text, or what has a prefix; returns false if there is none.
    bool TakeText()
    {
        const bool without = rest_.front() == '-';
        const std::string_view behind = rest_.substr(without ? 1 : 0);
        const Prefix* const prefix = PrefixOf(behind);
        if (prefix == nullptr && !behind.starts_with('"'))
            return false;
        Take((without ? 1 : 0) + (prefix != nullptr ? prefix->text.size() : 0));
        const std::string_view text = rest_.starts_with('"') ? TakeQuoted() : TakeWord();
        SearchTerm term;
        term.without = without;
        term.field = prefix != nullptr ? prefix->field : SearchField::Any;
        AddText(std::move(term), text);
        return true;
    }

    void AddText(SearchTerm term, std::string_view text)
    {
        term.word = Folded(text);
        if (!term.word.empty())
            terms_.push_back(std::move(term));
    }

    /// Adds a word that is neither quoted nor has a prefix.
    void AddWord(std::string_view word)
    {
        SearchTerm term;
        if (word.starts_with('-') && !IsBegun(word)) {
            const std::string_view rest = word.substr(1);
            term.without = !AmountsOf(word).read || (DaysOf(rest) && !IsNumber(rest));
            word.remove_prefix(term.without ? 1 : 0);
        }
        if (IsComparison(word))
            AddReadings(std::move(term), std::string(word) + AmountAfter(word));
        else
            AddReadings(std::move(term), word);
    }

    /// Takes the next word if it is the amount of a comparison that ends before it; else nothing.
    std::string AmountAfter(std::string_view comparison)
    {
        std::string_view after = rest_;
        SkipSpaces(after);
        const std::string_view word = after.substr(0, WordSize(after));
        std::string whole(comparison);
        if (!AmountsOf(whole.append(word)).read)
            return {};
        rest_ = after.substr(word.size());
        return std::string(word);
    }

    void AddReadings(SearchTerm term, std::string_view word)
    {
        if (IsBegun(word))
            return;
        term.days = DaysOf(word);
        AmountCondition amounts;
        const bool digits = IsNumber(word);
        if (!term.days || digits)
            amounts = AmountsOf(word);
        term.amounts = std::move(amounts.ranges);
        const bool text = digits || (!term.days && !amounts.read);
        if (!text)
            terms_.push_back(std::move(term));
        else
            AddText(std::move(term), word);
    }

    std::string_view rest_;
    std::vector<SearchTerm> terms_;
};

/// Puts spans in order and joins those that touch or overlap.
std::vector<TextSpan> Joined(std::vector<TextSpan> spans)
{
    std::sort(spans.begin(), spans.end(),
              [](const TextSpan& a, const TextSpan& b) { return a.at < b.at; });
    std::vector<TextSpan> joined;
    for (const TextSpan& span : spans) {
        if (joined.empty() || span.at > joined.back().at + joined.back().size)
            joined.push_back(span);
        else
            joined.back().size =
                std::max(joined.back().size, span.at + span.size - joined.back().at);
    }
    return joined;
}

}  // namespace

SearchQuery::SearchQuery(std::string_view text) : terms_(QueryReader(text).Read()) {}

std::vector<TextSpan> SearchQuery::MarksIn(SearchField field, std::string_view text) const
{
    std::vector<TextSpan> marks;
    for (const SearchTerm& term : terms_) {
        if (term.without || (term.field != SearchField::Any && term.field != field))
            continue;
        const std::vector<TextSpan> spans = FindFolded(text, term.word);
        marks.insert(marks.end(), spans.begin(), spans.end());
    }
    return Joined(std::move(marks));
}

}  // namespace clb
