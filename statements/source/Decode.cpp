#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"
#include "statements/form/StatementReader.h"
#include "statements/source/Conversion.h"
#include "statements/source/Declared.h"
#include "statements/source/Likeliest.h"
#include "statements/source/SourceFile.h"

namespace clb {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::size_t kLooked = 65536;

/// A kind of file that is not a text, by its first bytes.
std::string BinaryKind(std::string_view bytes)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 9> kKinds = {{
        {"%PDF-", "a PDF document"},
        {"\xD0\xCF\x11\xE0", "a document of an office program"},
        {"\x89PNG", "a picture"},
        {"\xFF\xD8\xFF", "a picture"},
        {"GIF8", "a picture"},
        {"SQLite format 3", "a database"},
        {"Rar!", "an archive of a kind that cannot be read"},
        {"7z\xBC\xAF", "an archive of a kind that cannot be read"},
        {"{\\rtf", "a document of an office program"},
    }};
    for (const auto& [start, kind] : kKinds)
        if (bytes.starts_with(start))
            return std::string(kind);
    return {};
}

/// Whether so many bytes are control characters that it is not a text. Some banks leave single ones
/// of the transmission.
bool HasManyControls(std::string_view bytes)
{
    const std::string_view head = bytes.substr(0, kLooked);
    const auto controls = std::count_if(head.begin(), head.end(), [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code < 0x20 && code != '\t' && code != '\r' && code != '\n' && code != '\f';
    });
    return controls > 8 && static_cast<std::size_t>(controls) * 50 > head.size();
}

/// UTF-16 without a mark: every other byte of the ASCII characters in it is zero.
std::string Utf16ByZeros(std::string_view bytes)
{
    const std::string_view head = bytes.substr(0, kLooked);
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < head.size(); ++at)
        if (head[at] == '\0')
            ++zeros[at % 2];
    const std::size_t half = head.size() / 2;
    if (half < 2)
        return {};
    if (zeros[1] * 4 > half && zeros[0] * 20 < zeros[1])
        return "UTF-16LE";
    return zeros[0] * 4 > half && zeros[1] * 20 < zeros[0] ? "UTF-16BE" : "";
}

std::string MarkedEncoding(std::string_view bytes)
{
    if (bytes.starts_with(kMark))
        return "UTF-8";
    if (bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4)))
        return "UTF-32LE";
    if (bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4)))
        return "UTF-32BE";
    if (bytes.starts_with("\xFF\xFE"))
        return "UTF-16LE";
    return bytes.starts_with("\xFE\xFF") ? "UTF-16BE" : "";
}

/// The encoding that is meant by a name: programs of Windows write "ISO-8859-1" for their own.
std::string Meant(const std::string& name)
{
    const std::string upper = ToUpperAscii(name);
    for (const char* const western :
         {"ISO-8859-1", "ISO8859-1", "ISO_8859-1", "LATIN1", "LATIN-1", "US-ASCII", "USASCII",
          "ASCII", "1252", "CP1252", "WINDOWS1252"})
        if (upper == western)
            return "WINDOWS-1252";
    return name;
}

/// The text in an encoding. The codes that Windows-1252 leaves unused keep their numbers.
std::optional<Converted> TextIn(std::string_view bytes, const std::string& name)
{
    const std::string meant = Meant(name);
    if (meant == "WINDOWS-1252")
        return Converted{FromWindows1252(bytes), 0};
    return Convert(bytes, meant);
}

/// The declared encoding's text if it is valid in it.
std::optional<std::string> DeclaredText(std::string_view bytes, const std::string& declared)
{
    if (declared.empty() || declared.starts_with("UTF-16") || declared.starts_with("UTF-32"))
        return {};
    auto converted = TextIn(bytes, declared);
    if (!converted || converted->invalid != 0)
        return {};
    return std::move(converted->text);
}

/// A text in UTF-8 in which some characters are cut, as by a field's width.
std::optional<std::string> NearlyUtf8(std::string_view bytes)
{
    auto converted = Convert(bytes, "UTF-8");
    const auto leads = std::count_if(bytes.begin(), bytes.end(),
                                     [](char c) { return static_cast<unsigned char>(c) >= 0xC2; });
    const auto wide = static_cast<std::size_t>(leads);
    if (!converted || wide < 3 * converted->invalid)
        return {};
    return std::move(converted->text);
}

std::string WithoutMark(std::string text)
{
    if (text.starts_with(kMark))
        text.erase(0, kMark.size());
    return text;
}

std::string TextOf(std::string bytes)
{
    const std::string declared = DeclaredEncoding(bytes);
    if (HasWideCharacters(declared))
        if (auto text = DeclaredText(bytes, declared))
            return *text;
    if (IsValidUtf8(bytes))
        return bytes;
    if (auto text = NearlyUtf8(bytes))
        return *text;
    if (auto text = DeclaredText(bytes, declared))
        return *text;
    const auto converted = TextIn(bytes, LikeliestEncoding(bytes));
    return converted ? converted->text : FromWindows1252(bytes);
}

}  // namespace

std::string DecodeStatement(std::string bytes, const std::optional<std::string>& encoding)
{
    if (const std::string kind = BinaryKind(bytes); !kind.empty())
        throw NotAStatement("The file is " + kind + ".");
    std::string known = MarkedEncoding(bytes);
    if (encoding) {
        const auto converted = TextIn(bytes, *encoding);
        if (!converted)
            throw NotAStatement("The encoding " + *encoding + " is not known.");
        return WithoutMark(converted->text);
    }
    if (known.empty())
        known = Utf16ByZeros(bytes);
    if (known.starts_with("UTF-16") || known.starts_with("UTF-32"))
        return WithoutMark(Convert(bytes, known).value().text);
    if (HasManyControls(bytes))
        throw NotAStatement("The file is not a text.");
    if (known == "UTF-8")
        return WithoutMark(Convert(bytes, known).value().text);
    return TextOf(std::move(bytes));
}

}  // namespace clb
