#include "import/StatementScan.h"

#include <string>

#include "base/Text.h"

namespace clb::statement_scan {
namespace {

/// A value ends before the next "<" or carriage return. The carriage return is searched only before
/// the "<", because a file may have no carriage return at all.
std::string_view UpToValueEnd(std::string_view rest)
{
    rest = rest.substr(0, rest.find('<'));
    return rest.substr(0, rest.find('\r'));
}

}  // namespace

std::size_t Find(std::string_view text, std::string_view what, std::size_t from)
{
    return from < text.size() ? text.find(what, from) : kNone;
}

std::string_view Value(std::string_view text, std::string_view tag, std::size_t from)
{
    const std::size_t found = Find(text, tag, from);
    if (found == kNone)
        return {};
    return Trim(UpToValueEnd(text.substr(found + tag.size())));
}

std::string_view Block(std::string_view text, std::string_view name, std::size_t& from)
{
    const std::string open = "<" + std::string(name) + ">";
    const std::size_t found = Find(text, open, from);
    if (found == kNone)
        return {};
    const std::size_t start = found + open.size();
    const std::string close = "</" + std::string(name) + ">";
    const std::size_t end = Find(text, close, start);
    if (end == kNone)
        return {};
    from = end + close.size();
    return text.substr(start, end - start);
}

}  // namespace clb::statement_scan
