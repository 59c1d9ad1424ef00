#include "import/FileLines.h"

#include <algorithm>

#include "base/Text.h"

namespace clb {

std::string_view FileLines::ReadLine()
{
    const std::string_view line = ReadTo(text_.find('\r', at_));
    SkipLineEnd();
    return line;
}

std::string_view FileLines::ReadItem()
{
    at_ = std::min(text_.find_first_not_of(' ', at_), text_.size());
    const bool quoted = !AtEnd() && text_[at_] == '"';
    const std::string_view item =
        quoted ? ReadQuoted() : TrimRight(ReadTo(text_.find_first_of(",\r", at_)));
    if (!AtEnd() && text_[at_] == ',')
        ++at_;
    else
        SkipLineEnd();
    return item;
}

std::string_view FileLines::ReadTo(std::size_t end)
{
    const std::string_view piece = text_.substr(at_, end - at_);
    at_ += piece.size();
    return piece;
}

/// Stops at the delimiter after the second quote.
std::string_view FileLines::ReadQuoted()
{
    ++at_;
    const std::string_view item = ReadTo(text_.find('"', at_));
    at_ = std::min(text_.find_first_of(",\r", at_), text_.size());
    return item;
}

void FileLines::SkipLineEnd()
{
    if (AtEnd() || text_[at_] != '\r')
        return;
    ++at_;
    if (!AtEnd() && text_[at_] == '\n')
        ++at_;
}

}  // namespace clb
