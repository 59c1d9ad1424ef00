#include "statements/messages/RowText.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::size_t kNameLength = 100;
constexpr std::size_t kSearched = 4096;  // longer texts are not searched for repeated parts

bool IsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\0';
}
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool IsUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}
bool IsOfWord(char c)
{
    return IsDigit(c) || IsUpper(c) || (c >= 'a' && c <= 'z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

std::string Squeezed(std::string_view text)
{
    std::string squeezed(text);
    std::size_t length = 0;
    bool space = true;  // spaces at the start are left out
    for (const char c : text) {
        const bool isSpace = IsSpace(c);
        if (!isSpace || !space)
            squeezed[length++] = isSpace ? ' ' : c;
        space = isSpace;
    }
    squeezed.resize(length > 0 && space ? length - 1 : length);
    return squeezed;
}

bool IsNoReference(std::string_view text)
{
    static constexpr std::array<std::string_view, 10> kNone = {
        "NOTPROVIDED", "NOT PROVIDED", "NONREF",       "NOREF",         "NON REF",
        "NONE",        "N/A",          "NOTAVAILABLE", "NOT AVAILABLE", "UNKNOWN"};
    constexpr std::size_t kLongestNone = std::string_view("NOT AVAILABLE").size();
    if (text.find_first_not_of("0-. ") == std::string_view::npos)
        return true;
    return text.size() <= kLongestNone &&
           std::find(kNone.begin(), kNone.end(), ToUpperAscii(text)) != kNone.end();
}

bool IsIban(std::string_view text)
{
    if (text.size() < 15 || text.size() > 34 || !IsUpper(text[0]) || !IsUpper(text[1]) ||
        !IsDigit(text[2]) || !IsDigit(text[3]))
        return false;
    unsigned rest = 0;
    const auto take = [&rest](char c) {
        if (IsDigit(c))
            rest = (rest * 10 + static_cast<unsigned>(c - '0')) % 97;
        else if (IsUpper(c))
            rest = (rest * 100 + static_cast<unsigned>(c - 'A') + 10) % 97;
        else
            rest = 97;
        return rest < 97;
    };
    const std::string_view head = text.substr(0, 4);
    const std::string_view tail = text.substr(4);
    return std::all_of(tail.begin(), tail.end(), take) &&
           std::all_of(head.begin(), head.end(), take) && rest == 1;
}

bool IsIdentifying(std::string_view reference, std::size_t length)
{
    // A text that means "no reference" has no digit, or zeros only.
    return reference.size() >= length && std::any_of(reference.begin(), reference.end(), IsDigit) &&
           reference.find_first_not_of("0-. ") != std::string_view::npos && !IsIban(reference);
}

/// Whether the text has the part as words of its own.
bool RowText::Has(const std::string& part) const
{
    if (text_.size() >= kSearched)
        return false;
    for (std::size_t at = text_.find(part); at != std::string::npos;
         at = text_.find(part, at + 1)) {
        const std::size_t end = at + part.size();
        if ((at == 0 || !IsOfWord(text_[at - 1])) && (end == text_.size() || !IsOfWord(text_[end])))
            return true;
    }
    return false;
}

void RowText::Append(const std::string& part)
{
    if (!text_.empty())
        text_ += "; ";
    text_ += part;
}

void RowText::Add(std::string_view part)
{
    const std::string squeezed = Squeezed(part);
    if (!squeezed.empty() && !Has(squeezed))
        Append(squeezed);
}

void RowText::Add(std::string_view label, std::string_view value)
{
    const std::string squeezed = Squeezed(value);
    if (!squeezed.empty() && !IsNoReference(squeezed) && !Has(squeezed))
        Append(std::string(label) + ' ' + squeezed);
}

std::string FirstWords(const std::string& text)
{
    if (Length(text) <= kNameLength)
        return text;
    const std::string first = Left(text, kNameLength + 1);
    const std::size_t space = first.rfind(' ');
    return space == std::string::npos || space < kNameLength / 2 ? Left(text, kNameLength)
                                                                 : first.substr(0, space);
}

}  // namespace clb
