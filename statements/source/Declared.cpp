#include "statements/source/Declared.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"

namespace clb {
namespace {

constexpr std::size_t kLooked = 4096;
constexpr std::string_view kSpaces = " \t\r\n";

std::string_view WordAfter(std::string_view text, std::string_view before)
{
    const std::size_t at = text.find(before);
    if (at == std::string_view::npos)
        return {};
    text.remove_prefix(at + before.size());
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text.substr(0, text.find_first_of(" \t\r\n<"));
}

std::string OfXml(std::string_view head)
{
    const std::string_view declaration = head.substr(0, head.find("?>"));
    const std::size_t at = declaration.find("encoding");
    if (at == std::string_view::npos)
        return {};
    const std::size_t open = declaration.find_first_of("\"'", at);
    if (open == std::string_view::npos)
        return {};
    const std::size_t close = declaration.find(declaration[open], open + 1);
    return std::string(declaration.substr(open + 1, close - open - 1));
}

/// "ENCODING:USASCII" leaves it to "CHARSET:1252".
std::string OfOfx(std::string_view head)
{
    const std::string encoding = ToUpperAscii(WordAfter(head, "ENCODING:"));
    if (encoding == "UTF-8" || encoding == "UTF8")
        return "UTF-8";
    return std::string(WordAfter(head, "CHARSET:"));
}

/// Names that banks write for encodings that the system knows by another one.
std::string SystemName(const std::string& name)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 17> kNames = {{
        {"1250", "WINDOWS-1250"},
        {"1251", "WINDOWS-1251"},
        {"1252", "WINDOWS-1252"},
        {"1253", "WINDOWS-1253"},
        {"1254", "WINDOWS-1254"},
        {"850", "CP850"},
        {"932", "CP932"},
        {"936", "GB18030"},
        {"949", "UHC"},
        {"950", "BIG5"},
        {"8859-1", "ISO-8859-1"},
        {"8859-2", "ISO-8859-2"},
        {"8859-15", "ISO-8859-15"},
        {"SHIFT_JIS", "CP932"},
        {"GB2312", "GB18030"},
        {"GBK", "GB18030"},
        {"UTF8", "UTF-8"},
    }};
    const std::string upper = ToUpperAscii(name);
    const auto found = std::find_if(kNames.begin(), kNames.end(),
                                    [&upper](const auto& known) { return known.first == upper; });
    return found != kNames.end() ? std::string(found->second) : upper;
}

}  // namespace

std::string DeclaredEncoding(std::string_view bytes)
{
    std::string_view head = bytes.substr(0, kLooked);
    head.remove_prefix(std::min(head.find_first_not_of(kSpaces), head.size()));
    std::string name = SystemName(head.starts_with("<?xml") ? OfXml(head) : OfOfx(head));
    if (name == "NONE" || name == "UNICODE" || name.size() > 40)
        return {};
    return name;
}

bool HasWideCharacters(const std::string& encoding)
{
    static constexpr std::array<std::string_view, 12> kWide = {
        "GB18030", "GBK",    "BIG5",   "BIG5-HKSCS",  "CP932",       "UHC",
        "EUC-KR",  "EUC-JP", "EUC-TW", "ISO-2022-JP", "ISO-2022-KR", "HZ"};
    return std::find(kWide.begin(), kWide.end(), encoding) != kWide.end();
}

}  // namespace clb
