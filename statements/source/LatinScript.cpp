#include "statements/source/LatinScript.h"

#include <algorithm>

#include "statements/source/Conversion.h"

namespace clb {
namespace {

constexpr std::string_view kWestern =
    "äöüÄÖÜßáàâãåæÁÀÂÃÅÆçÇéèêëÉÈÊËíìîïÍÌÎÏñÑóòôõøœÓÒÔÕØŒúùûÚÙÛýÿÝðþÐÞ";
constexpr std::string_view kCentral =
    "ąćęłńóśźżĄĆĘŁŃÓŚŹŻáčďéěíňřšťúůýžÁČĎÉĚÍŇŘŠŤÚŮÝŽäöüßÄÖÜőűŐŰľĺŕôĽĹŔÔâăîëçşţșțÂĂÎȘȚŞŢđĐ";
constexpr std::string_view kTurkish = "ğışçöüĞİŞÇÖÜâîûÂÎÛäßéÉ";
constexpr std::string_view kBaltic = "ąčęėįšųūžĄČĘĖĮŠŲŪŽāēģīķļņĀĒĢĪĶĻŅõäöüÕÄÖÜßéÉó";
/// Next to a word.
constexpr std::string_view kBesideWords = "“”„‘’‚–—…€£§°²³ªº«»®©™·";

struct CodePage {
    const char* name;
    std::string_view letters;
    bool ifDetected;  ///< only if detection says so
};
/// The first of equals is taken.
constexpr std::array<CodePage, 10> kCodePages = {{{"WINDOWS-1252", kWestern, false},
                                                  {"CP850", kWestern, false},
                                                  {"WINDOWS-1250", kCentral, false},
                                                  {"ISO-8859-2", kCentral, false},
                                                  {"CP852", kCentral, false},
                                                  {"ISO-8859-16", kCentral, true},
                                                  {"WINDOWS-1254", kTurkish, true},
                                                  {"ISO-8859-9", kTurkish, true},
                                                  {"WINDOWS-1257", kBaltic, true},
                                                  {"ISO-8859-13", kBaltic, true}}};

bool IsHigh(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}
bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || IsHigh(c);
}

const CodePage* Known(const std::string& name)
{
    const auto* const found =
        std::find_if(kCodePages.begin(), kCodePages.end(),
                     [&name](const CodePage& page) { return name == page.name; });
    return found == kCodePages.end() ? nullptr : found;
}

}  // namespace

HighBytes::HighBytes(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (!IsHigh(bytes[at]))
            continue;
        const char before = at > 0 ? bytes[at - 1] : ' ';
        const char after = at + 1 < bytes.size() ? bytes[at + 1] : ' ';
        ++all_;
        if (IsHigh(before) || IsHigh(after))
            ++beside_;
        const std::size_t code = static_cast<unsigned char>(bytes[at]) - 0x80U;
        if (IsLetter(before) && IsLetter(after))
            ++inside_[code];
        else if (IsLetter(before) || IsLetter(after))
            ++edge_[code];
    }
}

std::size_t HighBytes::Implausible(const std::string& codePage) const
{
    const CodePage* page = Known(codePage);
    std::size_t count = 0;
    for (std::size_t code = 0; page && code < inside_.size(); ++code) {
        if (inside_[code] + edge_[code] == 0)
            continue;
        const auto letter = Convert(std::string(1, static_cast<char>(code + 0x80)), page->name);
        if (letter && letter->invalid == 0 &&
            page->letters.find(letter->text) != std::string_view::npos)
            continue;
        const bool valid = letter && letter->invalid == 0;
        count += valid && letter->text == "’" ? 0 : inside_[code];
        if (!valid || kBesideWords.find(letter->text) == std::string_view::npos)
            count += edge_[code];
    }
    return count;
}

std::string LatinCodePage(const HighBytes& bytes, const std::string& detected)
{
    std::string best = kCodePages[0].name;
    std::size_t least = bytes.Implausible(best);
    for (const CodePage& page : kCodePages) {
        const bool isDetected = detected == page.name;
        if (page.ifDetected && !isDetected)
            continue;
        const std::size_t count = bytes.Implausible(page.name);
        if (count < least || (count == least && isDetected)) {
            least = count;
            best = page.name;
        }
    }
    return best;
}

}  // namespace clb
