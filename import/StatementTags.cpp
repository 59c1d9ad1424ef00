#include "base/RuntimeError.h"
#include "base/Text.h"
#include "import/StatementScan.h"
#include "import/modImport.h"

namespace clb::statement_tags {
namespace {

/// Byte offset of a 1-based character position. Throws RuntimeError for a position below 1.
std::size_t OffsetOf(std::int32_t pos, std::string_view text)
{
    if (pos < 1)
        throw RuntimeError(errors::InvalidCall, "Invalid procedure call or argument");
    return ByteOffset(text, static_cast<std::size_t>(pos) - 1);
}

/// Moves pos by the number of characters between two byte offsets.
void Advance(std::int32_t& pos, std::string_view text, std::size_t from, std::size_t to)
{
    pos += static_cast<std::int32_t>(Length(text.substr(from, to - from)));
}

}  // namespace

bool FindTag(std::int32_t& pos, std::string_view text, std::string_view what)
{
    const std::size_t from = OffsetOf(pos, text);
    const std::size_t found = statement_scan::Find(text, what, from);
    if (found == statement_scan::kNone)
        return false;
    Advance(pos, text, from, found);
    return true;
}

std::string GetTagValue(std::int32_t pos, std::string_view text, std::string_view tag)
{
    return std::string(statement_scan::Value(text, tag, OffsetOf(pos, text)));
}

std::string GetTagBlock(std::int32_t& pos, std::string_view text, std::string_view name)
{
    const std::size_t from = OffsetOf(pos, text);
    std::size_t to = from;
    const std::string_view block = statement_scan::Block(text, name, to);
    Advance(pos, text, from, to);
    return std::string(block);
}

}  // namespace clb::statement_tags
