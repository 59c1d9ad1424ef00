#include "statements/kinds/ForeignFile.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "base/Text.h"
#include "statements/form/TextScan.h"

namespace clb {
namespace {

/// Beginnings are looked for in so many bytes.
constexpr std::size_t kSearched = 4096;

constexpr std::string_view kInstead =
    " Ask the bank for the statement as OFX, QIF, CSV, camt or MT940.";
constexpr std::string_view kTableInstead = " Save the table in it as CSV.";

struct Signature {
    std::string_view bytes;
    std::string_view what;
    std::string_view instead;
};

constexpr Signature kSignatures[] = {
    {"%PDF-", "a PDF document", kInstead},
    {"%!PS", "a PostScript document", kInstead},
    {"{\\rtf", "a document of a word processor (RTF)", kInstead},
    {"SQLite format 3", "a database (SQLite)", ""},
    {"PK\x03\x04", "a zip archive or a spreadsheet", kTableInstead},
    {"\xD0\xCF\x11\xE0", "a spreadsheet or document of an office program", kTableInstead},
    {"\x89PNG", "a picture (PNG)", kInstead},
    {"\xFF\xD8\xFF", "a picture (JPEG)", kInstead},
    {"GIF8", "a picture (GIF)", kInstead},
    {"II*", "a picture (TIFF)", kInstead},
    {std::string_view("MM\0*", 4), "a picture (TIFF)", kInstead},
    {"7z\xBC\xAF", "an archive (7z)", " Unpack it first."},
    {"Rar!", "an archive (RAR)", " Unpack it first."},
    {"\x7F"
     "ELF",
     "a program", ""},
    {"BEGIN:V", "a calendar or address book", ""},
    {"-----BEGIN", "encrypted or signed", " Decrypt it first."},
};

std::string Sentence(std::string_view what, std::string_view instead)
{
    return "The file is " + std::string(what) + "." + std::string(instead);
}

bool Holds(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

/// The name of the first element of XML or HTML; empty if there is none.
std::string FirstElement(std::string_view text)
{
    for (std::size_t at = text.find('<'); at != std::string_view::npos;
         at = text.find('<', at + 1)) {
        std::size_t end = at + 1;
        while (end < text.size() && !Holds(" \t\r\n/>", text.substr(end, 1)))
            ++end;
        const std::string_view name = text.substr(at + 1, end - at - 1);
        if (!name.empty() && IsAsciiLetter(static_cast<unsigned char>(name.front())))
            return std::string(name);
    }
    return {};
}

bool IsWebPage(const std::string& upper, const std::string& element)
{
    if (Holds(upper, "<!DOCTYPE HTML"))
        return true;
    const std::string name = ToUpperAscii(element);
    constexpr std::string_view kElements[] = {"HTML",  "HEAD",   "BODY",  "TABLE",  "META", "DIV",
                                              "STYLE", "SCRIPT", "TITLE", "CENTER", "P",    "SPAN"};
    return std::any_of(std::begin(kElements), std::end(kElements),
                       [&name](std::string_view known) { return known == name; });
}

/// A text that begins with '<'.
std::string DescribeMarkup(std::string_view text)
{
    const std::string upper = ToUpperAscii(text);
    const std::string element = FirstElement(text);
    if (Holds(upper, "EXCEL.SHEET") || Holds(upper, "OFFICE:SPREADSHEET"))
        return Sentence("a spreadsheet (XML)", kTableInstead);
    if (IsWebPage(upper, element))
        return Sentence("a web page (HTML)",
                        " If it is a table of transactions, open it in a spreadsheet and save it "
                        "as CSV.");
    if (Holds(upper, "PAIN.00"))
        return Sentence("a list of payments for a bank (pain)", kInstead);
    if (ToUpperAscii(element) == "SVG")
        return Sentence("a picture (SVG)", kInstead);
    if (upper.starts_with("<?XML"))
        return "The file is XML with the element \"" + Left(element, 40) +
               "\", which is no known kind of statement." + std::string(kInstead);
    return {};
}

/// A text that begins as JSON does: a brace or bracket, then a value or its end.
bool IsJson(std::string_view text)
{
    const bool object = text.starts_with('{');
    if (!object && !text.starts_with('['))
        return false;
    const std::string_view inside = TrimSpaces(text.substr(1));
    if (inside.empty())
        return true;
    return object ? Holds("\"}", inside.substr(0, 1))
                  : Holds("{[]\"-0123456789", inside.substr(0, 1));
}

}  // namespace

std::string DescribeForeignFile(std::string_view text)
{
    const std::string_view start = TrimSpaces(text.substr(0, kSearched));
    if (start.empty())
        return text.size() <= kSearched ? "The file is empty." : "";
    for (const Signature& signature : kSignatures)
        if (start.starts_with(signature.bytes))
            return Sentence(signature.what, signature.instead);
    if (start.starts_with('<'))
        return DescribeMarkup(start);
    if (IsJson(start))
        return Sentence("JSON data", kInstead);
    if (Holds(text.substr(0, kSearched), std::string_view("\0", 1)))
        return "The file is not a text.";
    return {};
}

}  // namespace clb
