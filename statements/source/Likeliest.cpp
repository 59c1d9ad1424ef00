#include "statements/source/Likeliest.h"

#include <uchardet/uchardet.h>

#include <algorithm>
#include <array>
#include <memory>

#include "base/Text.h"
#include "statements/source/Conversion.h"
#include "statements/source/Declared.h"
#include "statements/source/LatinScript.h"

namespace clb {
namespace {

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

bool IsValid(std::string_view bytes, const std::string& name)
{
    const auto converted = Convert(bytes, name);
    return converted && converted->invalid == 0;
}

/// Most characters of two bytes have both beyond ASCII, but for Japanese ones in Shift-JIS.
bool LooksWide(const HighBytes& high, const std::string& name)
{
    return high.All() >= 4 && high.Beside() * 10 >= high.All() * (name == "CP932" ? 4 : 8);
}

std::string KnownName(const std::string& detected)
{
    if (detected == "SHIFT_JIS")
        return "CP932";
    if (detected == "BIG5")
        return "BIG5-HKSCS";
    if (detected == "MAC-CYRILLIC")
        return "MACINTOSH-CYRILLIC";
    if (detected == "IBM852")
        return "CP852";
    return detected;
}

}  // namespace

std::string LikeliestEncoding(std::string_view bytes)
{
    const HighBytes high(bytes);
    std::string name = KnownName(Detected(bytes));
    if (HasWideCharacters(name) && LooksWide(high, name) && IsValid(bytes, name))
        return name;
    if (IsOfOtherScript(name) && high.Beside() * 2 > high.All() && IsValid(bytes, name))
        return name;
    return LatinCodePage(high, name);
}

}  // namespace clb
