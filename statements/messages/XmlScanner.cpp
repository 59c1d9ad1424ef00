#include "statements/messages/XmlScanner.h"

#include <algorithm>

namespace clb {
namespace {

constexpr std::string_view kSection = "<![CDATA[";
constexpr std::string_view kSpaces = " \t\r\n";

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

bool XmlScanner::ReadTag(XmlTag& tag)
{
    tag.begin = at_;
    const bool closes = text_.substr(at_, 2) == "</";
    const std::size_t name = at_ + (closes ? 2 : 1);
    std::size_t end = name;
    // Quoted attributes may hold ">".
    for (char quote = 0; end < text_.size() && (quote != 0 || text_[end] != '>'); ++end) {
        const char c = text_[end];
        if (quote == 0 && (c == '"' || c == '\'') && !closes)
            quote = c;
        else if (c == quote)
            quote = 0;
    }
    if (end == text_.size())
        return Fail();
    at_ = tag.end = end + 1;
    const bool empty = !closes && text_[end - 1] == '/' && end > name;
    tag.kind = closes ? XmlTag::Kind::Close : empty ? XmlTag::Kind::Empty : XmlTag::Kind::Open;
    const std::string_view inside = text_.substr(name, end - name - (empty ? 1 : 0));
    const std::string_view full = inside.substr(0, inside.find_first_of(kSpaces));
    const std::size_t colon = full.find(':');
    tag.prefix = colon == std::string_view::npos ? std::string_view() : full.substr(0, colon);
    tag.name = colon == std::string_view::npos ? full : full.substr(colon + 1);
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
