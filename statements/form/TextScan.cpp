#include "statements/form/TextScan.h"

namespace clb {
namespace {

std::size_t LengthByLead(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Letters of Latin scripts from U+00C0 to U+017F without their accents; '?' for others.
constexpr std::string_view kPlain =
    "aaaaaaaceeeeiiiidnooooo?ouuuuytsaaaaaaaceeeeiiiidnooooo?ouuuuyty"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
    "lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

char32_t Small(char32_t code)
{
    if (code >= U'A' && code <= U'Z')
        return code + 0x20;
    if (code >= 0x410 && code <= 0x42F)
        return code + 0x20;
    if (code >= 0xC0 && code < 0xC0 + kPlain.size())
        return static_cast<unsigned char>(kPlain[code - 0xC0]);
    return code;
}

}  // namespace

ScannedChar FirstChar(std::string_view text)
{
    if (text.empty())
        return {};
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthByLead(lead);
    if (length == 1)
        return {lead, 1};
    if (length == 0 || length > text.size())
        return {U'\uFFFD', 1};
    char32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80U)
            return {U'\uFFFD', 1};
        code = code << 6U | (next & 0x3FU);
    }
    return {code, length};
}

bool IsSpace(char32_t code)
{
    return code <= 0x20 || code == 0xA0 || code == 0x1680 || (code >= 0x2000 && code <= 0x200F) ||
           (code >= 0x2028 && code <= 0x202F) || (code >= 0x205F && code <= 0x206F) ||
           code == 0x061C || code == 0x3000 || code == 0xFEFF;
}

bool IsDash(char32_t code)
{
    return code == U'-' || (code >= 0x2010 && code <= 0x2015) || code == 0x2212 || code == 0xFE63 ||
           code == 0xFF0D;
}

bool IsLetter(char32_t code)
{
    if (code < 0x80)
        return IsAsciiLetter(code);
    if (code < 0xC0)
        return code == 0xAA || code == 0xB5 || code == 0xBA;
    return !IsSpace(code) && code != 0xD7 && code != 0xF7 && code != 0xFFFD &&
           !(code >= 0x2000 && code <= 0x2BFF) && !(code >= 0x3001 && code <= 0x3004) &&
           !(code >= 0x3008 && code <= 0x3020) && !(code >= 0xFE30 && code <= 0xFE6F) &&
           !(code >= 0xFF01 && code <= 0xFF20);
}

std::string_view TrimSpaces(std::string_view text)
{
    while (!text.empty()) {
        const ScannedChar first = FirstChar(text);
        if (!IsSpace(first.code))
            break;
        text.remove_prefix(first.size);
    }
    while (!text.empty()) {
        std::size_t last = text.size() - 1;
        while (last > 0 && text.size() - last < 4 &&
               (static_cast<unsigned char>(text[last]) & 0xC0U) == 0x80U)
            --last;
        const ScannedChar end = FirstChar(text.substr(last));
        if (last + end.size != text.size() || !IsSpace(end.code))
            break;
        text.remove_suffix(end.size);
    }
    return text;
}

std::string FoldText(std::string_view text)
{
    std::string folded;
    while (!text.empty()) {
        const ScannedChar next = FirstChar(text);
        const char32_t small = Small(next.code);
        if (small < 0x80)
            folded += static_cast<char>(small);
        else if (small >= 0x430 && small <= 0x44F) {
            folded += static_cast<char>(0xC0U | (small >> 6U));
            folded += static_cast<char>(0x80U | (small & 0x3FU));
        } else
            folded += text.substr(0, next.size);
        text.remove_prefix(next.size);
    }
    return folded;
}

}  // namespace clb
