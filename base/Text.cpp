#include "base/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace clb {
namespace {

/// Returns the character at offset `at` and moves `at` past it. An invalid byte is returned as it
/// is.
std::int32_t NextCharacter(std::string_view text, std::size_t& at)
{
    utf8proc_int32_t character = 0;
    const auto used = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + at,
                                       static_cast<utf8proc_ssize_t>(text.size() - at), &character);
    if (used < 1) {
        character = static_cast<unsigned char>(text[at]);
        ++at;
        return character;
    }
    at += static_cast<std::size_t>(used);
    return character;
}

void Append(std::string& text, std::int32_t character)
{
    utf8proc_uint8_t buffer[4];
    const auto length = utf8proc_encode_char(character, buffer);
    text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
}

/// Where the next byte beyond ASCII is; the text's size if there is none. Statements have millions
/// of bytes, so eight are looked at together.
std::size_t SkipAscii(std::string_view text, std::size_t at)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    for (std::uint64_t eight = 0; at + sizeof(eight) <= text.size(); at += sizeof(eight)) {
        std::memcpy(&eight, text.data() + at, sizeof(eight));
        if ((eight & kHighBits) != 0)
            break;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
}

/// Windows-1252 from 0x80 to 0x9F. The five unused codes keep their numbers.
constexpr std::array<std::int32_t, 32> kUpperHalf = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char ToCode(std::int32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto found = std::find(kUpperHalf.begin(), kUpperHalf.end(), character);
    if (found == kUpperHalf.end())
        return '?';
    return static_cast<char>(0x80 + (found - kUpperHalf.begin()));
}

char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Removes case and accents, for comparisons.
std::string FoldedForSorting(std::string_view text)
{
    utf8proc_uint8_t* folded = nullptr;
    const auto length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                     static_cast<utf8proc_ssize_t>(text.size()), &folded,
                     static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE |
                                                    UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK));
    if (length < 0)
        return std::string(text);
    std::string result(reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length));
    std::free(folded);
    return result;
}

int CompareAsciiAlphabetical(std::string_view a, std::string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const int difference = static_cast<unsigned char>(LowerAscii(a[i])) -
                               static_cast<unsigned char>(LowerAscii(b[i]));
        if (difference != 0)
            return difference;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

}  // namespace

bool IsAscii(std::string_view text)
{
    return SkipAscii(text, 0) == text.size();
}

std::size_t Length(std::string_view text)
{
    if (IsAscii(text))
        return text.size();
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        NextCharacter(text, at);
    return count;
}

std::size_t ByteOffset(std::string_view text, std::size_t position)
{
    std::size_t at = 0;
    while (position > 0 && at < text.size()) {
        if (static_cast<unsigned char>(text[at]) < 0x80)
            ++at;
        else
            NextCharacter(text, at);
        --position;
    }
    return at;
}

std::string Left(std::string_view text, std::size_t count)
{
    return std::string(text.substr(0, ByteOffset(text, count)));
}

std::string_view TrimLeft(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view TrimRight(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text)
{
    return TrimLeft(TrimRight(text));
}

std::string Replace(std::string_view text, std::string_view what, std::string_view by)
{
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos;
         at = text.find(what, from)) {
        result.append(text, from, at - from).append(by);
        from = at + what.size();
    }
    return result.append(text.substr(from));
}

std::vector<std::string> Split(std::string_view text, char delimiter)
{
    std::vector<std::string> pieces;
    for (;;) {
        const std::size_t at = text.find(delimiter);
        pieces.emplace_back(text.substr(0, at));
        if (at == std::string_view::npos)
            return pieces;
        text.remove_prefix(at + 1);
    }
}

std::string ToUpperAscii(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
    return upper;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

int CompareAlphabetical(std::string_view a, std::string_view b)
{
    if (IsAscii(a) && IsAscii(b))
        return CompareAsciiAlphabetical(a, b);
    return FoldedForSorting(a).compare(FoldedForSorting(b));
}

bool IsValidUtf8(std::string_view bytes)
{
    const auto* data = reinterpret_cast<const utf8proc_uint8_t*>(bytes.data());
    for (std::size_t at = SkipAscii(bytes, 0); at < bytes.size(); at = SkipAscii(bytes, at)) {
        utf8proc_int32_t character = 0;
        const auto used = utf8proc_iterate(
            data + at, static_cast<utf8proc_ssize_t>(bytes.size() - at), &character);
        if (used < 1)
            return false;
        at += static_cast<std::size_t>(used);
    }
    return true;
}

std::string DecodeFile(std::string bytes)
{
    if (!IsValidUtf8(bytes))
        return FromWindows1252(bytes);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    return bytes;
}

std::string FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80)
            text.push_back(c);
        else
            Append(text, code < 0xA0 ? kUpperHalf[code - 0x80U] : std::int32_t{code});
    }
    return text;
}

std::string ToWindows1252(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        bytes.push_back(ToCode(NextCharacter(text, at)));
    return bytes;
}

}  // namespace clb
