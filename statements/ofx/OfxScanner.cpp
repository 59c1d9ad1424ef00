#include "statements/ofx/OfxScanner.h"

#include <algorithm>

#include "statements/ofx/OfxText.h"

namespace clb {
namespace {

constexpr std::size_t kLongestName = 64;
constexpr std::size_t kLongestAttributes = 512;

bool IsNameStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNameCharacter(char c)
{
    return IsNameStart(c) || (c >= '0' && c <= '9') || c == '.' || c == ':' || c == '-';
}

/// Finds the first '>' that is in no quotes; npos if a '<' comes before it.
std::size_t FindTagEnd(std::string_view text)
{
    for (std::size_t at = text.find_first_of("<>\"'"); at != std::string_view::npos;
         at = text.find_first_of("<>\"'", at + 1)) {
        if (text[at] == '<')
            return std::string_view::npos;
        if (text[at] == '>')
            return at;
        at = text.find(text[at], at + 1);
        if (at == std::string_view::npos)
            return at;
    }
    return std::string_view::npos;
}

std::string_view WithoutPrefix(std::string_view name)
{
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

bool OfxScanner::Next(OfxToken& token)
{
    if (!started_)
        more_ = FindTag(0, next_);
    started_ = true;
    if (!more_)
        return false;
    token = next_.token;
    const std::size_t from = next_.end;
    more_ = FindTag(from, next_);
    const std::size_t end = more_ ? next_.token.offset : text_.size();
    token.value = TrimBlanks(text_.substr(from, end - from));
    return true;
}

/// Finds the next tag from an offset on.
bool OfxScanner::FindTag(std::size_t from, Tag& tag)
{
    for (std::size_t at = text_.find('<', from); at != std::string_view::npos;
         at = text_.find('<', at)) {
        const std::size_t skipped = SkipMarkup(at);
        if (skipped == at && ReadTag(at, tag))
            return true;
        at = std::max(skipped, at + 1);
    }
    return false;
}

/// Returns the offset after a comment, section, instruction or declaration, or the offset itself if
/// there is none.
std::size_t OfxScanner::SkipMarkup(std::size_t at)
{
    const std::string_view rest = text_.substr(at);
    std::size_t end = std::string_view::npos;
    if (rest.starts_with("<!--"))
        end = After("-->", at + 4, noCommentEnd_);
    else if (rest.starts_with(kSectionStart))
        end = After(kSectionEnd, at + kSectionStart.size(), noSectionEnd_);
    else if (rest.starts_with("<?"))
        end = After(">", at + 2, noInstructionEnd_);
    else if (rest.starts_with("<!"))
        end = After(">", at + 2, noDeclarationEnd_);
    return end == std::string_view::npos ? at : end;
}

std::size_t OfxScanner::After(std::string_view end, std::size_t from, bool& missing)
{
    if (missing)
        return std::string_view::npos;
    const std::size_t found = text_.find(end, from);
    missing = found == std::string_view::npos;
    return missing ? found : found + end.size();
}

bool OfxScanner::ReadTag(std::size_t at, Tag& tag) const
{
    std::size_t begin = at + 1;
    const bool close = begin < text_.size() && text_[begin] == '/';
    begin += close ? 1 : 0;
    std::size_t end = begin;
    while (end < text_.size() && end - begin < kLongestName && IsNameCharacter(text_[end]))
        ++end;
    if (end == begin || !IsNameStart(text_[begin]))
        return false;
    const std::size_t last = EndOfAttributes(end);
    if (last == std::string_view::npos)
        return false;
    tag.token = {};
    tag.token.kind = close ? OfxToken::Kind::Close : OfxToken::Kind::Open;
    tag.token.name = WithoutPrefix(text_.substr(begin, end - begin));
    tag.token.tag = FindOfxTag(tag.token.name);
    tag.token.closed = text_[last - 1] == '/';
    tag.token.offset = at;
    tag.end = last + 1;
    return true;
}

/// Returns the offset of the '>' after a name and its attributes, or npos if what follows is text.
std::size_t OfxScanner::EndOfAttributes(std::size_t at) const
{
    const std::string_view rest = text_.substr(at, kLongestAttributes);
    if (rest.empty() || (rest.front() != '>' && rest.front() != '/' && !IsBlank(rest.front())))
        return std::string_view::npos;
    if (rest.front() == '>')
        return at;
    const std::size_t end = FindTagEnd(rest);
    if (end == std::string_view::npos)
        return end;
    // Words without '=' are no attributes: "<b and c>" is text.
    const std::string_view inside = TrimBlanks(rest.substr(0, end));
    const bool isTag =
        inside.empty() || inside == "/" || inside.find('=') != std::string_view::npos;
    return isTag ? at + end : std::string_view::npos;
}

}  // namespace clb
