#include "statements/source/Likeliest.h"

#include <uchardet/uchardet.h>

#include <algorithm>
#include <array>
#include <memory>

#include "base/Text.h"
#include "statements/source/Conversion.h"
#include "statements/source/Declared.h"

namespace clb {
namespace {

constexpr const char* kWestern = "WINDOWS-1252";

bool IsHigh(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}
bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// How the bytes beyond ASCII stand in the text.
struct Places {
    std::size_t all = 0;
    std::size_t beside = 0;  ///< next to another one, as in words of another script
    std::size_t dos = 0;     ///< in a word, and a letter in the code pages of DOS only
    std::size_t latin = 0;   ///< in a word, and a letter in those of Windows and ISO
};

Places PlacesOf(std::string_view bytes)
{
    Places places;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (!IsHigh(bytes[at]))
            continue;
        const char before = at > 0 ? bytes[at - 1] : ' ';
        const char after = at + 1 < bytes.size() ? bytes[at + 1] : ' ';
        const auto code = static_cast<unsigned char>(bytes[at]);
        ++places.all;
        if (IsHigh(before) || IsHigh(after))
            ++places.beside;
        if (!IsLetter(before) && !IsLetter(after))
            continue;
        const bool quotes = code >= 0x91 && code <= 0x97;  // typography at a word's end
        if (code <= 0xA5 && (!quotes || (IsLetter(before) && IsLetter(after))))
            ++places.dos;
        else if (code >= 0xC0 && code != 0xE1)
            ++places.latin;
    }
    return places;
}

std::string Detected(std::string_view bytes)
{
    constexpr std::size_t kBlock = std::size_t{1} << 20U;
    const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(),
                                                                         &uchardet_delete);
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kBlock, bytes.size())))
        if (uchardet_handle_data(detector.get(), bytes.data(), std::min(kBlock, bytes.size())) != 0)
            break;
    uchardet_data_end(detector.get());
    return ToUpperAscii(uchardet_get_charset(detector.get()));
}

template <std::size_t Count>
bool IsOneOf(const std::string& name, const std::array<const char*, Count>& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&name](const char* known) { return name == known; });
}

/// Encodings in which the words of another script consist of bytes beyond ASCII.
bool IsOfOtherScript(const std::string& name)
{
    static constexpr std::array<const char*, 19> kNames = {
        "WINDOWS-1251", "KOI8-R",       "KOI8-U",       "IBM866",     "IBM855",
        "ISO-8859-5",   "MAC-CYRILLIC", "WINDOWS-1253", "ISO-8859-7", "WINDOWS-1255",
        "ISO-8859-8",   "WINDOWS-1256", "ISO-8859-6",   "TIS-620",    "ISO-8859-11",
        "CP866",        "CP855",        "CP1251",       "CP737"};
    return IsOneOf(name, kNames);
}

/// Encodings of Latin script with other letters than the Western ones.
bool IsOtherLatin(const std::string& name)
{
    static constexpr std::array<const char*, 6> kNames = {
        "WINDOWS-1250", "ISO-8859-2", "IBM852", "WINDOWS-1254", "ISO-8859-9", "WINDOWS-1257"};
    return IsOneOf(name, kNames);
}

bool IsValid(std::string_view bytes, const std::string& name)
{
    const auto converted = Convert(bytes, name);
    return converted && converted->invalid == 0;
}

/// Most characters of two bytes have both beyond ASCII, but for Japanese ones in Shift-JIS.
bool LooksWide(const Places& places, const std::string& name)
{
    return places.all >= 4 && places.beside * 10 >= places.all * (name == "CP932" ? 4 : 8);
}

std::string KnownName(const std::string& detected)
{
    if (detected == "SHIFT_JIS")
        return "CP932";
    if (detected == "BIG5")
        return "BIG5-HKSCS";
    if (detected == "MAC-CYRILLIC")
        return "MACINTOSH-CYRILLIC";
    return detected;
}

}  // namespace

std::string LikeliestEncoding(std::string_view bytes)
{
    const Places places = PlacesOf(bytes);
    const std::string name = KnownName(Detected(bytes));
    if (HasWideCharacters(name) && LooksWide(places, name) && IsValid(bytes, name))
        return name;
    if (IsOfOtherScript(name) && places.beside * 2 > places.all && IsValid(bytes, name))
        return name;
    if (places.dos > places.latin)
        return name == "IBM852" ? "CP852" : "CP850";
    if (IsOtherLatin(name) && IsValid(bytes, name))
        return name;
    return kWestern;
}

}  // namespace clb
