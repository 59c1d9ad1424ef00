#include "statements/messages/XmlScanner.h"

#include <algorithm>

namespace clb {
namespace {

constexpr std::string_view kSection = "<![CDATA[";
constexpr std::string_view kSpaces = " \t\r\n";

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

bool XmlScanner::Fail()
{
    brokeOff_ = true;
    at_ = text_.size();
    return false;
}

bool XmlScanner::SkipTo(std::string_view end)
{
    const std::size_t found = text_.find(end, at_);
    if (found == std::string_view::npos)
        return Fail();
    at_ = found + end.size();
    return true;
}

bool XmlScanner::SkipDocumentType()
{
    const std::size_t end = text_.find_first_of("[>", at_);
    if (end == std::string_view::npos)
        return Fail();
    return text_[end] == '[' ? SkipTo("]") && SkipTo(">") : SkipTo(">");
}

/// Skips what begins with "<?" or "<!".
bool XmlScanner::SkipMarkup()
{
    const std::string_view rest = text_.substr(at_);
    if (rest.starts_with("<?"))
        return SkipTo("?>");
    if (rest.starts_with("<!--")) {
        at_ += 4;
        return SkipTo("-->");
    }
    if (!rest.starts_with(kSection))
        return SkipDocumentType();
    const std::size_t first = rest.find_first_not_of(kSpaces, kSection.size());
    if (openSections_ && first != std::string_view::npos && rest[first] == '<') {
        at_ += first;
        return true;
    }
    return SkipTo("]]>");
}

/// Where the '>' of an opening tag is, or npos. Quoted attributes may hold others.
std::size_t XmlScanner::EndOfTag(std::size_t at) const
{
    for (; at < text_.size(); ++at) {
        const char c = text_[at];
        if (c == '>')
            return at;
        if (c != '"' && c != '\'')
            continue;
        at = text_.find(c, at + 1);
        if (at == std::string_view::npos)
            return at;
    }
    return std::string_view::npos;
}

bool XmlScanner::ReadTag(XmlTag& tag)
{
    tag.begin = at_;
    const bool closes = text_.substr(at_, 2) == "</";
    const std::size_t name = at_ + (closes ? 2 : 1);
    const std::size_t end = closes ? text_.find('>', name) : EndOfTag(name);
    if (end == std::string_view::npos)
        return Fail();
    at_ = tag.end = end + 1;
    const bool empty = !closes && text_[end - 1] == '/' && end > name;
    tag.kind = closes ? XmlTag::Kind::Close : empty ? XmlTag::Kind::Empty : XmlTag::Kind::Open;
    const std::string_view inside = text_.substr(name, end - name - (empty ? 1 : 0));
    std::size_t length = 0;
    std::size_t colon = 0;  // offset after it
    for (; length < inside.size() && !IsSpace(inside[length]); ++length)
        if (inside[length] == ':' && colon == 0)
            colon = length + 1;
    tag.prefix = inside.substr(0, colon == 0 ? 0 : colon - 1);
    tag.name = inside.substr(colon, length - colon);
    return true;
}

bool XmlScanner::Next(XmlTag& tag)
{
    for (;;) {
        at_ = text_.find('<', at_);
        if (at_ == std::string_view::npos) {
            at_ = text_.size();
            return false;
        }
        if (at_ + 1 == text_.size())
            return Fail();
        if (text_[at_ + 1] != '?' && text_[at_ + 1] != '!')
            return ReadTag(tag);
        if (!SkipMarkup())
            return false;
    }
}

}  // namespace clb
