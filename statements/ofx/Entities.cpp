#include "statements/ofx/Entities.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace clb {
namespace {

struct Named {
    std::string_view name;
    char32_t code;
};

/// In order of name, for the search.
constexpr Named kNamed[] = {
    {"AElig", 0xC6},    {"Aacute", 0xC1},  {"Acirc", 0xC2},   {"Agrave", 0xC0},  {"Aring", 0xC5},
    {"Atilde", 0xC3},   {"Auml", 0xC4},    {"Ccedil", 0xC7},  {"ETH", 0xD0},     {"Eacute", 0xC9},
    {"Ecirc", 0xCA},    {"Egrave", 0xC8},  {"Euml", 0xCB},    {"Iacute", 0xCD},  {"Icirc", 0xCE},
    {"Igrave", 0xCC},   {"Iuml", 0xCF},    {"Ntilde", 0xD1},  {"OElig", 0x152},  {"Oacute", 0xD3},
    {"Ocirc", 0xD4},    {"Ograve", 0xD2},  {"Oslash", 0xD8},  {"Otilde", 0xD5},  {"Ouml", 0xD6},
    {"Scaron", 0x160},  {"THORN", 0xDE},   {"Uacute", 0xDA},  {"Ucirc", 0xDB},   {"Ugrave", 0xD9},
    {"Uuml", 0xDC},     {"Yacute", 0xDD},  {"Yuml", 0x178},   {"aacute", 0xE1},  {"acirc", 0xE2},
    {"acute", 0xB4},    {"aelig", 0xE6},   {"agrave", 0xE0},  {"amp", 0x26},     {"apos", 0x27},
    {"aring", 0xE5},    {"atilde", 0xE3},  {"auml", 0xE4},    {"bdquo", 0x201E}, {"brvbar", 0xA6},
    {"bull", 0x2022},   {"ccedil", 0xE7},  {"cedil", 0xB8},   {"cent", 0xA2},    {"copy", 0xA9},
    {"curren", 0xA4},   {"deg", 0xB0},     {"divide", 0xF7},  {"eacute", 0xE9},  {"ecirc", 0xEA},
    {"egrave", 0xE8},   {"emsp", 0x2003},  {"ensp", 0x2002},  {"eth", 0xF0},     {"euml", 0xEB},
    {"euro", 0x20AC},   {"frac12", 0xBD},  {"frac14", 0xBC},  {"frac34", 0xBE},  {"gt", 0x3E},
    {"hellip", 0x2026}, {"iacute", 0xED},  {"icirc", 0xEE},   {"iexcl", 0xA1},   {"igrave", 0xEC},
    {"iquest", 0xBF},   {"iuml", 0xEF},    {"laquo", 0xAB},   {"ldquo", 0x201C}, {"lsquo", 0x2018},
    {"lt", 0x3C},       {"macr", 0xAF},    {"mdash", 0x2014}, {"micro", 0xB5},   {"middot", 0xB7},
    {"nbsp", 0xA0},     {"ndash", 0x2013}, {"not", 0xAC},     {"ntilde", 0xF1},  {"oacute", 0xF3},
    {"ocirc", 0xF4},    {"oelig", 0x153},  {"ograve", 0xF2},  {"ordf", 0xAA},    {"ordm", 0xBA},
    {"oslash", 0xF8},   {"otilde", 0xF5},  {"ouml", 0xF6},    {"para", 0xB6},    {"plusmn", 0xB1},
    {"pound", 0xA3},    {"quot", 0x22},    {"raquo", 0xBB},   {"rdquo", 0x201D}, {"reg", 0xAE},
    {"rsquo", 0x2019},  {"sbquo", 0x201A}, {"scaron", 0x161}, {"sect", 0xA7},    {"shy", 0xAD},
    {"sup1", 0xB9},     {"sup2", 0xB2},    {"sup3", 0xB3},    {"szlig", 0xDF},   {"thinsp", 0x2009},
    {"thorn", 0xFE},    {"times", 0xD7},   {"trade", 0x2122}, {"uacute", 0xFA},  {"ucirc", 0xFB},
    {"ugrave", 0xF9},   {"uml", 0xA8},     {"uuml", 0xFC},    {"yacute", 0xFD},  {"yen", 0xA5},
    {"yuml", 0xFF},
};
static_assert(std::is_sorted(std::begin(kNamed), std::end(kNamed),
                             [](const Named& a, const Named& b) { return a.name < b.name; }));

/// The characters 128 to 159 of Windows-1252.
constexpr char32_t kWindows[] = {0x20AC, 0xFFFD, 0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                 0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0xFFFD, 0x17D,  0xFFFD,
                                 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0xFFFD, 0x17E,  0x178};

constexpr std::size_t kLongestName = 8;
constexpr std::size_t kLongestNumber = 8;

bool IsCharacter(std::uint32_t number)
{
    return number >= 1 && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
}

char32_t CharacterOf(std::uint32_t number)
{
    if (number >= 128 && number < 160)
        return kWindows[number - 128];
    return number;
}

/// Reads "&#233;" or "&#xE9;".
Entity ReadNumber(std::string_view text)
{
    const bool hex = text.size() > 2 && (text[2] == 'x' || text[2] == 'X');
    const std::string_view digits = text.substr(hex ? 3 : 2, kLongestNumber);
    std::uint32_t number = 0;
    const auto read =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, hex ? 16 : 10);
    if (read.ec != std::errc() || !IsCharacter(number))
        return {};
    const auto end = static_cast<std::size_t>(read.ptr - text.data());
    return {CharacterOf(number), end + (end < text.size() && text[end] == ';' ? 1 : 0)};
}

Entity ReadName(std::string_view text)
{
    const std::size_t end = text.substr(0, kLongestName + 2).find(';');
    if (end == std::string_view::npos)
        return {};
    const std::string_view name = text.substr(1, end - 1);
    const auto* const found = std::lower_bound(
        std::begin(kNamed), std::end(kNamed), name,
        [](const Named& named, std::string_view wanted) { return named.name < wanted; });
    if (found == std::end(kNamed) || found->name != name)
        return {};
    return {found->code, end + 1};
}

}  // namespace

Entity ReadEntity(std::string_view text)
{
    if (text.size() < 3 || text[0] != '&')
        return {};
    return text[1] == '#' ? ReadNumber(text) : ReadName(text);
}

}  // namespace clb
