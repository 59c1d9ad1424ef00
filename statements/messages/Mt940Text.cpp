#include "statements/messages/Mt940Text.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "statements/messages/Mt940Fields.h"
#include "statements/messages/Mt940Subfields.h"
#include "statements/messages/RowText.h"

namespace clb {
namespace {

/// Whether a code between slashes is broken over two lines.
bool BreaksACode(std::string_view line, std::string_view next)
{
    const std::size_t slash = line.rfind('/');
    if (slash == std::string_view::npos || line.size() - slash > 5)
        return false;
    const std::size_t end = next.substr(0, 6).find('/');
    return end != std::string_view::npos && slash + 1 < line.size() &&
           IsCode(std::string(line.substr(slash + 1)) + std::string(next.substr(0, end)));
}

using Lines = std::vector<Mt940TextLine>;

/// The lines as one text from this one on. Words are kept apart unless `glues` says that a line is
/// continued.
template <typename Glues>
std::string Joined(const Lines& lines, std::size_t from, const Glues& glues)
{
    std::string joined;
    for (std::size_t at = from; at < lines.size(); ++at) {
        joined += lines[at].text;
        if (at + 1 < lines.size() && !lines[at].isFull &&
            !glues(lines[at].text, lines[at + 1].text))
            joined += ' ';
    }
    return joined;
}

bool HasLetter(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               static_cast<unsigned char>(c) >= 0x80;
    });
}

/// Whether a word at a text's start is an account number before the other party's name. The check
/// digits do not matter here.
bool IsAccountNumber(std::string_view word)
{
    const bool iban =
        word.size() >= 15 && word[0] >= 'A' && word[0] <= 'Z' && word[1] >= 'A' && word[1] <= 'Z';
    const std::string_view digits = word.substr(iban ? 2 : 0);
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    return word.size() >= 9 && std::all_of(digits.begin(), digits.begin() + 2, isDigit) &&
           (iban || std::all_of(digits.begin(), digits.end(), isDigit));
}

/// The name in a text of labels, as Dutch banks write it: "IBAN: ... NAAM: ... OMSCHRIJVING: ...".
/// Empty if the text has no such label.
std::string LabelledName(const std::string& text)
{
    static constexpr std::array<std::string_view, 8> kLabels = {
        "OMSCHRIJVING:", "KENMERK:", "MACHTIGING:",     "INCASSANT:",
        "IBAN:",         "BIC:",     "BETALINGSKENM.:", "EREF:"};
    constexpr std::string_view kName = "NAAM: ";
    const std::string upper = ToUpperAscii(text);
    std::size_t begin = upper.find(kName);
    if (begin == std::string::npos || (begin > 0 && text[begin - 1] != ' '))
        return {};
    begin += kName.size();
    std::size_t end = upper.size();
    for (const std::string_view label : kLabels)
        end = std::min(end, upper.find(label, begin));
    return Squeezed(text.substr(begin, end - begin));
}

/// A text without any layout. A first line of its own is the name.
Mt940Description ReadPlain(const Lines& lines, const std::string& joined)
{
    const auto never = [](std::string_view, std::string_view) { return false; };
    std::string first = Squeezed(joined);
    if (std::string name = LabelledName(first); !name.empty())
        return {FirstWords(name), first};
    RowText text;
    if (lines.size() > 1 && !lines.front().isFull) {
        const bool number = !HasLetter(lines[0].text) && !lines[1].isFull;
        first = Squeezed(lines[number ? 1 : 0].text);
        text.Add(Joined(lines, number ? 2 : 1, never));
        if (number)
            text.Add(lines[0].text);
    }
    const std::size_t space = first.find(' ');
    if (space != std::string::npos && IsAccountNumber(std::string_view(first).substr(0, space)) &&
        HasLetter(std::string_view(first).substr(space))) {
        text.Add(first.substr(0, space));
        first.erase(0, space + 1);
    }
    Mt940Description described{FirstWords(first), {}};
    if (described.name != first)
        text.Add(first);
    described.text = text.Text();
    return described;
}

}  // namespace

Mt940Description ReadMt940Text(const std::vector<std::string_view>& contents, const Mt940Wrap& wrap)
{
    const Lines lines = Mt940TextLines(contents, wrap);
    if (lines.empty())
        return {};
    const std::string joined = Joined(lines, 0, BreaksACode);
    if (const auto sign = SubfieldSign(joined))
        // A line that begins a subfield leaves the one before as long as it is.
        return ReadSubfields(Joined(lines, 0,
                                    [sign](std::string_view, std::string_view next) {
                                        return IsSubfield(next, *sign);
                                    }),
                             *sign);
    const std::string_view all =
        std::string_view(joined).substr(std::min(joined.find_first_not_of(' '), joined.size()));
    return HasCodes(all) ? ReadCodes(all) : ReadPlain(lines, joined);
}

Mt940Description ReadMt940Ns(std::string_view content)
{
    RowText purpose;
    RowText name;
    LineCutter lines(content);
    for (std::string_view line; lines.Next(line);) {
        if (line.size() < 3 || line[0] < '0' || line[0] > '9' || line[1] < '0' || line[1] > '9')
            continue;
        const int code = (line[0] - '0') * 10 + line[1] - '0';
        if (code <= 14 || code == 17)
            purpose.Add(line.substr(2));
        else if (code <= 16)
            name.Add(line.substr(2));
    }
    return {name.Text(), purpose.Text()};
}

}  // namespace clb
