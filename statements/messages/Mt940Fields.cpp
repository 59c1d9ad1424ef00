#include "statements/messages/Mt940Fields.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::size_t kFullLine = 65;  // characters of a line of text that goes on in the next

constexpr std::array<std::string_view, 24> kTags = {
    "12",  "13",  "13C", "13D", "20",  "21", "25", "25P", "28",  "28C", "28D", "34F",
    "60F", "60M", "61",  "62F", "62M", "64", "65", "86",  "90C", "90D", "940", "NS"};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether ":20:15 ..." may be a time at a line's start rather than a field.
bool LooksLikeTime(std::string_view tag, std::string_view content)
{
    return tag.size() == 2 && tag != "61" && tag != "86" && content.size() >= 2 &&
           IsDigit(content[0]) && IsDigit(content[1]) &&
           (content.size() == 2 || !IsDigit(content[2]));
}

/// Without the control characters that transmission leaves at a line's start.
std::string_view WithoutControls(std::string_view line)
{
    while (!line.empty() && line[0] > '\0' && line[0] < ' ')
        line.remove_prefix(1);
    return line;
}

/// A line of SWIFT's envelope: blocks in braces, perhaps after the end mark of the message before.
bool IsEnvelope(std::string_view line)
{
    line = WithoutControls(line);
    return line.starts_with("{1:") || line.starts_with("{2:") || line.starts_with("{3:") ||
           line.starts_with("{4:") || line.starts_with("{5:") || line.starts_with("-}");
}

/// What follows the opening of the text block on the same line.
std::string_view AfterEnvelope(std::string_view line)
{
    const std::size_t block = line.rfind("{4:");
    return block == std::string_view::npos ? std::string_view() : line.substr(block + 3);
}

}  // namespace

std::string_view Mt940Tag(std::string_view line)
{
    if (line.size() < 4 || line[0] != ':')
        return {};
    const std::size_t end = line.substr(0, 6).find(':', 1);
    if (end == std::string_view::npos)
        return {};
    const std::string_view tag = line.substr(1, end - 1);
    // By far the most.
    if (tag == "61" || tag == "86")
        return tag;
    return std::find(kTags.begin(), kTags.end(), tag) != kTags.end() ? tag : std::string_view();
}

bool LineCutter::Next(std::string_view& line)
{
    if (at_ >= text_.size())
        return false;
    // Looked for once, however many lines end with carriage returns before it.
    if (!feed_ || *feed_ < at_)
        feed_ = std::min(text_.find('\n', at_), text_.size());
    line = text_.substr(at_, *feed_ - at_);
    line = line.substr(0, line.find('\r'));
    const std::size_t end = at_ + line.size();
    at_ = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
    at_ = std::min(at_, text_.size());
    return true;
}

/// A "-" alone on its line. In a text that goes on after it, it is part of that text.
bool Mt940Fields::EndsMessage(std::string_view line, std::size_t next) const
{
    const std::size_t last = line.find_last_not_of(" \t\x03");
    if (last != 0 || line[0] != '-')
        return false;
    if (hasClosing_)
        return true;
    LineCutter lines(text_, next);
    for (std::string_view following; lines.Next(following);)
        if (following.find_first_not_of(" \t\x03") != std::string_view::npos)
            return !Mt940Tag(following).empty() || IsEnvelope(following);
    return true;
}

/// A message begins with its reference; some banks leave that or the end mark out.
void Mt940Fields::Number(Mt940Field& field)
{
    const std::string_view tag = field.tag;
    const bool begins = tag == "940" || (tag == "20" && !justHeader_) ||
                        (tag.starts_with("25") && hasAccount_) ||
                        (tag.starts_with("60") && hasClosing_) || ended_;
    if (begins) {
        message_ += any_ ? 1 : 0;
        hasAccount_ = hasClosing_ = false;
    }
    any_ = true;
    ended_ = false;
    justHeader_ = tag == "940";
    hasAccount_ = hasAccount_ || tag.starts_with("25");
    hasClosing_ =
        hasClosing_ || tag.starts_with("62") || tag == "64" || tag == "65" || tag.starts_with("90");
    field.message = message_;
}

bool Mt940Fields::Next(Mt940Field& field)
{
    LineCutter lines(text_, at_);
    std::string_view line;
    std::string_view before;
    bool inField = false;
    std::size_t end = 0;
    std::size_t begin = at_;
    for (; lines.Next(line); begin = lines.Offset()) {
        const bool envelope = IsEnvelope(line);
        std::string_view start = WithoutControls(envelope ? AfterEnvelope(line) : line);
        const std::string_view tag = Mt940Tag(start);
        const bool isTag =
            !tag.empty() && !(inField && field.tag == "86" && Length(before) >= kFullLine &&
                              LooksLikeTime(tag, start.substr(tag.size() + 2)));
        const bool ends = envelope || EndsMessage(line, lines.Offset());
        if (inField && (isTag || ends))
            break;
        before = line;
        if (ends)
            ended_ = true;
        if (isTag) {
            inField = true;
            field.tag = tag;
            field.begin = static_cast<std::size_t>(start.data() - text_.data());
            before = start.substr(tag.size() + 2);
            Number(field);
        }
        if (inField)
            end = static_cast<std::size_t>(line.data() - text_.data()) + line.size();
    }
    const bool atEnd = begin >= text_.size();
    at_ = begin;
    if (!inField)
        return false;
    field.content =
        text_.substr(field.begin + field.tag.size() + 2, end - field.begin - field.tag.size() - 2);
    field.isLast = atEnd;
    return true;
}

}  // namespace clb
