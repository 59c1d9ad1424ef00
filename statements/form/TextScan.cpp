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
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size();) {
        const ScannedChar next = FirstChar(text.substr(at));
        at += next.size;
        if (!IsSpace(next.code))
            end = at;
    }
    return text.substr(0, end);
}

}  // namespace clb
